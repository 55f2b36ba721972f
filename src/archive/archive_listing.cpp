#include "archive/archive_listing.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

#include "core/file_io.h"

namespace parlane {
namespace {

// Archives copied over from Windows may carry ".MSG", which the pattern matched there.
bool IsMessageFileName(std::string_view name) {
    constexpr std::string_view kExt = ".msg";
    if (name.size() < kExt.size()) return false;
    const auto tail = name.substr(name.size() - kExt.size());
    return std::equal(tail.begin(), tail.end(), kExt.begin(), [](char a, char b) {
        return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
}

}  // namespace

std::vector<ArchiveRow> ListArchiveFolder(const std::filesystem::path& folder,
                                          const RegionalFormats& formats, std::size_t* unreadable) {
    std::vector<ArchiveRow> rows;
    std::size_t failed = 0;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end;
         it.increment(ec)) {
        std::string name = it->path().filename().string();
        if (!IsMessageFileName(name)) continue;
        // Only regular files are opened: a FIFO of that name would block the read for good.
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) {
            ++failed;
            continue;
        }
        const auto text = ReadWholeFile(it->path());
        if (!text) {
            ++failed;
            continue;
        }
        MessageSummary summary = ReadMessageSummary(*text, name, formats);
        rows.push_back({std::move(name), std::move(summary)});
    }
    // The sort key is the name's head, so name order is sort-key order with ties by name.
    std::sort(rows.begin(), rows.end(),
              [](const ArchiveRow& a, const ArchiveRow& b) { return a.fileName < b.fileName; });
    if (unreadable) *unreadable = failed;
    return rows;
}

}  // namespace parlane
