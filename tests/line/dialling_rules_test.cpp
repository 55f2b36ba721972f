// Dial strings from canonical addresses for a given location, and the location's settings.
#include "line/at/dialling_rules.h"

#include <gtest/gtest.h>

namespace parlane {
namespace {

DiallingLocation London() {
    DiallingLocation here;
    here.areaCode = "0171";
    return here;
}

TEST(DiallingRules, TranslatesTheExampleTable) {
    DiallingLocation switchboard = London();
    switchboard.outsideLine = "9,";
    DiallingLocation newYork = DefaultDiallingLocation("us");
    newYork.areaCode = "212";
    struct Case {
        const char* canonical;
        DiallingLocation here;
        const char* dial;
    };
    const Case cases[] = {
        {"+44 (0171) 555 0101", London(), "5550101"},              // local
        {"+44 (171) 555-0101", London(), "5550101"},               // area written without 0
        {"+44 (0973) 100123", London(), "0973100123"},             // national
        {"+44 7973 100123", London(), "07973100123"},              // no area at all
        {"+39 (06) 1234567", London(), "003961234567"},            // international
        {"+44 (171) 5550101", switchboard, "9,5550101"},           // outside line
        {"  +44(0973)  100 123", London(), "0973100123"},          // odd spacing
        {"+44 () 100123", DiallingLocation{}, "100123"},           // empty area both sides
        {"0973 100123,,*21#", switchboard, "9,0973100123,,*21#"},  // not canonical
        {"123w45", London(), "123W45"},                            // wait kept
        {"+1 (212) 555 0199", newYork, "5550199"},                 // US local
        {"+1 (415) 555 0199", newYork, "14155550199"},             // US national
        {"+44 (0973) 100123", newYork, "01144973100123"},          // US international
    };
    for (const Case& c : cases)
        EXPECT_EQ(TranslateCanonicalAddress(c.canonical, c.here), c.dial) << c.canonical;
}

TEST(DiallingRules, DefaultsByCountry) {
    EXPECT_EQ(DefaultDiallingLocation("AU").internationalPrefix, "0011");
    EXPECT_EQ(DefaultDiallingLocation("XX"), DiallingLocation{});
}

TEST(DiallingRules, LocationSurvivesTheSettings) {
    MemorySettingsStore store;
    Settings settings(store, "Parlane");
    EXPECT_EQ(LoadDiallingLocation(settings, London()).areaCode, "0171");  // nothing stored yet

    DiallingLocation saved = DefaultDiallingLocation("US");
    saved.areaCode = "212";
    saved.outsideLine = "9,";
    saved.tone = false;
    SaveDiallingLocation(settings, saved);
    EXPECT_EQ(LoadDiallingLocation(settings, London()), saved);

    settings.SaveSetting("Location", "Tone", "yes");  // unreadable: the default stands
    EXPECT_TRUE(LoadDiallingLocation(settings, London()).tone);
}

}  // namespace
}  // namespace parlane
