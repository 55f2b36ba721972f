#pragma once
// Names for the telephony service's numbers, as the debug log shows them.

#include <cstdint>
#include <string>

namespace parlane {

class Strings;

// The names are the service's own constants; only the words for a number of no name come from
// the bank in use.
// "LINEERR_INUSE [8000000F]", or "Unknown TAPI Error! [...]".
std::string TapiErrorText(std::int32_t code, const Strings& strings);
// "LINE_CLOSE [3]", or "Unknown Message".
std::string TapiMessageText(std::uint32_t message, const Strings& strings);
// "LINECALLSTATE_CONNECTED [ 256]", or "Unknown Call State".
std::string CallStateText(std::uint32_t state, const Strings& strings);
// "LINEDISCONNECTMODE_REJECT [4]"; "Unknown Disconnect Mode" for a value of no single name.
std::string DisconnectModeText(std::uint32_t mode, const Strings& strings);
std::string MediaModesText(std::uint32_t mask);
std::string DigitModesText(std::uint32_t mask);
// NULs become blanks.
std::string BlankNuls(std::string text);

}  // namespace parlane
