#include "parlane-data/table_kind.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace parlane::data {
namespace {

std::string AsciiLower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

TableKind GroupKindFor(const std::filesystem::path& file) {
    return AsciiLower(file.filename().string()) == "group.dat" ? TableKind::GroupNames
                                                               : TableKind::GroupMembers;
}

}  // namespace

std::optional<TableKind> KindFromName(std::string_view name, const std::filesystem::path& file) {
    if (name == "provider") return TableKind::Provider;
    if (name == "queue") return TableKind::Queue;
    if (name == "directory") return TableKind::Directory;
    if (name == "group") return GroupKindFor(file);
    return std::nullopt;
}

std::optional<TableKind> DetectKind(const std::filesystem::path& file) {
    const std::string name = AsciiLower(file.filename().string());
    if (name == "smsc.dat") return TableKind::Provider;
    if (name == "queue.dat") return TableKind::Queue;
    if (name == "phones.dat") return TableKind::Directory;
    const bool inDataFolder = AsciiLower(file.parent_path().filename().string()) == "data";
    if (inDataFolder || AsciiLower(file.extension().string()) == ".dat") return GroupKindFor(file);
    return std::nullopt;
}

}  // namespace parlane::data
