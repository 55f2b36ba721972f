#pragma once
// A loaded main window with three centres (Short allows 10 characters) and a small directory.

#include <gtest/gtest.h>

#include "core/file_io.h"
#include "store/directory.h"
#include "support/test_platform.h"

namespace parlane {

struct PanelFixture : ::testing::Test {
    testing::TestPlatform p;
    frmMain* f = nullptr;
    void SetUp() override {
        auto shortCentre = testing::MakeProvider("Short");
        shortCentre.MaxChars = "10";
        p.writeProviders(
            {testing::MakeProvider("Alpha"), shortCentre, testing::MakeProvider("Gamma")});
        p.writeDirectory({{"Smithson", "44", "07", "111", "Gamma"},
                          {"Smith", "44", "07", "222", ""},
                          {"Ann", "39", "06", "333", ""}});
        f = &p.load();
    }
    // Selects a row of a list by its text, as a click would.
    static void pick(ListControl& list, const std::string& text) {
        list.select(list.FindRow(text));
    }
    const testing::ScriptedDialogues::Shown& lastBox() const { return p.dialogues.shown.back(); }
};

}  // namespace parlane
