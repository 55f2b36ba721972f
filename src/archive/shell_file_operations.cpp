#include "archive/shell_file_operations.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/file_io.h"

namespace parlane {
namespace {

bool IsTimeStamped(const std::string& name) {
    if (name.size() < 17 || name[6] != ' ') return false;
    for (std::size_t i = 0; i < 13; ++i)
        if (i != 6 && (name[i] < '0' || name[i] > '9')) return false;
    return true;
}

// Links `source` under a free name in `folder`: atomic, and never over another file.
int LinkUnderFreeName(const std::filesystem::path& source, const std::filesystem::path& folder) {
    const std::string name = source.filename().string();
    for (int attempt = 1; attempt < 10000; ++attempt) {
        const auto target = folder / NameForAttempt(name, attempt);
        if (::link(source.c_str(), target.c_str()) == 0) return 0;
        if (errno != EEXIST) return errno;
    }
    return EEXIST;
}

int CopyUnderFreeName(const std::filesystem::path& source, const std::filesystem::path& folder) {
    const auto bytes = ReadWholeFile(source);
    if (!bytes) return errno ? errno : EIO;
    const std::string name = source.filename().string();
    std::filesystem::path chosen;
    return WriteNewFileAtomically(
        folder, [&](int attempt) { return NameForAttempt(name, attempt); }, *bytes, chosen);
}

}  // namespace

std::string NameForAttempt(const std::string& fileName, int attempt) {
    if (attempt == 1) return fileName;
    const std::string suffix = "-" + std::to_string(attempt);
    if (IsTimeStamped(fileName)) return fileName.substr(0, 13) + suffix + ".msg";
    const auto dot = fileName.rfind('.');
    if (dot == std::string::npos || dot == 0) return fileName + suffix;
    return fileName.substr(0, dot) + suffix + fileName.substr(dot);
}

std::string ShellFileOperations::Move(const std::vector<std::filesystem::path>& sources,
                                      const std::filesystem::path& targetFolder) {
    for (const auto& source : sources) {
        if (source.parent_path() == targetFolder) continue;  // already there
        int error = LinkUnderFreeName(source, targetFolder);
        // Another file system: a whole copy first, then the original goes.
        if (error == EXDEV || error == EPERM) error = CopyUnderFreeName(source, targetFolder);
        if (error) return std::strerror(error);
        RemoveFile(source);
    }
    return {};
}

std::string ShellFileOperations::Copy(const std::vector<std::filesystem::path>& sources,
                                      const std::filesystem::path& targetFolder) {
    for (const auto& source : sources)
        if (const int error = CopyUnderFreeName(source, targetFolder)) return std::strerror(error);
    return {};
}

}  // namespace parlane
