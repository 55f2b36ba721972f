// Random bytes through every kind: no crash, no hang, and what is shown writes back to exactly
// the bytes before the damage, unless the records that would not were named.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "parlane-data/table_json.h"

namespace parlane::data {
namespace {

// Records laid out as one kind or another (S string, I number, B byte block), now and then
// with a stray byte, an impossible length or a missing tail, so that reading goes deep.
std::string RandomTable(std::mt19937& rng) {
    constexpr const char* kLayouts[] = {"SSSSSSSIISBSS", "SSSSIIS", "SSSSS", "S"};
    const std::string layout = kLayouts[rng() % 4];
    std::string bytes;
    const auto put = [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(rng() % 256);
    };
    for (int record = static_cast<int>(rng() % 6); record > 0; --record) {
        for (const char field : layout) {
            const auto length = static_cast<char>(rng() % 4);
            if (rng() % 50 == 0) put(rng() % 3);
            if (field == 'I') {
                put(4);
            } else if (field == 'S' || rng() % 2) {
                bytes += std::string{length, '\0'};
                put(static_cast<std::size_t>(length));
            } else {
                bytes += std::string("\x01\0", 2) + length + std::string(3, '\0');
                put(4 + static_cast<std::size_t>(length));  // the lower bound, then the bytes
            }
        }
    }
    if (!bytes.empty() && rng() % 4 == 0) bytes.resize(rng() % bytes.size());
    return bytes;
}

TEST(ShowFuzz, RandomBytesShowWhatWritesBackOrSayWhichDoNot) {
    std::mt19937 rng(20240611);
    const TableKind kinds[] = {TableKind::Provider, TableKind::Queue, TableKind::Directory,
                               TableKind::GroupNames, TableKind::GroupMembers};
    for (int round = 0; round < 3000; ++round) {
        const std::string bytes = RandomTable(rng);
        for (const auto kind : kinds) {
            const ShownTable shown = ShowTable(kind, bytes);
            std::string lines;
            for (const auto& line : shown.lines) lines += line + "\n";
            std::istringstream in(lines);
            const BuiltTable built = BuildTable(kind, in);
            ASSERT_EQ(built.error, "");
            const std::string_view readable(bytes.data(),
                                            shown.damaged ? shown.damageOffset : bytes.size());
            // A queue's first message gets the empty record in front of it, said by `show`.
            ASSERT_EQ(built.bytes == readable, shown.inexact.empty() && !shown.messageFirst);
            if (!shown.inexact.empty()) {
                ASSERT_EQ(ShowTable(kind, built.bytes).lines, shown.lines);
            }
        }
    }
}

}  // namespace
}  // namespace parlane::data
