// The main window through real key events and real menu actions, on the offscreen platform.
#include "qt/main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include "line/sim/simulated_modem.h"
#include "qt/dialogs/line_option_dialogs.h"
#include "qt/qt_event_loop.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

DirectoryEntry Entry(const std::string& name) {
    DirectoryEntry e;
    e.Name = name;
    e.CountryCode = "44";
    e.AreaCode = "07";
    e.Number = "555" + std::to_string(name.size());
    return e;
}

TEST(MainWindowKeys, NumberFieldsTakeDigitsOnlyAndNamesCompleteAsTyped) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& form = p.load();
    form.AddDirectoryEntry(Entry("Smithson"));
    form.AddDirectoryEntry(Entry("Smith"));
    MainWindow window(form);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    auto* number = window.findChild<QLineEdit*>("txtNumber");
    auto* names = window.findChild<QComboBox*>("Names")->lineEdit();
    ASSERT_TRUE(number && names);
    names->setText("x");
    form.Names.Text = "x";
    QTest::keyClicks(number, "5a+1");
    EXPECT_EQ(number->text(), "5+1");
    EXPECT_EQ(form.txtNumber.Text, "5+1");
    EXPECT_EQ(names->text(), "Names");  // a typed number belongs to no name

    names->clear();
    form.Names.Text.clear();
    QTest::keyClicks(names, "smi");
    EXPECT_EQ(names->text(), "smith");
    EXPECT_EQ(names->selectedText(), "th");
    QTest::keyClick(names, Qt::Key_Backspace);
    EXPECT_EQ(names->text(), "smi");  // shortening does not complete again

    // Leaving the box fills the panel from the entry.
    names->setFocus();
    QTest::keyClicks(names, "th");
    window.findChild<QPlainTextEdit*>("txtMessage")->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(form.txtNumber.Text, "5555");
}

TEST(MainWindowKeys, MessageKeepsToOneParagraphAndTheCentresLimit) {
    TestPlatform p;
    auto centre = MakeProvider("Short");
    centre.MaxChars = "5";
    p.writeProviders({centre});
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    auto* message = window.findChild<QPlainTextEdit*>("txtMessage");
    message->setFocus();
    QTest::keyClicks(message, "ab");
    QTest::keyClick(message, Qt::Key_Return);
    QTest::keyClicks(message, "cdefg");
    EXPECT_EQ(message->toPlainText(), "abcde");
    EXPECT_EQ(window.findChild<QLabel*>("lblTextCounter")->text(), "5");
    EXPECT_EQ(window.findChild<QLabel*>("lblTotal")->text(), "/5");
    EXPECT_FALSE(window.action("mnuInsert")->isEnabled());  // at the limit exactly
    QTest::keyClick(message, Qt::Key_Backspace);
    EXPECT_TRUE(window.action("mnuInsert")->isEnabled());
}

TEST(MainWindowPanels, MenuTogglesGrowTheWindowByThePanels) {
    TestPlatform p;
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    QWidget* client = window.centralWidget();
    const QSize small = client->size();
    window.action("mnuViewQueue")->trigger();
    EXPECT_EQ(client->height(), small.height() + 1770 / MainWindow::kTwipsPerPixel);
    EXPECT_TRUE(window.findChild<QWidget*>("fraQueue")->isVisible());
    window.action("mnuGroup")->trigger();
    EXPECT_EQ(client->width(), small.width() + 3190 / MainWindow::kTwipsPerPixel);
    EXPECT_TRUE(window.action("mnuGroup")->isChecked());
    const auto* queue = window.findChild<QWidget*>("fraQueue");
    const auto* group = window.findChild<QWidget*>("fraGroup");
    EXPECT_EQ(queue->geometry().right(), group->geometry().right());
    window.action("mnuGroup")->trigger();
    window.action("mnuViewQueue")->trigger();
    EXPECT_EQ(client->size(), small);
    EXPECT_FALSE(window.findChild<QWidget*>("fraGroup")->isVisible());
}

TEST(MainWindowLanguage, ChoosingGermanRecaptionsTheOpenWindows) {
    TestPlatform p;
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    ASSERT_NE(window.findChild<QWidget*>("frmToolWindow"), nullptr);
    window.action("mnuDebug2")->trigger();
    window.action("mnuGerman")->trigger();
    // The standard texts at once, a dialogue when it is next opened.
    const auto tools = window.findChildren<QWidget*>("frmToolWindow");
    ASSERT_EQ(tools.size(), 1);
    EXPECT_EQ(tools[0]->windowTitle(), QString("Standardtexte"));
    EXPECT_TRUE(tools[0]->isVisible());
    EXPECT_EQ(DialDialog(&window, form).windowTitle(), QString("Wählversuche"));
    const auto* debug = window.findChild<QWidget*>("frmDebug");
    ASSERT_NE(debug, nullptr);
    EXPECT_TRUE(debug->isVisible());
    EXPECT_EQ(debug->windowTitle(), QString("SMS-Zentrale überwachen"));
    EXPECT_EQ(debug->findChild<QLabel*>("lblText1")->text(), QString("TAPI-Meldungen"));
    EXPECT_EQ(window.action("mnuFile")->text(), "&Datei");
    EXPECT_EQ(window.action("mnuExit")->text(), "&Beenden");
    EXPECT_TRUE(window.action("mnuGerman")->isChecked());
    EXPECT_FALSE(window.action("mnuEnglish")->isChecked());
    EXPECT_EQ(window.findChild<QGroupBox*>("fraLogo")->title(), QString("Zu sendende Nachricht:"));
    EXPECT_EQ(window.findChild<QWidget*>("txtAreaCode")->toolTip(), QString("Ortsvorwahl"));
}

// One whole message on the real loop through the simulated modem: the menus follow the call.
TEST(MainWindowRun, QueueAndSendThroughTheSimulatedModem) {
    TestPlatform p;
    Provider centre = MakeProvider("Demo TAP");
    centre.AreaCode = "0800";
    centre.Number = "100100";
    p.writeProviders({centre});
    QtEventLoop loop;
    SimulatedModem modem(loop);
    frmMain form(Platform{loop, p.settings, p.dialogues, p.formats, modem, modem, p.home},
                 p.globals);
    form.Form_Load();
    MainWindow window(form);
    window.show();
    testing::Compose(form, "Real loop", "44", "07700", "900123");
    window.controlsChanged();
    window.action("mnuQueue")->trigger();
    ASSERT_EQ(UpperBound(form.QueueBuffer), 1);
    window.action("mnuSend")->trigger();

    bool sawCall = false;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            if (form.state.CallActive && !sawCall) {
                sawCall = true;
                EXPECT_FALSE(window.action("mnuSend")->isEnabled());
                EXPECT_FALSE(window.action("mnuQueue")->isEnabled());
                EXPECT_TRUE(window.action("mnuHangUp")->isEnabled());
                EXPECT_TRUE(window.findChild<QLabel*>("lblOnline")->isVisibleTo(&window));
            }
            return p.archiveFiles().size() == 1 && !form.state.CallActive;
        }(),
        30000);
    EXPECT_TRUE(sawCall);
    EXPECT_NE(p.archiveFile(p.archiveFiles()[0]).find("Real loop"), std::string::npos);
    EXPECT_TRUE(window.action("mnuSend")->isEnabled());
    EXPECT_FALSE(window.action("mnuHangUp")->isEnabled());
    form.Form_QueryUnload();
    form.Form_Unload();
}

}  // namespace
}  // namespace parlane
