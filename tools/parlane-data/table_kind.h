#pragma once
// Which table a file holds, from the name given on the command line or from the file's path.

#include <filesystem>
#include <optional>
#include <string_view>

namespace parlane::data {

// The group kind comes in two shapes: Data/group.dat lists the groups, every other file in
// Data/ lists the members of one group.
enum class TableKind { Provider, Queue, Directory, GroupNames, GroupMembers };

// "provider", "queue", "directory" or "group"; `file` decides which group shape is meant.
std::optional<TableKind> KindFromName(std::string_view name, const std::filesystem::path& file);

// smsc.dat, queue.dat, phones.dat, then any file in a Data folder or any other .dat file is a
// group file. Names are compared without regard to case, as the program's own file system does.
std::optional<TableKind> DetectKind(const std::filesystem::path& file);

}  // namespace parlane::data
