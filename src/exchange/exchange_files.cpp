#include "exchange/exchange_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/cp1252.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "core/strings.h"

namespace parlane {
namespace {

FileError SystemError(int number) {
    return {number, false};
}

}  // namespace

std::string FileErrorText(const FileError& error, const Strings& strings) {
    return error.notOrdinary ? strings.LoadResString(sid::NotAnOrdinaryFile)
                             : std::strerror(error.number);
}

std::optional<std::string> ReadFileBytes(const std::filesystem::path& path, FileError& error) {
    // Never waits on a FIFO or reads a device without end.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        error = SystemError(errno);
        return std::nullopt;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        error = S_ISDIR(info.st_mode) ? SystemError(EISDIR) : FileError{EINVAL, true};
        ::close(fd);
        return std::nullopt;
    }
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n == 0) break;
        if (n < 0) {
            if (errno == EINTR) continue;
            error = SystemError(errno);
            ::close(fd);
            return std::nullopt;
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return bytes;
}

FileError WriteFileBytes(const std::filesystem::path& path, const std::string& bytes) {
    const int number = ReplaceFile(path, bytes);
    return number ? SystemError(number) : FileError{};
}

std::string PathText(const std::filesystem::path& path) {
    return Utf8ToCp1252(path.string());
}

}  // namespace parlane
