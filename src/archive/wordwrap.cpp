#include "archive/wordwrap.h"

#include <cmath>

namespace parlane {
namespace {

constexpr int kLeftMargin = 720;
constexpr int kTopOfText = 1440;
constexpr int kBottomSpace = 1440;
constexpr int kFooterSpace = 720;

class Layout {
  public:
    Layout(Printer& printer, const std::string& header, const PageFrameTexts& frame)
        : p_(printer), header_(header), frame_(frame) {}

    void PrintPageFrame(bool newPage) {
        if (newPage) p_.NewPage();
        p_.PrintAt(kLeftMargin, (kTopOfText - p_.TextHeight(header_)) / 2, header_);
        const int footerTop = p_.ScaleHeight() - kFooterSpace;
        p_.PrintAt(kLeftMargin, footerTop, frame_.shortDate);
        const std::string page = frame_.pageWord + std::to_string(p_.Page());
        p_.PrintAt(rightLimit() - p_.TextWidth(page), footerTop, page);
        x_ = kLeftMargin;
        y_ = kTopOfText;
    }

    void Print(const std::string& text) {
        const std::size_t n = text.size();
        std::size_t i = 0;
        while (i < n) {
            std::size_t start = i;
            while (i<n&& static_cast<unsigned char>(text[i])> 32) ++i;
            const std::string word = text.substr(start, i - start);
            const int width = p_.TextWidth(word);
            if (x_ + width > rightLimit()) EndLine();
            Put(word, width);
            for (; i < n && static_cast<unsigned char>(text[i]) <= 32; ++i) {
                switch (text[i]) {
                    case ' ':
                        Put(" ", p_.TextWidth(" "));
                        break;
                    case '\n':
                        EndLine();
                        break;
                    case '\t': {
                        const int w = p_.TextWidth("0");
                        if (w <= 0) break;
                        const int stops = static_cast<int>(
                            std::lround(static_cast<double>(x_ - kLeftMargin) / w));
                        x_ = kLeftMargin + w * (stops + 10 - stops % 10);
                        break;
                    }
                    default:
                        break;  // CR and the other controls print nothing
                }
            }
        }
    }

  private:
    int rightLimit() const { return p_.ScaleWidth() - kLeftMargin; }

    void Put(const std::string& text, int width) {
        if (text.empty()) return;
        p_.PrintAt(x_, y_, text);
        x_ += width;
    }

    void EndLine() {
        y_ += p_.TextHeight("0");
        if (y_ > p_.ScaleHeight() - kBottomSpace) PrintPageFrame(true);
        x_ = kLeftMargin;
    }

    Printer& p_;
    const std::string& header_;
    const PageFrameTexts& frame_;
    int x_ = kLeftMargin;
    int y_ = kTopOfText;
};

}  // namespace

void PrintWrapped(Printer& printer, const std::string& header, const std::string& text,
                  const PageFrameTexts& frame) {
    Layout layout(printer, header, frame);
    layout.PrintPageFrame(false);
    layout.Print(text);
    printer.EndDoc();
}

}  // namespace parlane
