// The AT modem's device configuration block: round trips and what is not one. Random
// blocks go through the settings dialog in device_config_test.cpp.
#include "line/modem_config.h"

#include <gtest/gtest.h>

#include <random>

namespace parlane {
namespace {

TEST(ModemConfig, RoundTripsAndInsideAVarString) {
    const ModemConfig config{57600, 7, 'E', 2, true, "AT&K3S7=60"};
    const auto block = EncodeModemConfig(config);
    EXPECT_EQ(DecodeModemConfig(block), config);
    const auto wrapped = WrapVarString(block);
    EXPECT_EQ(wrapped.size(), 24 + block.size());
    EXPECT_EQ(UnwrapVarString(wrapped), block);
    EXPECT_EQ(DecodeModemConfig(EncodeModemConfig(ModemConfig{})), ModemConfig{});

    // A later version's extra field is passed over.
    auto newer = block;
    newer[4] = 2;
    newer.insert(newer.end(), {0x77, 0x02, 0x00, 0xAA, 0xBB});
    EXPECT_EQ(DecodeModemConfig(newer), config);
}

TEST(ModemConfig, AnythingElseDecodesToNothing) {
    const auto good = EncodeModemConfig(ModemConfig{9600, 8, 'N', 1, false, "ATX3"});
    // Cut anywhere inside a field: refused; cut at a field's end: the fields so far.
    std::size_t accepted = 0;
    for (std::size_t cut = 0; cut < good.size(); ++cut)
        if (DecodeModemConfig(std::vector<std::uint8_t>(good.begin(), good.begin() + cut)))
            ++accepted;
    EXPECT_EQ(accepted, 6u);  // after the header and after each of the first five fields
    const std::vector<std::vector<std::uint8_t>> bad = {
        {},
        {0xAA, 0xBB},  // another device's block
        {'P', 'L', 'M', 'X', 1},
        {'P', 'L', 'M', 'C', 0},
        {'P', 'L', 'M', 'C', 1, 2, 1, 0, 9},               // nine data bits
        {'P', 'L', 'M', 'C', 1, 3, 1, 0, 'X'},             // parity X
        {'P', 'L', 'M', 'C', 1, 1, 2, 0, 1, 2},            // a baud field of two bytes
        {'P', 'L', 'M', 'C', 1, 6, 3, 0, 'A', '\r', 'T'},  // a line end in the init string
        {'P', 'L', 'M', 'C', 1, 6, 0xFF, 0xFF, 'A'},       // a length past the end
    };
    for (const auto& b : bad) EXPECT_FALSE(DecodeModemConfig(b)) << b.size();
    EXPECT_FALSE(UnwrapVarString({1, 2, 3}));
    auto wrapped = WrapVarString(good);
    wrapped[20] = 0xF0;  // an offset beyond the record
    EXPECT_FALSE(UnwrapVarString(wrapped));
    std::mt19937 random(99);
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::uint8_t> noise(random() % 64);
        for (auto& b : noise) b = static_cast<std::uint8_t>(random());
        (void)UnwrapVarString(noise);
    }
}

}  // namespace
}  // namespace parlane
