#pragma once
// What the one-field dialogues share: their key filters, select-all on focus, and the check of a
// number that goes into a 16-bit setting.

#include <cstdint>
#include <optional>
#include <string>

#include "ui/controls.h"

namespace parlane {

class frmMain;

// A KeyPress handler gets the key's character code and returns it to let the key through, or 0
// to drop it.
inline constexpr int KeyBackspace = 8;

inline bool IsDigitKey(int keyAscii) {
    return keyAscii >= '0' && keyAscii <= '9';
}

// The number fields take digits, "+" and backspace.
inline int NumberFieldKey(int keyAscii) {
    return IsDigitKey(keyAscii) || keyAscii == '+' || keyAscii == KeyBackspace ? keyAscii : 0;
}

inline void SelectAll(TextBox& box) {
    box.SelStart = 0;
    box.SelLength = static_cast<int>(box.Text.size());
}

// The whole part of the field's leading number ("+3" and "3+4" both give 3). When the field is
// empty or the value is below `minimum` the user is told `belowId`; above 32767, which no 16-bit
// setting can hold, the user is told so. Both leave nullopt.
std::optional<std::int16_t> CheckedNumber(frmMain& main, const std::string& text, int minimum,
                                          int belowId);

}  // namespace parlane
