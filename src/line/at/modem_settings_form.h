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

    // The dialog opened on the modem's own settings because the centre has none: the note says
    // which they are.
    void ShowDefaultsNote(const ModemConfig& defaults);

    TextBox txtSpeed;
    TextBox txtDataBits;  // 7 or 8
    TextBox txtParity;    // N, E or O
    TextBox txtStopBits;
    TextBox txtFlowControl;  // N none, H hardware (RTS/CTS)
    TextBox txtInitString;

    // Ready framings (data bits, parity, stop bits): 8N1 and 7E1, TAP's usual one.
    static const std::vector<Choice>& Framings();
    // The framing the three fields hold; -1 when it is none of the ready ones.
    int FramingIndex() const;
    void cboFraming_Click(int index);

    // The settings the fields hold; nullopt while a field breaks its rule.
    std::optional<ModemConfig> Result() const;
};

}  // namespace parlane
