// The main window's centre commands: new, edit and delete, each followed by a rewrite of
// smsc.dat whether the user saved or not.

#include <algorithm>
#include <cerrno>

#include "config/demo_centres.h"
#include "config/frm_first_centre.h"
#include "config/frm_smsc_edit.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

bool frmMain::SaveProviders() {
    std::string tooLong;
    const std::string bytes = SerializeProviderFile(Providers, tooLong);
    const int error = tooLong.empty() ? ReplaceFile(homePath("smsc.dat"), bytes) : EOVERFLOW;
    // The table in memory stays as edited; the next save writes it all again.
    if (error) ShowStatus(FailureStatus(error, LoadResString(sid::SavingCentres)));
    return error == 0;
}

bool frmMain::CentresHeldByRun() {
    // Messages of a run find their centre by its place in the table, which an edit can move.
    if (UpperBound(SendBuffer) < 1) return false;
    ShowMessageBox(LoadResString(sid::CentresBusyDuringRun), MbInformation);
    return true;
}

void frmMain::ShowCentreEditor(frmSMSCEdit& form) {
    SMSCEditForm = &form;
    ShowForm("frmSMSCEdit");
    SMSCEditForm = nullptr;
    SaveProviders();
    Services_Click();
    changed();
}

void frmMain::mnuNewSMSC_Click() {
    if (CentresHeldByRun()) return;
    frmSMSCEdit form(*this);
    form.Form_Load();
    form.ProviderAdd(Services.ListCount());
    ShowCentreEditor(form);
}

void frmMain::mnuEditSMSC_Click() {
    if (Services.ListIndex < 0 || CentresHeldByRun()) return;
    const auto firstEdit = settings_.GetInt(key::FirstEdit);
    if (!firstEdit || *firstEdit == 0) {
        ShowMessageBox(LoadResString(sid::FirstEditHeading) + "\r\n\r\n" +
                           LoadResString(sid::FirstEditDoNotAlter) + "\r\n\r\n" +
                           LoadResString(sid::FirstEditSettingsTested) + "\r\n\r\n" +
                           LoadResString(sid::FirstEditCheckWithNetwork),
                       MbInformation);
        settings_.Save(key::FirstEdit, "1");
    }
    frmSMSCEdit form(*this);
    form.Form_Load();
    if (DefaultCentre() == Services.Text) form.chkDefaultSMSC.Value = true;
    form.ProviderEdit(Services.ListIndex);
    ShowCentreEditor(form);
}

void frmMain::mnuDeleteSMSC_Click() {
    const int row = Services.ListIndex;
    if (row < 0 || CentresHeldByRun()) return;
    if (Services.ListCount() == 1) {
        ShowMessageBox(LoadResString(sid::MustLeaveOneProvider), MbExclamation);
        return;
    }
    if (ShowMessageBox(LoadResString(sid::AreYouCertainDelete) + " " + Services.Text,
                       MbQuestionYesNo) == AnswerYes) {
        if (row < static_cast<int>(Providers.size())) Providers.erase(Providers.begin() + row);
        Services.RemoveItem(row);
        Services.select(0);
        Services_Click();
    }
    SaveProviders();
    changed();
}

void frmMain::OfferFirstCentre() {
    if (std::any_of(Providers.begin(), Providers.end(), IsUsableCentre)) return;
    frmFirstCentre form(*this);
    form.Form_Load();
    FirstCentreForm = &form;
    ShowForm("frmFirstCentre");
    FirstCentreForm = nullptr;
    if (form.choice == frmFirstCentre::Choice::NewCentre) mnuNewSMSC_Click();
    if (form.choice == frmFirstCentre::Choice::DemoCentres) AddDemoCentres();
}

void frmMain::AddDemoCentres() {
    if (CentresHeldByRun()) return;
    std::erase_if(Providers, [](const Provider& p) { return !IsUsableCentre(p); });
    for (const auto& demo : DemoCentres()) {
        const bool present =
            std::any_of(Providers.begin(), Providers.end(),
                        [&](const Provider& p) { return p.ProviderName == demo.ProviderName; });
        if (!present) Providers.push_back(demo);
    }
    SortProviders(Providers);
    Services.Clear();
    for (const auto& p : Providers) Services.AddItem(p.ProviderName);
    const std::string first = DemoCentres().front().ProviderName;
    Services.select(Services.FindRow(first));
    if (Services.FindRow(DefaultCentre()) < 0) settings_.Save(key::DefaultCentre, first);
    Services_Click();
    SaveProviders();
    changed();
}

}  // namespace parlane
