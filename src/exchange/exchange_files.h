#pragma once
// File reads and writes that keep the system's error number, since the copy and import messages
// show it.

#include <filesystem>
#include <optional>
#include <string>

namespace parlane {

class Strings;

struct FileError {
    int number = 0;            // errno; 0 when nothing failed
    bool notOrdinary = false;  // a FIFO, a device or a socket: it has no errno of its own

    explicit operator bool() const { return number != 0 || notOrdinary; }
};

// The failure in the user's words: the system's description, or the bank's for a file that is
// not an ordinary one.
std::string FileErrorText(const FileError& error, const Strings& strings);

// The whole file, or nullopt with `error` filled.
std::optional<std::string> ReadFileBytes(const std::filesystem::path& path, FileError& error);

// Replaces the file atomically.
FileError WriteFileBytes(const std::filesystem::path& path, const std::string& bytes);

// A path as text of the program's code page, for messages.
std::string PathText(const std::filesystem::path& path);

}  // namespace parlane
