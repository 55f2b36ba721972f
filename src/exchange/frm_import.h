#pragma once
// frmImport, the Import and Export Wizard: the telephone directory out to phones.csv in the home,
// and names from a chosen CSV file into the directory, phones.dat being kept as phones.bak first.

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/dialogue_host.h"
#include "core/strings.h"
#include "exchange/exchange_controls.h"
#include "exchange/open_file_chooser.h"
#include "store/directory.h"
#include "ui/controls.h"

namespace parlane {

// What the main window does for the wizard. Each may be left empty.
struct ImportWindowHooks {
    // The import has taken its lines: the Names box is emptied before it is filled again.
    std::function<void()> ClearNames;
    // phones.dat was written (or could not be, after Names was cleared): every name of the
    // directory, in table order, for the Names box.
    std::function<void(const std::vector<DirectoryEntry>&)> AddNames;
    // The import is done: row 0 of Names is selected.
    std::function<void()> SelectFirstName;
    // A line for the main window's status bar (a damaged phones.dat kept aside, a failed write).
    std::function<void(const std::string&)> ShowStatus;
    // The progress bar moved: let the view paint and pending events run.
    std::function<void()> DoEvents;
};

class frmImport {
  public:
    // `directory` is the main window's table; the wizard reloads it from phones.dat on opening
    // and adds the imported names to it.
    frmImport(std::vector<DirectoryEntry>& directory, std::filesystem::path home,
              const Strings& strings, DialogueHost& dialogues, OpenFileChooser& chooser,
              ImportWindowHooks hooks = {});

    void Form_Load();
    void optExport_Click();
    void optImport_Click();
    void cmdExport_Click();  // Next
    void cmdOpen_Click();
    void cmdOK_Click();  // Import
    void cmdCancel_Click();

    // Splits line `index` of `lines` into the four text fields; false when it cannot be split.
    bool ParseImportLine(int index);

    // ----- Controls -----
    std::string Caption;
    ExchangeOption optExport, optImport;
    std::array<Label, 3> lblInfo;
    ExchangeButton cmdExport, cmdOpen, cmdOK, cmdCancel;
    Label lblProgBar;
    ProgressBar progBar;
    // The parts of the line being imported; never shown for input.
    TextBox txtName, txtCountryCode, txtAreaCode, txtNumber;
    // The lines of the chosen file.
    std::vector<std::string> lines;
    bool busy = true;  // the hourglass the menu command showed, until the window is loaded
    bool closed = false;

    std::filesystem::path csvPath() const { return home_ / "phones.csv"; }

  private:
    void ShowExportPage();
    void ShowImportPage();
    void ShowOpenPage();
    void ShowReadyPage();
    void LoadDirectory();
    void ExportDirectory();
    bool KeepDirectoryBackup();
    bool WriteDirectory();
    void ImportFailed();
    void SetProgBarPos(int value);
    void RemoveProgBar();
    int Box(const std::string& prompt, int flags);
    std::string Load(int id) const { return strings_.LoadResString(id); }
    void Status(const std::string& text);

    std::vector<DirectoryEntry>& Directory;
    std::filesystem::path home_;
    const Strings& strings_;
    DialogueHost& dialogues_;
    OpenFileChooser& chooser_;
    ImportWindowHooks hooks_;
};

}  // namespace parlane
