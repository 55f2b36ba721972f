#include "line/device_dialogs.h"

#include "line/telephony.h"

namespace parlane {

std::int32_t EditModemBlock(DeviceDialogs* dialogs, const ModemConfig& current,
                            const std::vector<std::uint8_t>& blockIn,
                            std::vector<std::uint8_t>& varStringOut) {
    const auto own = DecodeModemConfig(blockIn);
    ModemSettingsForm form(own.value_or(current));
    if (!own) form.ShowDefaultsNote(current);
    if (!dialogs || !dialogs->EditModemSettings(form)) return LINEERR_OPERATIONFAILED;
    // A view that let a faulty field through still gets no block out of it.
    const auto edited = form.Result();
    if (!edited) return LINEERR_OPERATIONFAILED;
    return WriteVarString(varStringOut, EncodeModemConfig(*edited));
}

bool EditLocation(DeviceDialogs* dialogs, Settings* settings, DiallingLocation& location) {
    LocationForm form(location);
    if (!dialogs || !dialogs->EditDiallingLocation(form)) return false;
    const auto edited = form.Result();
    if (!edited) return false;
    location = *edited;
    if (settings) SaveDiallingLocation(*settings, location);
    return true;
}

}  // namespace parlane
