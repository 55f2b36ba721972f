#pragma once
// Whole-file reads and safe writes. Every change the program makes to its files goes through
// here, so that each one is whole on disk and a test can stop the program at any of them.

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace parlane {

// The whole content; nullopt when the file cannot be opened or read, or is not a regular file
// (a FIFO or a device would block or never end).
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

// At most `maxBytes` from the start of a regular file.
std::optional<std::string> ReadFileStart(const std::filesystem::path& path, std::size_t maxBytes);

// A table file as the start reads it: never blocking, never larger than the limit.
struct TableFileRead {
    enum Kind { Missing, Read, NotRegular, TooLarge, Unreadable } kind = Missing;
    std::string bytes;  // when Read
    int error = 0;      // errno, when Unreadable
};
inline constexpr std::uintmax_t kMaxTableFileBytes = 32u * 1024 * 1024;
TableFileRead ReadTableFile(const std::filesystem::path& path,
                            std::uintmax_t limit = kMaxTableFileBytes);

// Files the program writes are for its user alone: centres carry passwords.
inline constexpr mode_t kPrivateFileMode = 0600;

// Writes a temporary file beside `path`, flushes it to disk and renames it over `path`, so a
// crash leaves either the old or the new content. Returns 0 or the errno of the failing call.
int ReplaceFile(const std::filesystem::path& path, const std::string& bytes,
                mode_t mode = kPrivateFileMode);
// As ReplaceFile, with the system's text of the error instead; empty on success.
std::string WriteFileAtomically(const std::filesystem::path& path, const std::string& bytes,
                                mode_t mode = kPrivateFileMode);

// Writes a new file in `folder` that never replaces another: the whole content goes to a hidden
// temporary file first and is linked under the first free name that `nameFor(1)`, `nameFor(2)`,
// ... gives, so a half-written file never shows under a real name. Returns 0 or errno; `chosen`
// is the file's path.
int WriteNewFileAtomically(const std::filesystem::path& folder,
                           const std::function<std::string(int attempt)>& nameFor,
                           const std::string& bytes, std::filesystem::path& chosen);
// Removes what a write killed half-way left in `folder`.
void RemoveUnfinishedFiles(const std::filesystem::path& folder);

// Removes a file and makes the removal durable; true when it is gone (or was never there).
bool RemoveFile(const std::filesystem::path& path);

// Copies a damaged file aside before anything rewrites it: "<name>.damaged-<n>" where n is the
// first free number. Returns the new path, or nullopt when the copy failed.
std::optional<std::filesystem::path> KeepDamagedCopy(const std::filesystem::path& path);
// Moves a file that cannot be read as a table out of the way, under the same kind of name.
std::optional<std::filesystem::path> SetFileAside(const std::filesystem::path& path);

// Each change to a file is announced before it happens: creating, writing, flushing, renaming,
// linking and removing. Tests use it to stop the program at any one of them, or to make a write
// fail as a full disk would: an errno returned for a Write is that write's error (0 goes on).
enum class FileOperation { Create, Write, Flush, Rename, Link, Remove };
using FileOperationHook = std::function<int(FileOperation, const std::filesystem::path&)>;
void SetFileOperationHook(FileOperationHook hook);

}  // namespace parlane
