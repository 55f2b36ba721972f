#include "ui/frm_main.h"

#include "core/string_ids.h"

namespace parlane {

frmMain::frmMain(Platform platform, ProgramGlobals& globals)
    : tapi(platform.telephony, debugLog),
      timSendMessages(platform.loop, "timSendMessages", 4000, false,
                      [this] { timSendMessages_Timer(), changed(); }),
      timCheckSingleMessageSent(platform.loop, "timCheckSingleMessageSent", 4000, true,
                                [this] { timCheckSingleMessageSent_Timer(), changed(); }),
      timSafetyTimer(platform.loop, "timSafetyTimer", 60000, false,
                     [this] { timSafetyTimer_Timer(), changed(); }),
      timCommEvent(platform.loop, "timCommEvent", 1, false,
                   [this] { timCommEvent_Timer(), changed(); }),
      timResponse(platform.loop, "timResponse", 1000, false,
                  [this] { timResponse_Timer(), changed(); }),
      timSendCR(platform.loop, "timSendCR", 2000, false, [this] { timSendCR_Timer(), changed(); }),
      timUnloadfrmResponse(platform.loop, "timUnloadfrmResponse", 500, false,
                           [this] { timUnloadfrmResponse_Timer(), changed(); }),
      timAnimate(platform.loop, "timAnimate", 1000, true,
                 [this] { timAnimate_Timer(), changed(); }),
      tmrCommandLine(platform.loop, "tmrCommandLine", 5000, false,
                     [this] { tmrCommandLine_Timer(), changed(); }),
      tmrCommandCompleted(platform.loop, "tmrCommandCompleted", 500, false,
                          [this] { tmrCommandCompleted_Timer(), changed(); }),
      timUnloadMe(platform.loop, "timUnloadMe", 1000, false,
                  [this] { timUnloadMe_Timer(), changed(); }),
      platform_(platform),
      globals_(globals),
      settings_(platform.settingsStore, globals.strings.ProductName()) {
    picToolIconsEnabled.fill(true);
    picToolIconsEnabled[2] = false;  // Stop, until a call is up
    // Disabled until other commands enable them.
    for (MenuItem* m : {&mnuHangUp, &mnuEdit, &mnuRemove, &mnuRemoveName}) m->Enabled = false;
    mnuTools.Checked = true;
    mnuFrench.Visible = false;
    tapi.appName = globals_.strings.ProductName();
    tapi.strings = &globals_.strings;
    tapi.setLblEvent = [this](const std::string& text) {
        setLblEvent(text);
        changed();
    };
}

frmMain::~frmMain() {
    tapi.setLblEvent = nullptr;
}

void frmMain::ShowStatus(const std::string& text) {
    setStatusRaw(text + "  ");
}

void frmMain::setStatusRaw(const std::string& text) {
    lblInfo.Caption = text;
    if (observer_) observer_->statusChanged(text);
}

int frmMain::ShowMessageBox(const std::string& prompt, int flags) {
    const int answer =
        platform_.dialogues.messageBox(prompt, flags, globals_.strings.ProductName());
    changed();
    return answer;
}

std::string frmMain::DefaultCentre() const {
    return settings_.Get(key::DefaultCentre,
                         DefaultCentreName(globals_.EditionItaly, globals_.EditionAustralia));
}

void frmMain::changed() {
    // A centre or a text set by code counts as a change, as one picked or typed would: the
    // limit, the counter and Insert Text File follow whatever set them.
    if (Services.ListIndex != changedCentre_) {
        changedCentre_ = Services.ListIndex;
        Services_Click();
    }
    if (txtMessage.Text != changedText_) {
        changedText_ = txtMessage.Text;
        txtMessage_Change();
    }
    if (queueDirty_) {
        queueDirty_ = false;
        JournalQueue();
    }
    if (observer_) observer_->controlsChanged();
}

void frmMain::SaveAfterFault() {
    JournalQueue();
    SaveProviders();
    WriteDirectoryFile();
    WriteGroupList();
}

void frmMain::WaitSecs(double seconds) {
    platform_.loop.waitSecs(seconds);
}

// The online picture runs while a call is up.
void frmMain::timAnimate_Timer() {
    lblOnline.Visible = state.CallActive;
    if (state.CallActive) onlineFrame = (onlineFrame + 1) % 4;
}

}  // namespace parlane
