#include "line/at/ports_form.h"

#include <algorithm>

#include "core/string_ids.h"

namespace parlane {
namespace {

// Each entry a path from the root, with no control characters in it.
bool ValidPorts(const std::string& text) {
    for (const auto& path : SplitPortsSetting(text)) {
        if (path.front() != '/') return false;
        for (char c : path)
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) return false;
    }
    return true;
}

char AnyKey(char typed) {
    return typed;
}

}  // namespace

std::vector<std::string> SplitPortsSetting(const std::string& text) {
    std::vector<std::string> paths;
    std::size_t start = 0;
    while (start <= text.size()) {
        auto end = text.find(';', start);
        if (end == std::string::npos) end = text.size();
        const std::string part = text.substr(start, end - start);
        start = end + 1;
        const auto first = part.find_first_not_of(" \t");
        if (first == std::string::npos) continue;
        paths.push_back(part.substr(first, part.find_last_not_of(" \t") - first + 1));
    }
    return paths;
}

PortsForm::PortsForm(const std::string& portsSetting, std::vector<SerialPortEntry> detected)
    : FieldForm(sid::MenuModemProperties), detected_(std::move(detected)) {
    txtPorts.Text = portsSetting;
    for (const auto& port : detected_) lstPorts.AddItem(port.name + " - " + port.path);
    add({"txtPorts", sid::LabelSerialPorts, &txtPorts, ValidPorts, AnyKey});
}

void PortsForm::lstPorts_DblClick() {
    if (lstPorts.ListIndex < 0 || lstPorts.ListIndex >= static_cast<int>(detected_.size())) return;
    const std::string& path = detected_[static_cast<std::size_t>(lstPorts.ListIndex)].path;
    const auto listed = SplitPortsSetting(txtPorts.Text);
    if (std::find(listed.begin(), listed.end(), path) != listed.end()) return;
    std::string text = txtPorts.Text;
    while (!text.empty() && (text.back() == ' ' || text.back() == ';')) text.pop_back();
    txtPorts.Text = text.empty() ? path : text + ";" + path;
}

}  // namespace parlane
