#pragma once
// The buttons of the data-exchange windows, as plain fields their views mirror.

#include <string>

namespace parlane {

struct ExchangeButton {
    std::string Caption;
    bool Visible = true;
    bool Enabled = true;
};

struct ExchangeOption {
    std::string Caption;
    bool Value = false;
};

}  // namespace parlane
