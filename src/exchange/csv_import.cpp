// The wizard's import: new names from the chosen lines into the directory, then phones.dat
// rewritten with the old file kept as phones.bak.
#include <cerrno>
#include <cmath>

#include "core/string_ids.h"
#include "core/strings.h"
#include "exchange/csv_line.h"
#include "exchange/directory_name_index.h"
#include "exchange/exchange_files.h"
#include "exchange/frm_import.h"
#include "store/record_file.h"

namespace parlane {

bool frmImport::ParseImportLine(int index) {
    if (index < 0 || index >= static_cast<int>(lines.size())) return false;
    ImportFields fields;
    if (!parlane::ParseImportLine(lines[static_cast<std::size_t>(index)], fields)) return false;
    txtName.Text = std::move(fields.Name);
    txtCountryCode.Text = std::move(fields.CountryCode);
    txtAreaCode.Text = std::move(fields.AreaCode);
    txtNumber.Text = std::move(fields.Number);
    return true;
}

void frmImport::cmdOK_Click() {
    busy = true;
    cmdCancel.Enabled = false;
    cmdOK.Enabled = false;
    progBar.Visible = true;
    lblProgBar.Caption = Load(sid::ImportingEllipsis);

    // Names already there, and names met earlier in the file, are skipped without regard to
    // case; the index gives FindName's answer without a pass over the table per line.
    DirectoryNameIndex names(Directory);
    const double count = static_cast<double>(lines.size());
    for (std::size_t i = 1; i < lines.size(); ++i) {
        SetProgBarPos(static_cast<int>(std::nearbyint(100.0 / count * static_cast<double>(i))));
        if (!ParseImportLine(static_cast<int>(i))) {
            // The names taken so far stay in the table in memory; the files are untouched.
            ImportFailed();
            return;
        }
        if (txtName.Text.empty() || !names.insert(txtName.Text)) continue;
        DirectoryEntry entry;
        entry.Name = txtName.Text;
        for (auto [text, field] : {std::pair{&txtNumber.Text, &entry.Number},
                                   std::pair{&txtCountryCode.Text, &entry.CountryCode},
                                   std::pair{&txtAreaCode.Text, &entry.AreaCode}}) {
            if (text->empty()) continue;
            FindNonNumber(*text);
            *field = *text;
        }
        Directory.push_back(std::move(entry));
    }

    SetProgBarPos(0);
    if (hooks_.ClearNames) hooks_.ClearNames();
    if (Directory.empty()) {
        // Nothing to write; Cancel comes back so that the window can be left.
        RemoveProgBar();
        lblProgBar.Caption.clear();
        cmdCancel.Enabled = true;
        busy = false;
        return;
    }

    if (!KeepDirectoryBackup() || !WriteDirectory()) {
        // Names was emptied above: it shows the table in memory again.
        if (hooks_.AddNames) hooks_.AddNames(Directory);
        ImportFailed();
        return;
    }
    if (hooks_.AddNames) hooks_.AddNames(Directory);
    if (hooks_.SelectFirstName) hooks_.SelectFirstName();
    RemoveProgBar();
    lblProgBar.Caption.clear();
    busy = false;
    closed = true;
}

// phones.bak holds the directory as it was before this import: one generation only. It is
// written in full before phones.dat is touched, so a failure leaves phones.dat as it was.
bool frmImport::KeepDirectoryBackup() {
    const auto dat = home_ / "phones.dat";
    const auto bak = home_ / "phones.bak";
    std::error_code ec;
    if (!std::filesystem::exists(dat, ec)) {
        std::filesystem::remove(bak, ec);
        return !ec;
    }
    FileError error;
    const auto bytes = ReadFileBytes(dat, error);
    if (bytes) error = WriteFileBytes(bak, *bytes);
    if (!error) return true;
    Status(FailureStatus(error.number, Load(sid::SavingDirectory)));
    return false;
}

bool frmImport::WriteDirectory() {
    lblProgBar.Caption = Load(sid::SavingEllipsis);
    RecordWriter writer;
    const std::size_t upper = Directory.size() - 1;
    for (std::size_t i = 0; i <= upper; ++i) {
        if (upper > 0) SetProgBarPos(static_cast<int>(std::nearbyint(100.0 / upper * i)));
        if (!WriteDirectoryEntry(writer, Directory[i])) {
            Status(FailureStatus(EOVERFLOW, Load(sid::SavingDirectory)));
            return false;
        }
    }
    const auto path = home_ / "phones.dat";
    if (const auto error = WriteFileBytes(path, writer.take())) {
        Status(FailureStatus(error.number, Load(sid::SavingDirectory)));
        return false;
    }
    return true;
}

void frmImport::ImportFailed() {
    busy = false;
    lblProgBar.Caption.clear();
    Box(Load(sid::ErrorImportingNames), MbExclamation);
    RemoveProgBar();
    closed = true;
}

}  // namespace parlane
