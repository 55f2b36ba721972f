// The compose panel's rules: what a key may do in each field, name completion, the centre's
// length limit and Insert Text File.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "config/field_rules.h"
#include "core/cp1252.h"
#include "core/file_io.h"
#include "core/settings_store.h"
#include "core/string_ids.h"
#include "exchange/open_file_chooser.h"
#include "store/directory.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr int kKeyDelete = 46;  // the key code Names_KeyDown gets for Delete

}  // namespace

std::optional<int> TotalLimit(const Label& lblTotal) {
    const auto slash = lblTotal.Caption.find('/');
    if (slash == std::string::npos) return std::nullopt;
    const double limit = LeadingNumber(lblTotal.Caption.substr(slash + 1));
    return limit > INT16_MAX ? INT16_MAX : static_cast<int>(limit);
}

int frmMain::NumberField_KeyPress(int keyAscii) {
    // A number being typed is no longer a directory entry's number, whatever the key.
    Names.ListIndex = -1;
    Names.Text = "Names";
    return NumberFieldKey(keyAscii);
}

void frmMain::Country_Click() {
    txtCountryCode.Text = CountryDialCode(Country.Text);
    focusedControl = "txtAreaCode";
}

void frmMain::Names_Change() {
    if (SkipNameCompletion) {
        SkipNameCompletion = false;
        return;
    }
    const std::string typed = Names.Text;
    const std::string key = Cp1252LowerCase(typed);
    const std::string* match = nullptr;
    for (const auto& row : Names.rows)
        if (Cp1252LowerCase(row).starts_with(key)) {
            match = &row;
            break;
        }
    if (!match) return;
    const std::size_t extra = match->size() - typed.size();
    if (extra == 0) return;
    // The insertion is itself a change of Names, which must not complete again.
    SkipNameCompletion = true;
    const std::size_t caret =
        std::min(static_cast<std::size_t>(std::max(Names.SelStart, 0)), typed.size());
    Names.Text.insert(caret, match->substr(match->size() - extra));
    Names_Change();
    Names.SelStart = static_cast<int>(typed.size());
    Names.SelLength = static_cast<int>(extra);
}

int frmMain::Names_KeyDown(int keyCode) {
    if (keyCode == kKeyDelete || keyCode == KeyBackspace) SkipNameCompletion = true;
    return keyCode;
}

void frmMain::Names_Click() {
    UsePhoneEntry();
    focusedControl = "txtMessage";
}

void frmMain::Names_LostFocus() {
    UsePhoneEntry();
}

void frmMain::Services_Click() {
    ShowCentreLine();
    const int row = Services.ListIndex;
    if (row < 0 || row >= static_cast<int>(Providers.size())) return;
    const double limit = LeadingNumber(Providers[static_cast<std::size_t>(row)].MaxChars);
    CurrentMaxChars = static_cast<std::int16_t>(std::clamp(limit, -32768.0, 32767.0));
    lblTotal.Caption = "/" + std::to_string(CurrentMaxChars);
}

void frmMain::SelectCentreByName(const std::string& name) {
    for (int i = 0; i < Services.ListCount(); ++i) {
        if (Services.rows[static_cast<std::size_t>(i)] != name) continue;
        Services.select(i);
        Services_Click();
    }
}

void frmMain::Services_Change() {
    const int before = Services.ListIndex;
    SelectCentreByName(std::string(Services.Text));
    // A name that is not listed leaves the selection, and so the text, as it was.
    if (Services.ListIndex == before) Services.select(before);
    focusedControl = "txtMessage";
}

int frmMain::txtMessage_KeyPress(int keyAscii) {
    // A message is one paragraph.
    if (keyAscii == 13 || keyAscii == 10) return 0;
    if (LeadingNumber(lblTextCounter.Caption) >= CurrentMaxChars && keyAscii != KeyBackspace)
        return 0;
    return keyAscii;
}

void frmMain::txtMessage_Change() {
    const auto length = txtMessage.Text.size();
    lblTextCounter.Caption = std::to_string(length);
    mnuInsert.Enabled = static_cast<int>(length) != TotalLimit(lblTotal).value_or(0);
}

void frmMain::mnuInsert_Click() {
    if (!openFileChooser) return;
    const auto file =
        openFileChooser->chooseOpenFile(LoadResString(sid::TitleInsertTextFile), platform_.home,
                                        "*.txt", LoadResString(sid::TextFileFilter));
    if (!file || file->empty()) return;
    bool truncated = false;
    const int limit = TotalLimit(lblTotal).value_or(0);
    {
        BusyCursor busy(*this);
        // Read whole before anything is appended: a file that cannot be read changes nothing.
        const auto bytes = ReadWholeFile(*file);
        if (!bytes) return;
        // A UTF-8 file is read as such; what the code page cannot hold is asked about first.
        const auto decoded = DecodeFileText(*bytes);
        if (!decoded.lost.empty() &&
            ShowMessageBox(LostCharactersQuestion(globals_.strings, decoded.lost),
                           MbQuestionYesNo) != AnswerYes)
            return;
        for (const char c : decoded.text) {
            // Line ends and tabs vanish; a blank stays.
            if (static_cast<unsigned char>(c) > 31) {
                txtMessage.Text += c;
                txtMessage_Change();
            }
            // Equality only: a text already over the limit takes the whole file.
            if (static_cast<int>(txtMessage.Text.size()) == limit) {
                truncated = true;
                break;
            }
        }
        if (!truncated) {
            txtMessage.SelStart = static_cast<int>(txtMessage.Text.size());
            txtMessage.SelLength = 0;
        }
    }
    if (truncated)
        ShowMessageBox(LoadResString(sid::FileTruncatedTo) + " " + std::to_string(limit),
                       MbInformation);
    changed();
}

}  // namespace parlane
