#pragma once
// The printer as the print layout needs it: a page measured in twips of the printer's own scale,
// text measured and printed at a position, pages counted by the printer.

#include <string>
#include <string_view>

namespace parlane {

class Printer {
  public:
    virtual ~Printer() = default;
    // False when the printer has no such font; it keeps its current one.
    virtual bool SetFont(const std::string& family) = 0;
    virtual int ScaleWidth() const = 0;
    virtual int ScaleHeight() const = 0;
    // Text is cp1252.
    virtual int TextWidth(std::string_view text) const = 0;
    virtual int TextHeight(std::string_view text) const = 0;
    virtual void PrintAt(int x, int y, std::string_view text) = 0;
    virtual void NewPage() = 0;
    virtual int Page() const = 0;  // from 1
    virtual void EndDoc() = 0;
};

}  // namespace parlane
