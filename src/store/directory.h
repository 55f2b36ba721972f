#pragma once
// The telephone directory: names and their addresses, in order of addition, and phones.dat.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/record_file.h"

namespace parlane {

struct DirectoryEntry {
    std::string Name;
    std::string CountryCode;
    std::string AreaCode;
    std::string Number;
    std::string ProviderName;  // empty: the default centre

    bool operator==(const DirectoryEntry&) const = default;
};

bool ReadDirectoryEntry(RecordReader& reader, DirectoryEntry& out);
bool WriteDirectoryEntry(RecordWriter& writer, const DirectoryEntry& entry);
RecordTable<DirectoryEntry> ParseDirectoryFile(std::string_view bytes);
std::string SerializeDirectoryFile(const std::vector<DirectoryEntry>& entries, std::string& error);

// The first entry whose name equals `name` without regard to case; -1 when none does.
int FindName(const std::vector<DirectoryEntry>& directory, std::string_view name);
// The name of the first entry with exactly this address; empty when none has it.
std::string FindNameByNumber(const std::vector<DirectoryEntry>& directory, std::string_view country,
                             std::string_view area, std::string_view number);

struct CountryDialling {
    std::string_view country;
    std::string_view code;
};
// The 242 countries in the table's order.
std::span<const CountryDialling> CountryTable();
// The dialling code of the exact country name; empty for an unknown name.
std::string CountryDialCode(std::string_view country);

// One-string records: Data/group.dat (the groups) and Data/<group>.dat (a group's members).
RecordTable<std::string> ParseNameListFile(std::string_view bytes);
std::string SerializeNameListFile(const std::vector<std::string>& names, std::string& error);

// Why a group name cannot be a file name of its own, as a string id; 0 when it can.
int GroupNameProblem(std::string_view name);

}  // namespace parlane
