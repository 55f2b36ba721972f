// Which table a path holds, and the two shapes of group file.
#include "parlane-data/table_kind.h"

#include <gtest/gtest.h>

namespace parlane::data {
namespace {

TEST(TableKind, DetectedFromThePathOrGivenByName) {
    const std::tuple<const char*, const char*, std::optional<TableKind>> cases[] = {
        {"", "C:/Parlane/SMSC.DAT", TableKind::Provider},
        {"", "/home/a/queue.dat", TableKind::Queue},
        {"", "Phones.dat", TableKind::Directory},
        {"", "x/data/GROUP.DAT", TableKind::GroupNames},
        {"", "Data/Family", TableKind::GroupMembers},
        {"", "friends.dat", TableKind::GroupMembers},
        {"", "notes.txt", std::nullopt},
        {"directory", "x.dat", TableKind::Directory},
        {"group", "Data/Group.dat", TableKind::GroupNames},
        {"group", "group.dat.bak", TableKind::GroupMembers},
        {"Provider", "smsc.dat", std::nullopt},
    };
    for (const auto& [name, path, kind] : cases)
        EXPECT_EQ(*name ? KindFromName(name, path) : DetectKind(path), kind) << name << path;
}

}  // namespace
}  // namespace parlane::data
