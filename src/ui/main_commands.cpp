// The main window's own commands: panels, captions and language, help, web and mail, the
// disclaimer, the modem menu, and the toolbar's dispatcher.
#include <string>
#include <utility>

#include "config/frm_modem_info.h"
#include "core/settings_keys.h"
#include "core/string_ids.h"
#include "exchange/frm_import.h"
#include "ui/frm_main.h"
#include "ui/main_menu.h"
#include "ui/toolbar.h"

namespace parlane {
namespace {

struct ControlText {
    const char* control;
    int id;
};

constexpr ControlText kCaptions[] = {
    {"fraLogo", sid::FrameMessageToSend},
    {"fraMobile", sid::FrameMobileToSendTo},
    {"fraDirectory", sid::FrameTelephoneDirectory},
    {"fraGroup", sid::FrameBroadcastGroups},
    {"fraQueue", sid::FrameMessageQueue},
    {"lblmLable", sid::LabelCharactersUsed},
    {"lblOnline", sid::LabelOnline},
};

constexpr ControlText kToolTips[] = {
    {"Names", sid::TipNames},
    {"Country", sid::TipInternationalDiallingCodes},
    {"txtCountryCode", sid::TipCountryCode},
    {"txtAreaCode", sid::TipAreaCode},
    {"txtNumber", sid::TipTelephoneNumber},
    {"Services", sid::TipServiceProvider},
    {"txtMessage", sid::TipSmsMessageText},
};

}  // namespace

void frmMain::LoadFormCaptions() {
    Caption = LoadResString(sid::ProductName);
    for (const auto& c : kCaptions) Captions[c.control] = LoadResString(c.id);
    for (const auto& t : kToolTips) ToolTips[t.control] = LoadResString(t.id);
    for (std::size_t i = 0; i < kMainToolbarIcons.size(); ++i)
        ToolTips["picToolIcons_" + std::to_string(i)] = LoadResString(kMainToolbarIcons[i].tipId);
    // The first load captions every menu, the language names included.
    for (const auto& e : MainMenuTree())
        if (e.id != 0) (this->*e.item).Caption = LoadResString(e.id);
}

void frmMain::MenuRefresh() {
    for (const auto& e : MainMenuTree())
        if (e.id != 0 && !e.keepsLoadCaption) (this->*e.item).Caption = LoadResString(e.id);
}

void frmMain::ChooseLanguage(MenuItem& item, int offset) {
    if (item.Checked) return;
    for (MenuItem* m : {&mnuEnglish, &mnuItalian, &mnuGerman, &mnuFrench}) m->Checked = false;
    item.Checked = true;
    const std::string before = globals_.strings.ProductName();
    globals_.strings.LanguageOffset = static_cast<std::int16_t>(offset);
    // The settings file is named by the bank in use; the choice is written to the new one,
    // which is the one the next start reads.
    const std::string after = globals_.strings.ProductName();
    CarrySettingsOver(platform_.settingsStore, before, after);
    settings_.setApplication(after);
    settings_.Save(key::LanguageDefault, std::to_string(offset));
    LoadFormCaptions();
    DebugForm.LoadFormCaptions();
    // The standard-texts window loads its texts again in the new language.
    if (mnuTools.Checked) ShowForm("frmToolWindow");
    MenuRefresh();
    changed();
}

void frmMain::ApplyPanelLayout() {
    layout = MainWindowLayout(mnuViewQueue.Checked, mnuGroup.Checked);
}

void frmMain::mnuViewQueue_Click() {
    mnuViewQueue.Checked = !mnuViewQueue.Checked;
    settings_.Save(key::QueueView, mnuViewQueue.Checked ? "1" : "0");
    ApplyPanelLayout();
    changed();
}

void frmMain::mnuGroup_Click() {
    mnuGroup.Checked = !mnuGroup.Checked;
    settings_.Save(key::GroupView, mnuGroup.Checked ? "1" : "0");
    ApplyPanelLayout();
    changed();
}

void frmMain::mnuTools_Click() {
    mnuTools.Checked = !mnuTools.Checked;
    settings_.Save(key::Tools, mnuTools.Checked ? "1" : "0");
    if (mnuTools.Checked)
        ShowForm("frmToolWindow");
    else if (unloadForm)
        unloadForm("frmToolWindow");
    changed();
}

void frmMain::mnuExit_Click() {
    Form_QueryUnload();
    Form_Unload();
}

void frmMain::mnuContents_Click() {
    const std::string title = LoadResString(sid::ProductName);
    if (HelpFile.empty()) {
        platform_.dialogues.messageBox(LoadResString(sid::HelpUnavailable), MbInformation, title);
        return;
    }
    std::string error;
    if (!openDocument || !openDocument(HelpFile, error))
        platform_.dialogues.messageBox(error, MbExclamation, title);
}

namespace {
// A failure to reach the browser or mail program is the desktop's to report; nothing to undo.
void Open(frmMain& form, const std::string& target) {
    std::string error;
    if (form.openDocument && !form.openDocument(target, error) && !error.empty())
        form.ShowStatus(error);
}
}  // namespace

void frmMain::mnuSupportInternet_Click() {
    Open(*this, settings_.Get(key::WebSupport));
}

void frmMain::mnuSupportEmail_Click() {
    Open(*this, "mailto:" + settings_.Get(key::EmailSupport) + "?subject=" + ReferenceCode);
}

void frmMain::mnuInternet_Click() {
    Open(*this, "https://parlane.invalid/");
}

void frmMain::mnuEmail_Click() {
    Open(*this, "mailto:support@parlane.invalid?subject=" + ReferenceCode);
}

void frmMain::mnuReadme_Click() {
    const std::string gap = "\r\n\r\n";
    platform_.dialogues.messageBox(LoadResString(sid::DisclaimerNoWarranty) + gap +
                                       LoadResString(sid::DisclaimerNoLiability) + gap +
                                       LoadResString(sid::DisclaimerCallingDevices) + gap +
                                       LoadResString(sid::DisclaimerCallCosts) + gap +
                                       LoadResString(sid::DisclaimerHigherRates),
                                   MbInformation, LoadResString(sid::TitleDisclaimer));
}

void frmMain::mnuAbout_Click() {
    ShowForm("frmSplash");
}

void frmMain::mnuModemProperties_Click() {
    if (frmModemInfo::Wanted(settings_)) ShowForm("frmModemInfo");
    // The provider's own settings are the modem panel here; there is no system one to fall
    // back on when they are cancelled.
    tapi.ConfigureProvider(0);
}

void frmMain::mnuAddModem_Click() {
    // A new modem is a new serial port in the provider's list.
    tapi.ConfigureProvider(0);
}

void frmMain::mnuDialLocation_Click() {
    tapi.EditDialingLocation(0);
}

void frmMain::mnuExport_Click() {
    BusyCursor busy(*this);
    ShowForm("frmImport");
}

ImportWindowHooks frmMain::ImportHooks() {
    return {[this] { Names.Clear(); },
            [this](const std::vector<DirectoryEntry>& directory) { ListDirectoryNames(directory); },
            [this] {
                if (Names.ListCount() > 0) Names.select(0);
            },
            [this](const std::string& text) { ShowStatus(text); },
            {}};
}

void frmMain::mnuBackup_Click() {
    BusyCursor busy(*this);
    ShowForm("frmBackup");
}

void frmMain::mnuRestore_Click() {
    BusyCursor busy(*this);
    ShowForm("frmRestore");
}

void frmMain::picToolIcons_Click(int index) {
    if (index < 0 || index >= static_cast<int>(picToolIconsEnabled.size()) ||
        !picToolIconsEnabled[static_cast<std::size_t>(index)])
        return;
    switch (index) {
        case 0:
            mnuSend_Click();
            break;
        case 1:
            mnuQueue_Click();
            focusedControl = "txtMessage";
            break;
        case 2:
            mnuHangUp_Click();
            break;
        case 3: {
            BusyCursor busy(*this);
            mnuLog_Click();
            break;
        }
        case 4:
            mnuContents_Click();
            break;
        case 5:
            if (enterWhatsThis) enterWhatsThis();
            break;
        case 6:
            mnuExit_Click();
            break;
        case 7:
            mnuNew_Click();
            break;
        case 8:
            mnuEditPhone_Click();
            break;
        case 9:
            mnuDelete_Click();
            break;
        case 10:
            AddToGroupList();
            break;
        case 11:
            UseThisGroupList();
            break;
        case 12:
            AddNewGroup();
            break;
        case 13:
            DeleteCurrentGroup();
            break;
        default:
            break;
    }
    changed();
}

}  // namespace parlane
