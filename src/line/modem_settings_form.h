#pragma once
// The modem-settings dialog's model: the fields of one device configuration block as text.

#include <optional>

#include "line/field_form.h"
#include "line/modem_config.h"

namespace parlane {

// The rates a serial port can be set to here, lowest first.
bool IsStandardSpeed(std::uint32_t baud);

class ModemSettingsForm : public FieldForm {
  public:
    explicit ModemSettingsForm(const ModemConfig& from);

    TextBox txtSpeed;
    TextBox txtDataBits;
    TextBox txtParity;  // N, E or O
    TextBox txtStopBits;
    TextBox txtFlowControl;  // N none, H hardware (RTS/CTS)
    TextBox txtInitString;

    // The settings the fields hold; nullopt while a field breaks its rule.
    std::optional<ModemConfig> Result() const;
};

}  // namespace parlane
