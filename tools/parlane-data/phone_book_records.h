#pragma once
// The directory (phones.dat) and group records. The program's store has no code for these
// tables yet, so they live here until they move into src/store/.

#include <string>

#include "store/record_file.h"

namespace parlane::data {

struct DirectoryEntry {
    std::string Name;
    std::string CountryCode;
    std::string AreaCode;
    std::string Number;
    std::string ProviderName;
};

// One string per record: a group's name in group.dat, a member's name in a group's own file.
struct GroupEntry {
    std::string Name;
};

bool ReadDirectoryEntry(RecordReader& reader, DirectoryEntry& out);
bool WriteDirectoryEntry(RecordWriter& writer, const DirectoryEntry& entry);
bool ReadGroupEntry(RecordReader& reader, GroupEntry& out);
bool WriteGroupEntry(RecordWriter& writer, const GroupEntry& entry);

}  // namespace parlane::data
