#include "exchange/directory_name_index.h"

#include "core/cp1252.h"

namespace parlane {

DirectoryNameIndex::DirectoryNameIndex(const std::vector<DirectoryEntry>& directory) {
    lowered_.reserve(directory.size() * 2);
    for (const auto& entry : directory) lowered_.insert(Cp1252LowerCase(entry.Name));
}

bool DirectoryNameIndex::insert(std::string_view name) {
    return lowered_.insert(Cp1252LowerCase(name)).second;
}

}  // namespace parlane
