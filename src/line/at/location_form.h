#pragma once
// The dialling-location dialog's model: where the modems dial from, as text fields.

#include <optional>

#include "line/at/dialling_rules.h"
#include "line/field_form.h"

namespace parlane {

class LocationForm : public FieldForm {
  public:
    explicit LocationForm(const DiallingLocation& from);

    TextBox txtCountryCode;
    TextBox txtAreaCode;
    TextBox txtOutsideLine;  // digits and "," (a pause for the second dial tone)
    TextBox txtNationalPrefix;
    TextBox txtInternationalPrefix;
    TextBox txtDialMode;  // T tone, P pulse

    // The location the fields hold; nullopt while a field breaks its rule.
    std::optional<DiallingLocation> Result() const;
};

}  // namespace parlane
