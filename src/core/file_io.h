#pragma once
// Whole-file reads and safe rewrites.

#include <filesystem>
#include <optional>
#include <string>

namespace parlane {

// The whole content; nullopt when the file cannot be opened or read.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path);

// Writes a temporary file beside `path`, flushes it to disk and renames it over `path`, so a
// crash leaves either the old or the new content. Returns an error text, empty on success.
std::string WriteFileAtomically(const std::filesystem::path& path, const std::string& bytes);

// Copies a damaged file aside before anything rewrites it: "<name>.damaged-<n>" where n is the
// first free number. Returns the new path, or nullopt when the copy failed.
std::optional<std::filesystem::path> KeepDamagedCopy(const std::filesystem::path& path);

}  // namespace parlane
