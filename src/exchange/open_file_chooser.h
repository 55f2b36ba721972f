#pragma once
// The platform's file dialogues: open, where the import picks its CSV file, and save, where the
// debug view writes its file.

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
    // The file to write; nullopt when the user cancelled, as a chooser without a save dialogue
    // answers. A name typed without an extension gets `defaultExtension` ("txt"). It asks
    // nothing about a file that exists: the caller does.
    virtual std::optional<std::filesystem::path> chooseSaveFile(
        const std::string& /*title*/, const std::filesystem::path& /*startFolder*/,
        const std::string& /*defaultName*/, const std::string& /*defaultExtension*/,
        const std::string& /*filter*/) {
        return std::nullopt;
    }
};

}  // namespace parlane
