#pragma once
// The centre editor's copy of a centre's device configuration block, and the two ways it
// changes: read from the selected device, or edited in the device's settings dialog
// (the &Properties button).

#include <cstdint>
#include <vector>

#include "line/tapi_subs.h"
#include "ui/controls.h"

namespace parlane {

struct DevConfigEditor {
    std::vector<std::uint8_t> EditorDevConfig;
    std::uint32_t EditorDevConfigSize = 0;
};

// Two passes: a 1048-byte VARSTRING learns the size needed, a second one of that size reads the
// block. A failed first pass leaves the block as it was.
void ReadDevConfig(TAPISubs& tapi, std::uint32_t device, DevConfigEditor& editor);

// cmdLineConfigDialog: the settings dialog of the row selected in `cboTapiDevice` over the
// editor's block; the block changes only when the dialog succeeded.
void EditDevConfig(TAPISubs& tapi, const ListControl& cboTapiDevice, std::uintptr_t owner,
                   DevConfigEditor& editor);

}  // namespace parlane
