#pragma once
// Temporary folders, files and a dialogue host that records its boxes, for the exchange tests.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/dialogue_host.h"

namespace parlane::exchange_test {

class TempFolder {
  public:
    TempFolder() {
        static int counter = 0;
        path_ =
            std::filesystem::temp_directory_path() /
            ("parlane-exchange-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
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

}  // namespace parlane::exchange_test
