#pragma once
// The print layout's printer on a QPrinter: a real printer, or a PDF file.

#include <QFont>
#include <QPainter>

#include "archive/printer.h"

class QPrinter;

namespace parlane {

class QtPrinter : public Printer {
  public:
    explicit QtPrinter(QPrinter& printer);
    ~QtPrinter() override;
    bool SetFont(const std::string& family) override;
    int ScaleWidth() const override;
    int ScaleHeight() const override;
    int TextWidth(std::string_view text) const override;
    int TextHeight(std::string_view text) const override;
    void PrintAt(int x, int y, std::string_view text) override;
    void NewPage() override;
    int Page() const override { return page_; }
    void EndDoc() override;

  private:
    double devicePerTwip() const;
    QPrinter& printer_;
    QPainter painter_;
    QFont font_;
    int page_ = 1;
};

}  // namespace parlane
