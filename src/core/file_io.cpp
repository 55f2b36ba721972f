#include "core/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace parlane {
namespace {

constexpr const char* kUnfinishedPrefix = ".parlane-unfinished-";

FileOperationHook& Hook() {
    static FileOperationHook hook;
    return hook;
}

int Announce(FileOperation operation, const std::filesystem::path& path) {
    return Hook() ? Hook()(operation, path) : 0;
}

// Opens for reading without ever waiting: a FIFO with no writer would hold the start for good.
int OpenForReading(const std::filesystem::path& path) {
    return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
}

// Reads at most `limit` + 1 bytes, so that a file growing past the limit is noticed.
bool ReadAll(int fd, std::uintmax_t limit, std::string& bytes) {
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n == 0) return true;
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
        if (bytes.size() > limit) return true;
    }
}

bool WriteAll(int fd, const std::filesystem::path& path, const std::string& bytes) {
    if (const int error = Announce(FileOperation::Write, path)) {
        errno = error;
        return false;
    }
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        written += static_cast<std::size_t>(n);
    }
    return true;
}

bool Flush(int fd, const std::filesystem::path& path) {
    Announce(FileOperation::Flush, path);
    return ::fsync(fd) == 0;
}

// A rename, link or removal is only durable once its folder is flushed.
void FlushFolder(const std::filesystem::path& folder) {
    const int fd =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    Flush(fd, folder);
    ::close(fd);
}

// Creates, fills and flushes `path`; the error number, or 0.
int WriteFlushedFile(const std::filesystem::path& path, const std::string& bytes, mode_t mode) {
    Announce(FileOperation::Create, path);
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
    if (fd < 0) return errno;
    if (!WriteAll(fd, path, bytes) || !Flush(fd, path)) {
        const int error = errno;
        ::close(fd);
        ::unlink(path.c_str());
        return error;
    }
    if (::close(fd) != 0) {
        const int error = errno;
        ::unlink(path.c_str());
        return error;
    }
    return 0;
}

std::optional<std::filesystem::path> FreeDamagedName(const std::filesystem::path& path) {
    for (int n = 1; n < 1000; ++n) {
        auto aside = path;
        aside += ".damaged-" + std::to_string(n);
        std::error_code ec;
        if (!std::filesystem::exists(std::filesystem::symlink_status(aside, ec))) return aside;
    }
    return std::nullopt;
}

}  // namespace

void SetFileOperationHook(FileOperationHook hook) {
    Hook() = std::move(hook);
}

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path) {
    const auto read = ReadTableFile(path, static_cast<std::uintmax_t>(-1) / 2);
    if (read.kind != TableFileRead::Read) return std::nullopt;
    return read.bytes;
}

std::optional<std::string> ReadFileStart(const std::filesystem::path& path, std::size_t maxBytes) {
    const int fd = OpenForReading(path);
    if (fd < 0) return std::nullopt;
    struct stat info {};
    std::string bytes;
    const bool ok = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) &&
                    ReadAll(fd, maxBytes > 0 ? maxBytes - 1 : 0, bytes);
    ::close(fd);
    if (!ok) return std::nullopt;
    if (bytes.size() > maxBytes) bytes.resize(maxBytes);
    return bytes;
}

TableFileRead ReadTableFile(const std::filesystem::path& path, std::uintmax_t limit) {
    TableFileRead result;
    const int fd = OpenForReading(path);
    if (fd < 0) {
        result.kind = errno == ENOENT ? TableFileRead::Missing : TableFileRead::Unreadable;
        result.error = errno;
        return result;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0) {
        result.kind = TableFileRead::Unreadable;
        result.error = errno;
    } else if (!S_ISREG(info.st_mode)) {
        result.kind = TableFileRead::NotRegular;
    } else if (static_cast<std::uintmax_t>(info.st_size) > limit) {
        result.kind = TableFileRead::TooLarge;
    } else if (!ReadAll(fd, limit, result.bytes)) {
        result.kind = TableFileRead::Unreadable;
        result.error = errno;
        result.bytes.clear();
    } else {
        result.kind = result.bytes.size() > limit ? TableFileRead::TooLarge : TableFileRead::Read;
        if (result.kind == TableFileRead::TooLarge) result.bytes.clear();
    }
    ::close(fd);
    return result;
}

int ReplaceFile(const std::filesystem::path& path, const std::string& bytes, mode_t mode) {
    auto temp = path;
    temp += ".tmp";
    if (const int error = WriteFlushedFile(temp, bytes, mode)) return error;
    Announce(FileOperation::Rename, path);
    if (::rename(temp.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(temp.c_str());
        return error;
    }
    FlushFolder(path.parent_path());
    return 0;
}

std::string WriteFileAtomically(const std::filesystem::path& path, const std::string& bytes,
                                mode_t mode) {
    const int error = ReplaceFile(path, bytes, mode);
    return error ? std::strerror(error) : std::string();
}

int WriteNewFileAtomically(const std::filesystem::path& folder,
                           const std::function<std::string(int attempt)>& nameFor,
                           const std::string& bytes, std::filesystem::path& chosen) {
    static int counter = 0;
    const auto temp =
        folder / (kUnfinishedPrefix + std::to_string(::getpid()) + "-" + std::to_string(++counter));
    if (const int error = WriteFlushedFile(temp, bytes, kPrivateFileMode)) return error;
    int error = EEXIST;
    for (int attempt = 1; attempt < 10000 && error == EEXIST; ++attempt) {
        chosen = folder / nameFor(attempt);
        Announce(FileOperation::Link, chosen);
        if (::link(temp.c_str(), chosen.c_str()) == 0) {
            error = 0;
        } else if (errno != EEXIST) {
            // A file system without hard links: hold the name, then rename over it.
            const int held =
                ::open(chosen.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateFileMode);
            if (held < 0) {
                error = errno;
                continue;
            }
            ::close(held);
            Announce(FileOperation::Rename, chosen);
            error = ::rename(temp.c_str(), chosen.c_str()) == 0 ? 0 : errno;
            if (error) ::unlink(chosen.c_str());
        }
    }
    Announce(FileOperation::Remove, temp);
    ::unlink(temp.c_str());
    FlushFolder(folder);
    return error;
}

void RemoveUnfinishedFiles(const std::filesystem::path& folder) {
    std::error_code ec;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end;
         it.increment(ec)) {
        if (it->path().filename().string().rfind(kUnfinishedPrefix, 0) == 0) RemoveFile(it->path());
    }
}

bool RemoveFile(const std::filesystem::path& path) {
    Announce(FileOperation::Remove, path);
    if (::unlink(path.c_str()) != 0) return errno == ENOENT;
    FlushFolder(path.parent_path());
    return true;
}

std::optional<std::filesystem::path> KeepDamagedCopy(const std::filesystem::path& path) {
    const auto aside = FreeDamagedName(path);
    if (!aside) return std::nullopt;
    const auto bytes = ReadWholeFile(path);
    if (!bytes) return std::nullopt;
    if (!WriteFileAtomically(*aside, *bytes).empty()) return std::nullopt;
    return aside;
}

std::optional<std::filesystem::path> SetFileAside(const std::filesystem::path& path) {
    const auto aside = FreeDamagedName(path);
    if (!aside) return std::nullopt;
    Announce(FileOperation::Rename, *aside);
    if (::rename(path.c_str(), aside->c_str()) != 0) return std::nullopt;
    FlushFolder(path.parent_path());
    return aside;
}

}  // namespace parlane
