#pragma once
// The TAP block and the seven-bit substitution of its text.

#include <cstdint>
#include <string>

namespace parlane {

inline constexpr char STX = '\x02', ETX = '\x03', EOT = '\x04', ACK = '\x06', CR = '\x0D',
                      NAK = '\x15', ESC = '\x1B', RS = '\x1E';
inline const std::string TapGoAhead = "\x1B[p";
inline const std::string TapRefused = "\x15\x0D";
inline const std::string TapDoneShort = "\x06\x0D\x1B\x04";
inline const std::string TapDoneLong = "\x06\x0D\x0D\x1B\x04";

// STX, fields, ETX, the three checksum characters and CR. `fields` is field 1, CR, field 2, CR.
// Empty when the checksum would overflow its 16-bit sum; no block goes out then.
std::string BuildTapBlock(const std::string& fields);

// The code that goes out for one cp1252 code.
std::int16_t SubstituteCharacter(std::int16_t code, bool allowExtendedAscii);
// Substitutes every character in place; the length never changes.
void FindAsciiCharacter(std::string& text, bool allowExtendedAscii);

// The area code less one leading "0".
std::string NationalAreaPart(const std::string& areaCode);

}  // namespace parlane
