#include "core/file_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

namespace parlane {

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
    // A folder opens as a stream here, with a nonsense size.
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) return std::nullopt;
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    if (!in) return std::nullopt;
    const auto size = in.tellg();
    if (size < 0) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    in.seekg(0);
    if (!in.read(bytes.data(), size)) return std::nullopt;
    return bytes;
}

std::string WriteFileAtomically(const std::filesystem::path& path, const std::string& bytes) {
    auto temp = path;
    temp += ".tmp";
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return std::strerror(errno);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR) continue;
            const std::string error = std::strerror(errno);
            ::close(fd);
            ::unlink(temp.c_str());
            return error;
        }
        written += static_cast<std::size_t>(n);
    }
    if (::fsync(fd) != 0 || ::close(fd) != 0) {
        const std::string error = std::strerror(errno);
        ::unlink(temp.c_str());
        return error;
    }
    if (::rename(temp.c_str(), path.c_str()) != 0) {
        const std::string error = std::strerror(errno);
        ::unlink(temp.c_str());
        return error;
    }
    return {};
}

std::optional<std::filesystem::path> KeepDamagedCopy(const std::filesystem::path& path) {
    for (int n = 1; n < 1000; ++n) {
        auto aside = path;
        aside += ".damaged-" + std::to_string(n);
        std::error_code ec;
        if (std::filesystem::exists(aside, ec)) continue;
        if (std::filesystem::copy_file(path, aside, ec)) return aside;
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace parlane
