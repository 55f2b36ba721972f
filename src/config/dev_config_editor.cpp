#include "config/dev_config_editor.h"

#include <algorithm>

#include "line/modem_config.h"

namespace parlane {
namespace {

constexpr std::uint32_t kFirstPassSize = 1048;
constexpr std::uint32_t kEditOutputSize = 1024;

void PutDword(std::vector<std::uint8_t>& bytes, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// The block moved to the front of its VARSTRING and the rest cut off. A size or offset that
// points outside the record (a provider's fault) gives nothing.
bool TakeBlock(std::vector<std::uint8_t>& bytes, std::uint32_t size, std::uint32_t offset) {
    if (offset > bytes.size() || size > bytes.size() - offset) return false;
    bytes.erase(bytes.begin(), bytes.begin() + offset);
    bytes.resize(size);
    return true;
}

}  // namespace

void ReadDevConfig(TAPISubs& tapi, std::uint32_t device, DevConfigEditor& editor) {
    auto& log = tapi.debugLog();
    std::vector<std::uint8_t> first(kFirstPassSize, 0);
    PutDword(first, kFirstPassSize);
    const auto result = tapi.lineGetDevConfig(device, first);
    if (result != 0) {
        log.AppendLog(tapi.ErrorText(result) + " - lineGetDevConfig");
        return;
    }
    log.AppendLog("Success! - lineGetDevConfig");
    std::uint32_t size = ByteDword(first, 16), offset = ByteDword(first, 20);
    const std::uint32_t needed = ByteDword(first, 4);

    std::vector<std::uint8_t> block(std::max<std::uint32_t>(needed, 4), 0);
    PutDword(block, needed);
    const auto second = tapi.lineGetDevConfig(device, block);
    if (second != 0) {
        log.AppendLog(tapi.ErrorText(second) + " - lineGetDevConfig");
    } else {
        log.AppendLog("Success! - lineGetDevConfig");
        // A block too big for the first pass has its size only now; one that fitted reads the
        // same both times.
        size = ByteDword(block, 16);
        offset = ByteDword(block, 20);
    }
    if (!TakeBlock(block, size, offset)) return;
    editor.EditorDevConfig = std::move(block);
    editor.EditorDevConfigSize = size;
}

void EditDevConfig(TAPISubs& tapi, const ListControl& cboTapiDevice, std::uintptr_t owner,
                   DevConfigEditor& editor) {
    if (cboTapiDevice.Text.empty()) return;
    std::vector<std::uint8_t> output(kEditOutputSize, 0);
    PutDword(output, kEditOutputSize);
    const auto result = tapi.lineConfigDialogEdit(
        static_cast<std::uint32_t>(cboTapiDevice.ListIndex), owner, editor.EditorDevConfig, output);
    auto& log = tapi.debugLog();
    if (result != 0) {
        log.AppendLog(tapi.ErrorText(result) + " - lineGetDevConfigEdit");
        return;
    }
    log.AppendLog("Success! - lineGetDevConfigEdit");
    const std::uint32_t size = ByteDword(output, 16), offset = ByteDword(output, 20);
    if (!TakeBlock(output, size, offset)) return;
    editor.EditorDevConfig = std::move(output);
    editor.EditorDevConfigSize = size;
}

}  // namespace parlane
