// Which line a centre's messages go through. A centre names a device by its number; a number
// that names no line here, or a centre without a number to dial, sends nothing: its messages stay
// queued and the user is told which setting is missing. Nothing ever falls back to the simulated
// modem, which only a person chooses.
#include <algorithm>

#include "core/string_ids.h"
#include "line/modem_config.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

// The device a centre names; nothing for an empty or non-numeric field, which names no line.
std::optional<std::uint32_t> CentreDevice(const Provider& centre) {
    const std::string& text = centre.TapiDevice;
    if (text.empty() || text.size() > 6 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return static_cast<std::uint32_t>(std::stoul(text));
}

std::string LineKeyText(const LineDevCaps& caps, std::uint32_t device) {
    return caps.lineKey.empty() ? "#" + std::to_string(device) : caps.lineKey;
}

}  // namespace

std::string frmMain::LineProblem(const Provider& centre) {
    const std::string who = "\"" + centre.ProviderName + "\" ";
    if (centre.Number.empty()) return who + LoadResString(sid::CentreHasNoNumber);
    const auto device = CentreDevice(centre);
    if (!device) return who + LoadResString(sid::CentreHasNoLine);
    LineDevCaps caps;
    if (tapi.DescribeLine(*device, caps)) return {};
    return who + LoadResString(sid::CentreLineGone) + " " + LineKeyText(caps, *device);
}

std::string frmMain::LineProblemFor(const QueuedMessage& message) {
    const int index = FindCenterByPrefix(Providers, message.ProviderName);
    return index < 0 ? std::string() : LineProblem(Providers[static_cast<std::size_t>(index)]);
}

bool frmMain::OnSimulatedLine(const Provider& centre) {
    const auto device = CentreDevice(centre);
    LineDevCaps caps;
    return device && tapi.DescribeLine(*device, caps) && caps.kind == LineKind::Simulated;
}

std::string frmMain::OutcomeText(int statusId) const {
    const std::string status = LoadResString(statusId);
    return state.SimulatedCall ? status + " " + LoadResString(sid::SimulatedMark) : status;
}

std::string frmMain::ArchiveStatus(const std::string& status, const QueuedMessage& message) const {
    const std::string mark = LoadResString(sid::SimulatedMark);
    // A message refused before it had a centre never reached any line.
    if (!state.SimulatedCall || message.ProviderIndex < 0 || status.find(mark) != std::string::npos)
        return status;
    return status + " " + mark;
}

void frmMain::ShowCentreLine() {
    const int row = Services.ListIndex;
    if (row < 0 || row >= static_cast<int>(Providers.size()) || Services.Text.empty()) {
        lblLine.Caption.clear();
        return;
    }
    const auto device = CentreDevice(Providers[static_cast<std::size_t>(row)]);
    LineDevCaps caps;
    std::string line;
    if (!device)
        line = LoadResString(sid::LineNoneChosen);
    else if (tapi.DescribeLine(*device, caps))
        line = BlankNuls(caps.lineName);
    else
        line = LineKeyText(caps, *device) + " " + LoadResString(sid::LineNotOnThisComputer);
    lblLine.Caption = LoadResString(sid::LineLabel) + " " + line;
}

// Versions before the internet line numbered the serial ports from 1, where the internet line
// stands now. Such a home shows it by a centre with a modem's block on number 1, or by the chosen
// modem's name standing one row further on than its stored row.
bool frmMain::NumberedBeforeInternetLine() {
    LineDevCaps internet;
    if (!tapi.DescribeLine(1, internet) || internet.kind != LineKind::Internet) return false;
    for (const auto& centre : Providers)
        if (CentreDevice(centre) == 1u && DecodeModemConfig(centre.DevConfig)) return true;
    const auto index = settings_.GetInt(key::ModemIndex);
    const std::string name = settings_.Get(key::ModemName);
    if (!index || *index < 1 || name.empty()) return false;
    LineDevCaps stored, next;
    tapi.DescribeLine(static_cast<std::uint32_t>(*index), stored);
    return stored.lineName != name &&
           tapi.DescribeLine(static_cast<std::uint32_t>(*index) + 1, next) && next.lineName == name;
}

void frmMain::MendCentreLines() {
    std::string lines;
    for (std::uint32_t device = 0; device < tapi.LineDeviceCount(); ++device) {
        LineDevCaps caps;
        tapi.DescribeLine(device, caps);
        lines += (device == 0 ? "" : ";") + caps.lineKey;
    }
    const std::string remembered = settings_.Get(key::ModemLines);
    // Once the numbers are remembered they hold, so only the first such start mends.
    if (remembered.empty() && NumberedBeforeInternetLine()) {
        for (auto& centre : Providers) {
            const auto device = CentreDevice(centre);
            if (!device || *device < 1) continue;
            centre.TapiDevice = std::to_string(*device + 1);
            LineDevCaps caps;
            tapi.DescribeLine(*device + 1, caps);
            debugLog.AppendLog("\"" + centre.ProviderName + "\": Line " + std::to_string(*device) +
                               " -> " + centre.TapiDevice + " (" + LineKeyText(caps, *device + 1) +
                               ") - " + LoadResString(sid::LogCentreMovedToItsPort));
        }
        if (const auto index = settings_.GetInt(key::ModemIndex); index && *index >= 1)
            settings_.Save(key::ModemIndex, std::to_string(*index + 1));
        SaveProviders();
    }
    if (!lines.empty() && lines != remembered) settings_.Save(key::ModemLines, lines);
}

}  // namespace parlane
