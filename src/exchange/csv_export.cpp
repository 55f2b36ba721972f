// The wizard's export: the whole directory to phones.csv in the home.
#include <cmath>

#include "core/string_ids.h"
#include "core/strings.h"
#include "exchange/csv_line.h"
#include "exchange/exchange_files.h"
#include "exchange/frm_import.h"

namespace parlane {

void frmImport::ExportDirectory() {
    busy = true;
    cmdExport.Enabled = false;
    cmdCancel.Enabled = false;
    lblProgBar.Caption = Load(sid::SavingEllipsis);
    progBar.Visible = true;

    if (Directory.empty()) {
        RemoveProgBar();
        lblProgBar.Caption.clear();
        cmdExport.Enabled = true;
        cmdCancel.Enabled = true;
        busy = false;
        Box(Load(sid::NoEntriesToExport), MbExclamation);
        return;
    }

    std::string bytes(kCsvHeaderLine);
    const std::size_t upper = Directory.size() - 1;
    for (std::size_t i = 0; i <= upper; ++i) {
        // With one entry the bound is 0 and the bar stays where it is.
        if (upper > 0) SetProgBarPos(static_cast<int>(std::nearbyint(100.0 / upper * i)));
        bytes += ExportCsvLine(Directory[i]);
    }
    // A failed write does not stop the wizard; the status line says why there is no file.
    if (const auto error = WriteFileBytes(csvPath(), bytes))
        Status(FailureStatus(error.number, Load(sid::ExportingDirectory)));

    RemoveProgBar();
    lblProgBar.Caption.clear();
    busy = false;
    closed = true;
}

}  // namespace parlane
