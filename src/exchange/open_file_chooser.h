#pragma once
// The platform's file-open dialogue, where the import picks its CSV file.

#include <filesystem>
#include <optional>
#include <string>

namespace parlane {

class OpenFileChooser {
  public:
    virtual ~OpenFileChooser() = default;
    // The file picked; nullopt when the user cancelled. `filter` is "Text shown|*.ext" and
    // `defaultName` the name offered ("*.csv"); texts are of the program's code page.
    virtual std::optional<std::filesystem::path> chooseOpenFile(
        const std::string& title, const std::filesystem::path& startFolder,
        const std::string& defaultName, const std::string& filter) = 0;
};

}  // namespace parlane
