// The Qt side on the offscreen platform: the window comes up beside odd tables, settings keep
// their bytes, and the real loop's waits serve timers.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <fstream>
#include <thread>

#include "core/timer.h"
#include "qt/application.h"
#include "qt/main_window.h"
#include "qt/qt_event_loop.h"
#include "qt/qt_settings_store.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

TEST(QtMainWindow, ComesUpAtOnceBesideAFifoAndAHugeTable) {
    testing::TestPlatform p;
    ::mkfifo((p.home / "smsc.dat").c_str(), 0600);
    std::filesystem::resize_file((std::ofstream(p.home / "phones.dat"), p.home / "phones.dat"),
                                 100u << 20);
    const auto started = std::chrono::steady_clock::now();
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(1));
    // Both are said again once the start is over, whatever the later steps wrote.
    EXPECT_EQ(window.findChild<QLabel*>("lblInfo")->text().toStdString(),
              "smsc.dat: Not an ordinary file, set aside as smsc.dat.damaged-1; "
              "phones.dat: Larger than 32 MB, set aside as phones.dat.damaged-1  ");
}

TEST(QtSettings, IniKeepsEveryByteAndMissingKeysAreMissing) {
    QTemporaryDir dir;
    QtSettingsStore store(dir.path());
    std::string all;
    for (int b = 32; b < 256; ++b) all += static_cast<char>(b);
    store.write("Parlane", "Texts", "Note1", all);
    store.write("Parlane", "Settings", "MaxDial", "5");
    QtSettingsStore again(dir.path());
    EXPECT_EQ(again.read("Parlane", "Texts", "Note1"), all);
    EXPECT_EQ(again.read("Parlane", "Settings", "MaxDial"), "5");
    EXPECT_FALSE(again.read("Parlane", "Settings", "Timeout"));
    EXPECT_FALSE(again.read("Tonebridge", "Settings", "MaxDial"));
    EXPECT_TRUE(QFile::exists(dir.path() + "/Parlane.ini"));
}

TEST(QtEventLoop, WaitServesTimersAndPostsFromThreads) {
    QtEventLoop loop;
    int ticks = 0;
    Timer t(loop, "t", 20, true, [&] { ++ticks; });
    loop.waitSecs(0.15);
    EXPECT_GE(ticks, 4);
    t.setEnabled(false);
    bool posted = false;
    std::thread([&] { loop.post([&] { posted = true; }); }).join();
    loop.runUntil([&] { return posted; });
    EXPECT_TRUE(posted);
}

TEST(ProgramOptions, OwnOptionsComeBeforeTheNameAndMessage) {
    auto o = ParseProgramOptions({"--home", "/tmp/h", "--demo", "Alice", "--home", "x"});
    EXPECT_EQ(o.home, "/tmp/h");
    EXPECT_TRUE(o.demo);
    EXPECT_EQ(o.rest, (std::vector<std::string>{"Alice", "--home", "x"}));
    // A word with a dash is never a name, unless "--" ended the options.
    const std::pair<std::vector<std::string>, std::string> errors[] = {
        {{"--home"}, "--home needs a folder"},
        {{"--bogus"}, "unknown option --bogus"},
        {{"-v", "hi"}, "unknown option -v"},
        {{"--version"}, "version"},
        {{"-h"}, "help"},
        {{"--", "-v", "hi"}, ""},
    };
    for (const auto& [arguments, error] : errors)
        EXPECT_EQ(ParseProgramOptions(arguments).error, error) << arguments.front();
    EXPECT_EQ(ParseProgramOptions({"--", "-v", "hi"}).rest, (std::vector<std::string>{"-v", "hi"}));
}

}  // namespace
}  // namespace parlane
