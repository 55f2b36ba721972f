// Loading and closing the main window.
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "config/frm_modem.h"
#include "core/file_io.h"
#include "core/home.h"
#include "core/string_ids.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_main.h"

namespace parlane {

void frmMain::reportDamage(const std::filesystem::path& file) {
    const auto aside = KeepDamagedCopy(file);
    reportFileProblem(file.filename().string() + ": " + LoadResString(sid::DamagedFileKept) + " " +
                      (aside ? aside->filename().string() : std::string("?")));
}

// Later steps of the start write the status line too: what happened to the files is said again
// once the window is loaded.
void frmMain::reportFileProblem(const std::string& text) {
    ShowStatus(text);
    if (!loaded_) loadProblems_.push_back(text);
}

std::optional<std::string> frmMain::ReadTable(const std::filesystem::path& path) {
    auto read = ReadTableFile(path);
    if (read.kind == TableFileRead::Read) return std::move(read.bytes);
    if (read.kind == TableFileRead::Missing) return std::nullopt;
    // Whatever it is, it is kept, but out of the way: the next rewrite must not go through it.
    const std::string reason =
        read.kind == TableFileRead::NotRegular ? LoadResString(sid::NotAnOrdinaryFile)
        : read.kind == TableFileRead::TooLarge ? LoadResString(sid::LargerThanTableLimit)
                                               : std::string(std::strerror(read.error));
    const auto aside = SetFileAside(path);
    reportFileProblem(path.filename().string() + ": " + reason + ", " +
                      (aside ? LoadResString(sid::SetAsideAs) + " " + aside->filename().string()
                             : std::string(std::strerror(errno))));
    return std::nullopt;
}

void frmMain::LoadProviders() {
    const auto path = homePath("smsc.dat");
    const auto bytes = ReadTable(path);
    if (!bytes) WriteFileAtomically(path, {});
    auto table = ParseProviderFile(bytes.value_or(std::string()));
    Providers = std::move(table.records);
    if (table.damaged) reportDamage(path);
}

void frmMain::Form_Load() {
    // Step 2: the language menu.
    const int offset = globals_.strings.LanguageOffset;
    mnuEnglish.Checked = offset != 2000 && offset != 3000 && offset != 4000;
    mnuItalian.Checked = offset == 2000;
    mnuGerman.Checked = offset == 3000;
    mnuFrench.Checked = offset == 4000;

    // Step 3: the reference code of support mail.
    const char* edition = globals_.EditionAustralia ? "061"
                          : globals_.EditionItaly   ? "039"
                          : globals_.International  ? "000"
                                                    : "044";
    ReferenceCode = "Ref:HC1-" + std::to_string(PARLANE_VERSION_MAJOR) + "." +
                    std::to_string(PARLANE_VERSION_MINOR) + "." +
                    std::to_string(PARLANE_VERSION_PATCH) + "-" + edition;
    mnuOrvane.Visible = !globals_.International;

    // The boxes' texts before anything is chosen.
    Names.Text = "Names";
    cmbGroupName.Text = LoadResString(sid::GroupNamesText);

    // Step 4.
    state.UcpDialogue = false;
    tapi.InitTelephony();
    if (MakeHomePrivate(platform_.home))
        debugLog.AppendLog(LoadResString(sid::HomeMadePrivate) + " " + platform_.home.string());

    // Steps 5 and 6.
    LoadProviders();
    MendCentreLines();
    SendBuffer = EmptyMessageTable();
    QueueBuffer = EmptyMessageTable();

    // Step 7.
    ShowLocationCountryCode();

    // Step 8.
    Services.Clear();
    for (const auto& p : Providers) Services.AddItem(p.ProviderName);

    // Step 9.
    if (auto v = settings_.GetInt(key::MaxDial)) state.MaxDialAttempts = *v;
    if (!Providers.empty()) {
        const int row = Services.ListIndex >= 0 ? Services.ListIndex : 0;
        lblTotal.Caption = "/" + Providers[static_cast<std::size_t>(row)].MaxChars;
    }
    state.OriginatorId = settings_.Get(key::Originator);

    // Step 10. The selection sets the limit as a click on the list would.
    SelectDefaultCentre();
    Services_Click();
    txtMessage_Change();
    FillCountryBox(Country);

    // Step 11.
    if (auto v = settings_.GetInt(key::MainLeft)) MainLeft = *v;
    if (auto v = settings_.GetInt(key::MainTop)) MainTop = *v;

    // Step 12.
    std::error_code ec;
    std::filesystem::create_directories(homePath("SMS") / "Outbox", ec);
    std::filesystem::create_directories(homePath("Data"), ec);
    RemoveUnfinishedFiles(homePath("SMS") / "Outbox");

    // Steps 13 and 14: the optional panels.
    const auto queueView = settings_.GetInt(key::QueueView);
    mnuViewQueue.Checked = queueView && *queueView == 1;
    const auto groupView = settings_.GetInt(key::GroupView);
    mnuGroup.Checked = groupView && *groupView == 1;
    ApplyPanelLayout();

    // Step 15.
    if (auto v = settings_.GetInt(key::Timeout)) ResponseTimeoutSecs = *v;

    // Steps 16 and 17.
    LoadDirectory();
    LoadGroups();

    // Step 18, with whatever a crash left behind.
    LoadQueueAtStart();

    // Step 20.
    LoadFormCaptions();
    DebugForm.LoadFormCaptions();

    // Step 21.
    FirstRunModemCheck();

    // Step 22.
    const auto tools = settings_.GetInt(key::Tools);
    mnuTools.Checked = tools && *tools == 1;
    if (mnuTools.Checked) ShowForm("frmToolWindow");

    loaded_ = true;
    if (!loadProblems_.empty()) {
        std::string all;
        for (const auto& problem : loadProblems_) all += (all.empty() ? "" : "; ") + problem;
        ShowStatus(all);
        loadProblems_.clear();
    }
    changed();
}

void frmMain::SelectDefaultCentre() {
    if (Services.ListCount() == 0) return;
    const std::string name = DefaultCentre();
    int row = 0;
    for (int i = 0; i < Services.ListCount(); ++i)
        if (Services.rows[static_cast<std::size_t>(i)] == name) {
            row = i;
            break;
        }
    Services.select(row);
}

void frmMain::ShowModemChoice() {
    // Nobody to ask (no display, a script, the bus): the choice is a person's, so nothing is
    // chosen and every centre keeps the line it names.
    if (!showModemDialog) {
        debugLog.AppendLog(LoadResString(sid::LogModemNotConfirmed));
        return;
    }
    frmModem dialog(*this);
    dialog.Form_Load();
    if (dialog.unloaded) return;
    showModemDialog(dialog);
}

// Until a modem has been chosen, and whenever the chosen one is no longer where it was, the
// choice comes up.
void frmMain::FirstRunModemCheck() {
    const auto firstRun = settings_.GetInt(key::FirstRunModem);
    const bool chosen = firstRun && *firstRun == 4;
    if (!chosen) ShowModemChoice();
    const auto index = settings_.GetInt(key::ModemIndex);
    const std::string name = settings_.Get(key::ModemName);
    if (!chosen) return;
    tapi.FillDeviceList(cboTapiDevice);
    if (cboTapiDevice.ListCount() == 0) return;
    if (index && *index >= 0 && *index < cboTapiDevice.ListCount()) cboTapiDevice.select(*index);
    if (cboTapiDevice.Text != name) ShowModemChoice();
}

void frmMain::Form_QueryUnload() {
    SaveQueueAtExit();
}

void frmMain::Form_Unload() {
    if (!minimised) {
        settings_.Save(key::MainLeft, std::to_string(MainLeft));
        settings_.Save(key::MainTop, std::to_string(MainTop));
    }
    EndCallForExit();
    platform_.serial.CloseCommunicationsPort();
    tapi.ShutdownTelephony();
    // A run the end of the program cut short (a script's) is told as well.
    EndRunTally();
    loaded_ = false;
}

}  // namespace parlane
