#pragma once
// Text inside the program is bytes of Windows code page 1252. These convert at the edges
// (Qt widgets, JSON, terminals). Every byte has a character, so bytes -> UTF-8 -> bytes is exact.

#include <string>
#include <string_view>
#include <vector>

namespace parlane {

std::string Cp1252ToUtf8(std::string_view bytes);
// Characters the code page cannot hold become '?'. Invalid UTF-8 sequences become '?' too.
std::string Utf8ToCp1252(std::string_view utf8);
// A text file a user picked, in the code page. UTF-8 (with a byte-order mark, or valid UTF-8
// with any byte over 127) is converted, each character the code page cannot hold becoming "?"
// and named once in `lost`; anything else is taken as Windows-1252 already.
struct FileText {
    std::string text;
    bool utf8 = false;
    std::vector<char32_t> lost;
};
FileText DecodeFileText(std::string_view bytes);
// "U+2713, U+1F600", the first `most` of them, then ", ..." when there are more.
std::string CodePointNames(const std::vector<char32_t>& codePoints, std::size_t most = 8);
// The Unicode code point of one cp1252 byte.
char32_t Cp1252CodePoint(unsigned char byte);

}  // namespace parlane

namespace parlane {
// Lower case of one cp1252 byte, accented capitals included.
char Cp1252Lower(char c);
std::string Cp1252LowerCase(std::string_view text);
}  // namespace parlane
