#include "ui/main_menu.h"

#include <array>
#include <cstring>

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

using F = frmMain;
// Rules: a true fourth field draws a separator before the entry.
const std::array kTree = {
    MenuEntry{"mnuFile", sid::MenuFile, "", false, &F::mnuFile, nullptr},
    MenuEntry{"mnuQueue", sid::MenuQueue, "mnuFile", false, &F::mnuQueue, &F::mnuQueue_Click},
    MenuEntry{"mnuSend", sid::MenuSend, "mnuFile", true, &F::mnuSend, &F::mnuSend_Click},
    MenuEntry{"mnuSendSingle", sid::MenuSendSingle, "mnuFile", true, &F::mnuSendSingle,
              &F::mnuSendSingle_Click},
    MenuEntry{"mnuInsert", sid::MenuInsert, "mnuFile", true, &F::mnuInsert, &F::mnuInsert_Click},
    MenuEntry{"mnuTelephoneDir", sid::MenuTelephoneDir, "mnuFile", true, &F::mnuTelephoneDir,
              nullptr},
    MenuEntry{"mnuNew", sid::MenuNew, "mnuTelephoneDir", false, &F::mnuNew, &F::mnuNew_Click},
    MenuEntry{"mnuEditPhone", sid::MenuEditPhone, "mnuTelephoneDir", false, &F::mnuEditPhone,
              &F::mnuEditPhone_Click},
    MenuEntry{"mnuDelete", sid::MenuDelete, "mnuTelephoneDir", true, &F::mnuDelete,
              &F::mnuDelete_Click},
    MenuEntry{"mnuExport", sid::MenuExport, "mnuTelephoneDir", true, &F::mnuExport,
              &F::mnuExport_Click},
    MenuEntry{"mnuData", sid::MenuData, "mnuFile", true, &F::mnuData, nullptr},
    MenuEntry{"mnuBackup", sid::MenuBackup, "mnuData", false, &F::mnuBackup, &F::mnuBackup_Click},
    MenuEntry{"mnuRestore", sid::MenuRestore, "mnuData", false, &F::mnuRestore,
              &F::mnuRestore_Click},
    MenuEntry{"mnuExit", sid::MenuExit, "mnuFile", true, &F::mnuExit, &F::mnuExit_Click},

    MenuEntry{"mnuView", sid::MenuView, "", false, &F::mnuView, nullptr},
    MenuEntry{"mnuTools", sid::TitleFrmToolWindow, "mnuView", false, &F::mnuTools,
              &F::mnuTools_Click},
    MenuEntry{"mnuLog", sid::MenuLog, "mnuView", true, &F::mnuLog, &F::mnuLog_Click},
    MenuEntry{"mnuViewQueue", sid::MenuViewQueue, "mnuView", true, &F::mnuViewQueue,
              &F::mnuViewQueue_Click},
    MenuEntry{"mnuGroup", sid::MenuGroup, "mnuView", true, &F::mnuGroup, &F::mnuGroup_Click},
    MenuEntry{"mnuDebug2", sid::TitleFrmDebug, "mnuView", true, &F::mnuDebug2, &F::mnuDebug2_Click},

    MenuEntry{"mnuSettings", sid::MenuSettings, "", false, &F::mnuSettings, nullptr},
    MenuEntry{"mnuSMSC", sid::MenuSmsc, "mnuSettings", false, &F::mnuSMSC, nullptr},
    MenuEntry{"mnuNewSMSC", sid::MenuNew, "mnuSMSC", false, &F::mnuNewSMSC, &F::mnuNewSMSC_Click},
    MenuEntry{"mnuEditSMSC", sid::MenuEditPhone, "mnuSMSC", false, &F::mnuEditSMSC,
              &F::mnuEditSMSC_Click},
    MenuEntry{"mnuDeleteSMSC", sid::MenuDelete, "mnuSMSC", false, &F::mnuDeleteSMSC,
              &F::mnuDeleteSMSC_Click},
    MenuEntry{"mnuModems", sid::MenuModems, "mnuSettings", true, &F::mnuModems, nullptr},
    MenuEntry{"mnuModemProperties", sid::MenuModemProperties, "mnuModems", false,
              &F::mnuModemProperties, &F::mnuModemProperties_Click},
    MenuEntry{"mnuDialLocation", sid::MenuDialLocation, "mnuModems", false, &F::mnuDialLocation,
              &F::mnuDialLocation_Click},
    MenuEntry{"mnuAddModem", sid::MenuAddModem, "mnuModems", false, &F::mnuAddModem,
              &F::mnuAddModem_Click},
    MenuEntry{"mnuOriginatorID", sid::MenuOriginatorId, "mnuSettings", false, &F::mnuOriginatorID,
              &F::mnuOriginatorID_Click},
    MenuEntry{"mnuLanguage", sid::MenuLanguage, "mnuSettings", true, &F::mnuLanguage, nullptr},
    MenuEntry{"mnuEnglish", sid::MenuEnglish, "mnuLanguage", false, &F::mnuEnglish,
              &F::mnuEnglish_Click, true},
    MenuEntry{"mnuItalian", sid::MenuItalian, "mnuLanguage", false, &F::mnuItalian,
              &F::mnuItalian_Click, true},
    MenuEntry{"mnuGerman", sid::MenuGerman, "mnuLanguage", false, &F::mnuGerman,
              &F::mnuGerman_Click, true},
    MenuEntry{"mnuFrench", sid::MenuFrench, "mnuLanguage", false, &F::mnuFrench,
              &F::mnuFrench_Click, true},
    MenuEntry{"mnuRetries", sid::MenuRetries, "mnuSettings", true, &F::mnuRetries,
              &F::mnuRetries_Click},
    MenuEntry{"mnuTimeOut", sid::MenuTimeOut, "mnuSettings", false, &F::mnuTimeOut,
              &F::mnuTimeOut_Click},
    MenuEntry{"mnuDefault", sid::MenuDefault, "mnuSettings", false, &F::mnuDefault,
              &F::mnuDefault_Click},

    MenuEntry{"mnuHangUp", sid::MenuHangUp, "", false, &F::mnuHangUp, &F::mnuHangUp_Click},

    MenuEntry{"mnuHelp", sid::MenuHelp, "", false, &F::mnuHelp, nullptr},
    MenuEntry{"mnuContents", sid::MenuContents, "mnuHelp", false, &F::mnuContents,
              &F::mnuContents_Click},
    MenuEntry{"mnuSupportInternet", sid::MenuSupportInternet, "mnuHelp", true,
              &F::mnuSupportInternet, &F::mnuSupportInternet_Click},
    MenuEntry{"mnuSupportEmail", sid::MenuSupportEmail, "mnuHelp", false, &F::mnuSupportEmail,
              &F::mnuSupportEmail_Click},
    MenuEntry{"mnuOrvane", sid::MenuOrvane, "mnuHelp", false, &F::mnuOrvane, nullptr, true},
    MenuEntry{"mnuInternet", sid::MenuInternet, "mnuOrvane", false, &F::mnuInternet,
              &F::mnuInternet_Click, true},
    MenuEntry{"mnuEmail", sid::MenuEmail, "mnuOrvane", false, &F::mnuEmail, &F::mnuEmail_Click,
              true},
    MenuEntry{"mnuReadme", sid::MenuReadme, "mnuHelp", true, &F::mnuReadme, &F::mnuReadme_Click},
    MenuEntry{"mnuAbout", sid::MenuAbout, "mnuHelp", true, &F::mnuAbout, &F::mnuAbout_Click},

    MenuEntry{"mnuPopUp", 0, "", false, &F::mnuPopUp, nullptr, false, true},
    MenuEntry{"mnuEdit", sid::MenuEdit, "mnuPopUp", false, &F::mnuEdit, &F::mnuEdit_Click},
    MenuEntry{"mnuRemove", sid::MenuRemove, "mnuPopUp", true, &F::mnuRemove, &F::mnuRemove_Click},
    MenuEntry{"mnuClear", sid::MenuClear, "mnuPopUp", false, &F::mnuClear, &F::mnuClear_Click},
    MenuEntry{"mnuPopUp2", 0, "", false, &F::mnuPopUp2, nullptr, false, true},
    MenuEntry{"mnuRemoveName", sid::MenuRemoveName, "mnuPopUp2", false, &F::mnuRemoveName,
              &F::mnuRemoveName_Click},
};

}  // namespace

std::span<const MenuEntry> MainMenuTree() {
    return kTree;
}

const MenuEntry* FindMenuEntry(const char* name) {
    for (const auto& e : kTree)
        if (std::strcmp(e.name, name) == 0) return &e;
    return nullptr;
}

}  // namespace parlane
