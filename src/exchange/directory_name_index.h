#pragma once
// Whether FindName would find a name, answered from a hash of the lower-cased names, so that an
// import of many lines into a large directory stays linear.

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "store/directory.h"

namespace parlane {

class DirectoryNameIndex {
  public:
    explicit DirectoryNameIndex(const std::vector<DirectoryEntry>& directory);

    // Adds a name; false when FindName would have found it (equal without regard to case).
    bool insert(std::string_view name);

  private:
    std::unordered_set<std::string> lowered_;
};

}  // namespace parlane
