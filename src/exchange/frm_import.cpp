// The wizard's pages, its opening and the choice of the file to import.
#include "exchange/frm_import.h"

#include "core/cp1252.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "core/strings.h"
#include "exchange/csv_line.h"
#include "exchange/exchange_files.h"

namespace parlane {

frmImport::frmImport(std::vector<DirectoryEntry>& directory, std::filesystem::path home,
                     const Strings& strings, DialogueHost& dialogues, OpenFileChooser& chooser,
                     ImportWindowHooks hooks)
    : Directory(directory),
      home_(std::move(home)),
      strings_(strings),
      dialogues_(dialogues),
      chooser_(chooser),
      hooks_(std::move(hooks)) {}

int frmImport::Box(const std::string& prompt, int flags) {
    return dialogues_.messageBox(prompt, flags, strings_.ProductName());
}

void frmImport::Status(const std::string& text) {
    if (hooks_.ShowStatus) hooks_.ShowStatus(text);
}

void frmImport::Form_Load() {
    Caption = Load(sid::TitleFrmImport);
    optExport.Caption = Load(sid::OptionExport);
    optImport.Caption = Load(sid::OptionImport);
    cmdExport.Caption = Load(sid::ButtonNext);
    cmdOpen.Caption = Load(sid::ButtonOpen);
    cmdOK.Caption = Load(sid::ButtonImport);
    cmdCancel.Caption = Load(sid::ButtonCancel);
    optExport.Value = optImport.Value = false;
    cmdExport.Enabled = cmdOpen.Enabled = cmdOK.Enabled = cmdCancel.Enabled = true;
    RemoveProgBar();
    lblProgBar.Caption.clear();
    lines.clear();
    closed = false;
    LoadDirectory();
    ShowExportPage();
    busy = false;
}

// The table in memory becomes the file's. A file that cannot be read leaves the table as it was;
// a damaged one gives its whole records and is kept aside before an import rewrites it.
void frmImport::LoadDirectory() {
    const auto path = home_ / "phones.dat";
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) {
        Directory.clear();
        return;
    }
    FileError error;
    const auto bytes = ReadFileBytes(path, error);
    if (!bytes) {
        Box(FailureStatus(error.number, Load(sid::LoadingTelephoneDirectory)), MbExclamation);
        return;
    }
    auto table = ParseDirectoryFile(*bytes);
    Directory = std::move(table.records);
    if (table.damaged) {
        const auto aside = KeepDamagedCopy(path);
        Status("phones.dat: " + Load(sid::DamagedFileKept) + " " +
               (aside ? PathText(aside->filename()) : std::string("?")));
    }
}

void frmImport::ShowExportPage() {
    lblInfo[0].Caption = Load(sid::ExportWizardInfo);
    lblInfo[1].Caption = Load(sid::FileWillBeSavedAs) + " " + PathText(csvPath()) + ". " +
                         Load(sid::ToImportInstead);
    lblInfo[2].Caption.clear();
    cmdExport.Visible = true;
    cmdOpen.Visible = false;
    cmdOK.Visible = false;
}

void frmImport::ShowImportPage() {
    lblInfo[0].Caption = Load(sid::ImportWizardInfo);
    lblInfo[1].Caption = Load(sid::ImportFormatInfo);
    lblInfo[2].Caption = Load(sid::DuplicateNamesNotImported);
    cmdExport.Visible = true;
    cmdOpen.Visible = false;
    cmdOK.Visible = false;
}

void frmImport::ShowOpenPage() {
    lblInfo[0].Caption = Load(sid::PressOpenButton);
    lblInfo[1].Caption.clear();
    lblInfo[2].Caption.clear();
    cmdExport.Visible = false;
    cmdOpen.Visible = true;
    cmdOK.Visible = false;
}

void frmImport::ShowReadyPage() {
    lblInfo[0].Caption = Load(sid::PressImportButton);
    lblInfo[1].Caption.clear();
    lblInfo[2].Caption.clear();
    cmdExport.Visible = false;
    cmdOpen.Visible = false;
    cmdOK.Visible = true;
}

void frmImport::optExport_Click() {
    optExport.Value = true;
    optImport.Value = false;
    ShowExportPage();
}

void frmImport::optImport_Click() {
    optImport.Value = true;
    optExport.Value = false;
    ShowImportPage();
}

void frmImport::cmdExport_Click() {
    if (optImport.Value) {
        ShowOpenPage();
    } else if (!optExport.Value) {
        Box(Load(sid::PleaseChooseOption), MbInformation);
    } else {
        ExportDirectory();
    }
}

void frmImport::cmdOpen_Click() {
    const auto chosen = chooser_.chooseOpenFile(Load(sid::TitleOpenCsvFile), home_, "*.csv",
                                                Load(sid::CsvFileFilter));
    if (!chosen || chosen->empty()) return;
    cmdOpen.Visible = false;
    cmdOK.Visible = true;
    if (hooks_.DoEvents) hooks_.DoEvents();
    FileError error;
    const auto bytes = ReadFileBytes(*chosen, error);
    if (!bytes) {
        // Back to Open, so that another file can be chosen.
        Box(Load(sid::ErrorWord) + " " + std::to_string(error.number) + ":  " +
                FileErrorText(error, strings_),
            MbExclamation);
        ShowOpenPage();
        return;
    }
    // A UTF-8 file is read as such; what the code page cannot hold is asked about first.
    const auto decoded = DecodeFileText(*bytes);
    if (!decoded.lost.empty() &&
        Box(LostCharactersQuestion(strings_, decoded.lost), MbQuestionYesNo) != AnswerYes) {
        ShowOpenPage();
        return;
    }
    lines = SplitFileLines(decoded.text);
    ShowReadyPage();
}

void frmImport::cmdCancel_Click() {
    if (cmdCancel.Enabled) closed = true;
}

void frmImport::SetProgBarPos(int value) {
    if (progBar.Value == value) return;
    progBar.Value = value;
    if (hooks_.DoEvents) hooks_.DoEvents();
}

void frmImport::RemoveProgBar() {
    progBar.Visible = false;
    progBar.Value = 0;
}

}  // namespace parlane
