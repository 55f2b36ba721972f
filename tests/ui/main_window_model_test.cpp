// The main window's own commands: menus and captions, languages, panels, help and disclaimer.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/cp1252.h"
#include "core/string_bank.h"
#include "core/string_ids.h"
#include "support/test_platform.h"
#include "ui/main_menu.h"

namespace parlane {
namespace {

using testing::TestPlatform;

TEST(MainMenu, EveryEntryHasACaptionAndAKnownParent) {
    std::set<std::string> names;
    for (const auto& e : MainMenuTree()) {
        EXPECT_TRUE(names.insert(e.name).second) << "twice: " << e.name;
        if (*e.parent) {
            EXPECT_TRUE(names.count(e.parent)) << e.name << " before its parent";
        }
    }
    TestPlatform p;
    auto& f = p.load();
    for (const auto& e : MainMenuTree()) {
        if (e.id == 0) continue;
        EXPECT_EQ((f.*e.item).Caption, f.LoadResString(e.id)) << e.name;
    }
    EXPECT_EQ(f.Captions["fraQueue"], "Message Queue:");
    EXPECT_EQ(f.ToolTips["picToolIcons_10"], "Add To Group List");
    // Disabled until other commands enable them.
    for (const char* name : {"mnuHangUp", "mnuEdit", "mnuRemove", "mnuRemoveName"})
        EXPECT_FALSE((f.*FindMenuEntry(name)->item).Enabled) << name;
    EXPECT_FALSE(f.mnuFrench.Visible);
}

TEST(Language, ChoosingABankRecaptionsTheWindowAndStoresTheChoice) {
    TestPlatform p;
    auto& f = p.load();
    EXPECT_TRUE(f.mnuEnglish.Checked);
    f.mnuGerman_Click();
    EXPECT_TRUE(f.mnuGerman.Checked);
    EXPECT_FALSE(f.mnuEnglish.Checked);
    EXPECT_EQ(p.settings.read("Parlane", "Language", "Default"), "3000");
    EXPECT_EQ(f.mnuFile.Caption, "&Datei");
    EXPECT_EQ(f.Captions["fraQueue"], "Warteschlange:");
    EXPECT_EQ(f.ToolTips["txtAreaCode"], "Ortsvorwahl");
    // A second click on the ticked language changes nothing.
    p.settings.write("Parlane", "Language", "Default", "x");
    f.mnuGerman_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Language", "Default"), "x");
    f.mnuItalian_Click();
    EXPECT_EQ(f.mnuEdit.Caption, "&Modifica questo messaggio");
    EXPECT_EQ(f.Captions["fraQueue"], "Coda messaggi:");
}

TEST(Language, LeavingTheBrandedBankMovesToTheSettingsFileOfTheNewName) {
    TestPlatform p;
    p.globals.strings.LanguageOffset = 1000;
    p.settings.write("Tonebridge", "Settings", "MaxDial", "5");
    p.settings.write("Tonebridge", "Settings", "Timeout", "45");
    p.settings.write("Parlane", "Settings", "Timeout", "60");
    p.settings.write("Tonebridge", "Location", "AreaCode", "212");
    auto& f = p.load();
    EXPECT_EQ(f.Caption, "Tonebridge");
    EXPECT_EQ(f.mnuSMSC.Caption, "Service &Centers");
    f.mnuFrench_Click();
    EXPECT_EQ(f.Caption, "Parlane");
    EXPECT_EQ(p.settings.read("Parlane", "Language", "Default"), "4000");
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "MaxDial"), "5");
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Timeout"), "60");
    EXPECT_EQ(p.settings.read("Tonebridge", "Settings", "MaxDial"), "5");
    EXPECT_EQ(p.settings.read("Parlane", "Location", "AreaCode"), "212");
    f.mnuGroup_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Group", "View"), "1");
    EXPECT_FALSE(p.settings.read("Tonebridge", "Group", "View"));
}

// A key letter used twice in one menu or dialogue reaches only the first control.
TEST(Language, AcceleratorsAreUniqueWithinEachMenuAndDialogueInEveryBank) {
    std::map<std::string, std::vector<int>> groups;
    for (const auto& e : MainMenuTree())
        if (e.id != 0) groups[e.parent].push_back(e.id);
    groups["frmDirectoryAdd"] = {sid::ButtonSave, sid::ButtonCancel};
    groups["frmImport"] = {sid::ButtonNext, sid::ButtonOpen, sid::ButtonImport, sid::ButtonCancel};
    groups["message box"] = {sid::ButtonYes, sid::ButtonNo};
    for (int offset = 0; offset <= 4000; offset += 1000) {
        for (const auto& [group, ids] : groups) {
            std::set<char> keys;
            for (int id : ids) {
                const std::string text = FindBankString(id + offset).value_or("");
                const auto mark = text.find('&');
                if (mark == std::string::npos || mark + 1 >= text.size()) continue;
                EXPECT_TRUE(keys.insert(Cp1252Lower(text[mark + 1])).second)
                    << "bank offset " << offset << ", " << group << ": " << text;
            }
        }
    }
}

