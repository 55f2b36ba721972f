#include "config/field_rules.h"

#include <cmath>

#include "core/settings_store.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

std::optional<std::int16_t> CheckedNumber(frmMain& main, const std::string& text, int minimum,
                                          int belowId) {
    const double value = std::trunc(LeadingNumber(text));
    if (text.empty() || value < minimum) {
        main.ShowMessageBox(main.LoadResString(belowId), MbInformation);
        return std::nullopt;
    }
    if (value > INT16_MAX) {
        main.ShowMessageBox(main.LoadResString(sid::NumberTooLarge), MbInformation);
        return std::nullopt;
    }
    return static_cast<std::int16_t>(value);
}

}  // namespace parlane
