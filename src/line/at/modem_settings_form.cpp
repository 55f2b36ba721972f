#include "line/at/modem_settings_form.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "core/string_ids.h"

namespace parlane {
namespace {

constexpr std::array<std::uint32_t, 11> kSpeeds{300,   1200,  2400,   4800,   9600,  19200,
                                                38400, 57600, 115200, 230400, 460800};
// Hayes modems take a command line of at least 40 characters after "AT"; most take 60.
constexpr std::size_t kMaxInitString = 60;

bool ValidSpeed(const std::string& t) {
    return SomeDigits(t) && t.size() <= 6 &&
           IsStandardSpeed(static_cast<std::uint32_t>(std::stoul(t)));
}
bool ValidDataBits(const std::string& t) {
    return t == "7" || t == "8";
}
bool ValidParity(const std::string& t) {
    return t == "N" || t == "E" || t == "O";
}
bool ValidStopBits(const std::string& t) {
    return t == "1" || t == "2";
}
bool ValidFlow(const std::string& t) {
    return t == "N" || t == "H";
}
// Empty (the modem's defaults) or one AT command line of plain characters.
bool ValidInit(const std::string& t) {
    if (t.empty()) return true;
    if (t.size() < 2 || t.size() > kMaxInitString) return false;
    if (std::toupper(static_cast<unsigned char>(t[0])) != 'A' ||
        std::toupper(static_cast<unsigned char>(t[1])) != 'T')
        return false;
    return std::all_of(t.begin(), t.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

}  // namespace

bool IsStandardSpeed(std::uint32_t baud) {
    return std::find(kSpeeds.begin(), kSpeeds.end(), baud) != kSpeeds.end();
}

ModemSettingsForm::ModemSettingsForm(const ModemConfig& from) : FieldForm(sid::MenuModems) {
    txtSpeed.Text = std::to_string(from.baud);
    txtDataBits.Text = std::to_string(from.dataBits);
    txtParity.Text = std::string(1, from.parity);
    txtStopBits.Text = std::to_string(from.stopBits);
    // One char, not a literal: GCC 12 at -O2 warns falsely (-Wrestrict) on assigning "H" or "N".
    txtFlowControl.Text = std::string(1, from.hardwareFlowControl ? 'H' : 'N');
    txtInitString.Text = from.initString;
    add({"txtSpeed", sid::LabelSpeed, &txtSpeed, ValidSpeed, DigitKey});
    add({"txtDataBits", sid::LabelDataBits, &txtDataBits, ValidDataBits, DigitKey});
    add({"txtParity", sid::LabelParity, &txtParity, ValidParity,
         [](char c) { return LetterKey(c, "NEO"); }});
    add({"txtStopBits", sid::LabelStopBits, &txtStopBits, ValidStopBits, DigitKey});
    add({"txtFlowControl", sid::LabelFlowControl, &txtFlowControl, ValidFlow,
         [](char c) { return LetterKey(c, "NH"); }});
    add({"txtInitString", sid::LabelInitString, &txtInitString, ValidInit, AnyPrintableKey});
    std::vector<Choice> speeds;
    for (auto baud : kSpeeds) speeds.push_back({std::to_string(baud), 0});
    addChoices("txtSpeed", std::move(speeds));
    addChoices("txtDataBits", {{"7", 0}, {"8", 0}});
    addChoices("txtParity",
               {{"N", sid::ChoiceNone}, {"E", sid::ChoiceEven}, {"O", sid::ChoiceOdd}});
    addChoices("txtStopBits", {{"1", 0}, {"2", 0}});
    addChoices("txtFlowControl", {{"N", sid::ChoiceNone}, {"H", sid::ChoiceHardware}});
}

void ModemSettingsForm::ShowDefaultsNote(const ModemConfig& defaults) {
    noteId = sid::ModemDefaultsNote;
    noteDetail = std::to_string(defaults.baud) + " " + std::to_string(defaults.dataBits) +
                 defaults.parity + std::to_string(defaults.stopBits) +
                 (defaults.hardwareFlowControl ? " RTS/CTS" : "") +
                 (defaults.initString.empty() ? "" : " " + defaults.initString);
}

const std::vector<FieldForm::Choice>& ModemSettingsForm::Framings() {
    static const std::vector<Choice> framings{{"8N1", sid::Framing8N1}, {"7E1", sid::Framing7E1}};
    return framings;
}

int ModemSettingsForm::FramingIndex() const {
    const std::string framing = txtDataBits.Text + txtParity.Text + txtStopBits.Text;
    for (std::size_t i = 0; i < Framings().size(); ++i)
        if (Framings()[i].value == framing) return static_cast<int>(i);
    return -1;
}

void ModemSettingsForm::cboFraming_Click(int index) {
    if (index < 0 || index >= static_cast<int>(Framings().size())) return;
    const std::string& framing = Framings()[static_cast<std::size_t>(index)].value;
    txtDataBits.Text = framing.substr(0, 1);
    txtParity.Text = framing.substr(1, 1);
    txtStopBits.Text = framing.substr(2, 1);
}

std::optional<ModemConfig> ModemSettingsForm::Result() const {
    if (FirstFault()) return std::nullopt;
    ModemConfig c;
    c.baud = static_cast<std::uint32_t>(std::stoul(txtSpeed.Text));
    c.dataBits = static_cast<std::uint8_t>(txtDataBits.Text[0] - '0');
    c.parity = txtParity.Text[0];
    c.stopBits = static_cast<std::uint8_t>(txtStopBits.Text[0] - '0');
    c.hardwareFlowControl = txtFlowControl.Text == "H";
    c.initString = txtInitString.Text;
    return c;
}

}  // namespace parlane