TEST(Panels, TogglesStoreTheirSettingAndResizeTheWindow) {
    TestPlatform p;
    auto& f = p.load();
    const MainLayout small = f.layout;
    EXPECT_EQ(small.MessageQueueColumns, 2);

    f.mnuViewQueue_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Queue", "View"), "1");
    EXPECT_EQ(f.layout.Height, small.Height + 1770);
    EXPECT_EQ(f.layout.Width, small.Width);
    // The status line moves below the queue frame.
    EXPECT_GE(f.layout.lblInfo.Top, f.layout.fraQueue.Bottom());

    f.mnuGroup_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Group", "View"), "1");
    EXPECT_EQ(f.layout.Width, small.Width + 3190);
    EXPECT_EQ(f.layout.MessageQueueColumns, 3);
    EXPECT_EQ(f.layout.fraQueue.Right(), f.layout.fraGroup.Right());
    EXPECT_EQ(f.layout.MessageQueueWidth, f.layout.fraQueue.Width - 300);

    f.mnuGroup_Click();
    f.mnuViewQueue_Click();
    EXPECT_EQ(f.layout, small);
    EXPECT_EQ(f.layout.fraQueue.Right(), f.layout.fraMobile.Right());
    EXPECT_EQ(p.settings.read("Parlane", "Group", "View"), "0");
}

TEST(Panels, StandardTextsOpenAndCloseWithTheirSetting) {
    TestPlatform p;
    auto& f = p.load();
    ASSERT_TRUE(f.mnuTools.Checked);  // shown unless the setting says otherwise
    std::vector<std::string> events;
    f.showForm = [&](const std::string& form) { events.push_back("show " + form); };
    f.unloadForm = [&](const std::string& form) { events.push_back("close " + form); };
    f.mnuTools_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Tools"), "0");
    f.mnuTools_Click();
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Tools"), "1");
    // A change of language opens it again, so that it takes the new texts.
    f.mnuItalian_Click();
    EXPECT_EQ(events, (std::vector<std::string>{"close frmToolWindow", "show frmToolWindow",
                                                "show frmToolWindow"}));
}

TEST(Panels, StartAsTheSettingsLeftThem) {
    TestPlatform p;
    p.settings.write("Parlane", "Queue", "View", "1");
    p.settings.write("Parlane", "Group", "View", "1");
    p.settings.write("Parlane", "Settings", "Tools", "0");
    auto& f = p.load();
    EXPECT_TRUE(f.mnuViewQueue.Checked);
    EXPECT_TRUE(f.mnuGroup.Checked);
    EXPECT_FALSE(f.mnuTools.Checked);
    EXPECT_EQ(f.layout, MainWindowLayout(true, true));
}

TEST(Help, ContentsWithoutAManualSaysSoAndAFailedOpenIsReported) {
    TestPlatform p;
    auto& f = p.load();
    f.HelpFile.clear();
    f.mnuContents_Click();
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_EQ(p.dialogues.shown[0].prompt,
              "Unable to display Help Contents. There is no Help associated with this project.");
    EXPECT_EQ(p.dialogues.shown[0].flags, MbInformation);

    f.HelpFile = "/nowhere/manual.html";
    f.openDocument = [](const std::string&, std::string& error) {
        error = "No viewer for HTML";
        return false;
    };
    f.mnuContents_Click();
    ASSERT_EQ(p.dialogues.shown.size(), 2u);
    EXPECT_EQ(p.dialogues.shown[1].prompt, "No viewer for HTML");
    EXPECT_EQ(p.dialogues.shown[1].flags, MbExclamation);
}

TEST(Help, MailCarriesTheReferenceCodeAndTheDisclaimerHasFiveParagraphs) {
    TestPlatform p;
    p.settings.write("Parlane", "URL", "EmailSupport", "help@example.org");
    auto& f = p.load();
    std::string opened;
    f.openDocument = [&](const std::string& target, std::string&) {
        opened = target;
        return true;
    };
    f.mnuSupportEmail_Click();
    EXPECT_EQ(opened, "mailto:help@example.org?subject=" + f.ReferenceCode);

    f.mnuReadme_Click();
    const auto& box = p.dialogues.shown.back();
    EXPECT_EQ(box.title, "Disclaimer");
    std::size_t paragraphs = 1;
    for (std::size_t at = 0; (at = box.prompt.find("\r\n\r\n", at)) != std::string::npos; at += 4)
        ++paragraphs;
    EXPECT_EQ(paragraphs, 5u);
    EXPECT_EQ(box.prompt.rfind("This software is provided as-is", 0), 0u);
}

TEST(Toolbar, IconsRunTheirMenuCommandsAndDisabledOnesDoNothing) {
    TestPlatform p;
    auto& f = p.load();
    std::vector<std::string> forms;
    f.showForm = [&](const std::string& form) { forms.push_back(form); };
    f.picToolIcons_Click(3);
    EXPECT_EQ(forms, std::vector<std::string>{"frmFolders"});
    EXPECT_EQ(f.busyDepth, 0);  // the busy pointer is back
    f.picToolIcons_Click(2);    // Stop, disabled between calls
    EXPECT_FALSE(f.state.StopPressed);
    bool whatsThis = false;
    f.enterWhatsThis = [&] { whatsThis = true; };
    f.picToolIcons_Click(5);
    EXPECT_TRUE(whatsThis);
}

}  // namespace
}  // namespace parlane
