#pragma once
// Text inside the program is bytes of Windows code page 1252. These convert at the edges
// (Qt widgets, JSON, terminals). Every byte has a character, so bytes -> UTF-8 -> bytes is exact.

#include <string>
#include <string_view>

namespace parlane {

std::string Cp1252ToUtf8(std::string_view bytes);
// Characters the code page cannot hold become '?'. Invalid UTF-8 sequences become '?' too.
std::string Utf8ToCp1252(std::string_view utf8);
// The Unicode code point of one cp1252 byte.
char32_t Cp1252CodePoint(unsigned char byte);

}  // namespace parlane

namespace parlane {
// Lower case of one cp1252 byte, accented capitals included.
char Cp1252Lower(char c);
std::string Cp1252LowerCase(std::string_view text);
}  // namespace parlane
