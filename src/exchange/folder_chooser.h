#pragma once
// The platform's folder picker, where the backup and restore windows choose their folder.

#include <filesystem>
#include <optional>
#include <string>

namespace parlane {

class FolderChooser {
  public:
    virtual ~FolderChooser() = default;
    // The folder picked, starting at `start`; nullopt when the user cancelled. The title is text
    // of the program's code page.
    virtual std::optional<std::filesystem::path> chooseFolder(
        const std::string& title, const std::filesystem::path& start) = 0;
};

}  // namespace parlane
