#pragma once
// Copying the tables between the home and a backup folder, one file at a time.

#include <filesystem>
#include <string_view>
#include <vector>

#include "exchange/exchange_files.h"

namespace parlane {

enum class TableFormat { Centres, Directory, NameList };

// True when the bytes end inside a record of the table.
bool IsDamagedTable(std::string_view bytes, TableFormat format);

struct TableCopy {
    enum Outcome {
        Copied,
        SourceMissing,  // error holds the system's "not found"
        Failed,
        // The source is damaged and a file of that name was already at the target: that one
        // was kept. A damaged table is copied only where it replaces nothing.
        KeptTarget,
    };
    Outcome outcome = Copied;
    FileError error;
};

// Copies one table file, replacing the target atomically.
TableCopy CopyTableFile(const std::filesystem::path& from, const std::filesystem::path& to,
                        TableFormat format);

// The "*.dat" files of a folder, the extension without regard to case, in name order.
std::vector<std::filesystem::path> DatFilesIn(const std::filesystem::path& folder);

// A group's member file whose name is a table's (smsc, phones, group, queue in any case), or that
// no group could have: in the flat backup folder it would take a table's place.
bool IsTableFileName(const std::filesystem::path& file);

}  // namespace parlane
