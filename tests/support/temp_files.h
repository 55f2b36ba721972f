#pragma once
// Temporary folders and files, file and folder choosers that answer what the test set, and a
// dialogue host that records its boxes.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "core/dialogue_host.h"
#include "exchange/folder_chooser.h"
#include "exchange/open_file_chooser.h"

namespace parlane::testing {

class TempFolder {
  public:
    TempFolder() {
        static int counter = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("parlane-test-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

inline void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Answers `file` to either dialogue; keeps what it was asked as "title|start|default|filter"
// ("title|start|default|extension|filter" for a save).
class PickedFile : public OpenFileChooser {
  public:
    std::optional<std::filesystem::path> chooseOpenFile(const std::string& title,
                                                        const std::filesystem::path& start,
                                                        const std::string& defaultName,
                                                        const std::string& filter) override {
        asked = title + "|" + start.string() + "|" + defaultName + "|" + filter;
        return file;
    }
    std::optional<std::filesystem::path> chooseSaveFile(const std::string& title,
                                                        const std::filesystem::path& start,
                                                        const std::string& defaultName,
                                                        const std::string& extension,
                                                        const std::string& filter) override {
        asked = title + "|" + start.string() + "|" + defaultName + "|" + extension + "|" + filter;
        return file;
    }
    std::optional<std::filesystem::path> file;
    std::string asked;
};

class PickedFolder : public FolderChooser {
  public:
    std::optional<std::filesystem::path> chooseFolder(const std::string&,
                                                      const std::filesystem::path&) override {
        return folder;
    }
    std::optional<std::filesystem::path> folder;
};

// Each box as "<flags> <prompt>"; the title must be the product's.
class RecordingDialogues : public DialogueHost {
  public:
    int messageBox(const std::string& prompt, int flags, const std::string& title) override {
        boxes.push_back(std::to_string(flags) + " " + prompt + (title == "Parlane" ? "" : " !"));
        return AnswerOk;
    }
    std::string inputBox(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    std::vector<std::string> boxes;
};

}  // namespace parlane::testing
