#include "core/settings_keys.h"

#include <gtest/gtest.h>

#include <set>

namespace parlane {
namespace {

TEST(SettingKeys, EveryKeyOnceWithItsDefault) {
    std::set<std::pair<std::string_view, std::string_view>> seen;
    for (const auto& k : AllSettingKeys())
        EXPECT_TRUE(seen.insert({k.section, k.key}).second) << k.section << "/" << k.key;
    struct Case {
        const char *section, *key, *value;
    } cases[] = {{"Settings", "MaxDial", "3"},        {"Settings", "Timeout", "30"},
                 {"Settings", "Originator", "12345"}, {"Language", "International", "1"},
                 {"SMSC", "Default", "TIM Italy"},    {"Texts", "Signature", "My Signature"},
                 {"FirstRun", "Modem", "0"}};
    for (const auto& c : cases)
        EXPECT_EQ(DefaultFor(c.section, c.key, "TIM Italy", "My Signature"), c.value) << c.key;
    EXPECT_FALSE(DefaultFor("Settings", "Nothing", "", ""));
}

}  // namespace
}  // namespace parlane
