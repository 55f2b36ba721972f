#pragma once
// Wordwrap: lays text out on the printer by itself, word by word, with a header and a footer on
// every page and tab stops every ten widths of "0".

#include <string>

#include "archive/printer.h"

namespace parlane {

struct PageFrameTexts {
    std::string shortDate;  // today, in the regional short form
    std::string pageWord;   // "Page " of the bank in use, the number follows
};

void PrintWrapped(Printer& printer, const std::string& header, const std::string& text,
                  const PageFrameTexts& frame);

}  // namespace parlane
