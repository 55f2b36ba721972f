#pragma once
// The rows of one archive folder's message list, without any window.

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "archive/message_summary.h"
#include "core/regional_formats.h"

namespace parlane {

struct ArchiveRow {
    std::string fileName;
    MessageSummary summary;
};

// Every "*.msg" file of `folder`, sorted by sort key and then by name. A file that cannot be
// read (no permission, not a regular file, gone in the meantime) is left out and counted in
// `unreadable` when given. A folder that cannot be opened gives no rows.
std::vector<ArchiveRow> ListArchiveFolder(const std::filesystem::path& folder,
                                          const RegionalFormats& formats,
                                          std::size_t* unreadable = nullptr);

}  // namespace parlane
