// The main window through real key events and real menu actions, and the debug view it opens,
// on the offscreen platform.
#include "qt/main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>

#include "qt/dialogs/debug_window.h"
#include "qt/dialogs/line_option_dialogs.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

TEST(MainWindowKeys, NumberFieldsTakeDigitsOnlyAndNamesCompleteAsTyped) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& form = p.load();
    form.AddDirectoryEntry({"Smithson", "44", "07", "5558", ""});
    form.AddDirectoryEntry({"Smith", "44", "07", "5555", ""});
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

// The message keeps to one paragraph and to the limit of the centre picked in the list, reaches
// the model in its code page, and Queue runs through the model.
TEST(MainWindowKeys, MessageKeepsToTheCentresLimitAndQueues) {
    TestPlatform p;
    auto centre = MakeProvider("Short");
    centre.MaxChars = "5";
    p.writeProviders({MakeProvider("Alpha"), centre});
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* message = window.findChild<QPlainTextEdit*>("txtMessage");
    window.findChild<QComboBox*>("Services")->setCurrentIndex(1);
    QTest::keyClicks(window.findChild<QLineEdit*>("txtAreaCode"), "07");
    QTest::keyClicks(window.findChild<QLineEdit*>("txtNumber"), "5551234");
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
    message->insertPlainText(QString::fromUtf8("\xC3\xA9"));
    EXPECT_EQ(form.txtMessage.Text, "abcd\xE9");

    // Ctrl+Return in the text queues; Ctrl+Q is the desktop's Quit.
    QTest::keyClick(message, Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(UpperBound(form.QueueBuffer), 1);
    EXPECT_EQ(form.QueueBuffer[1].ProviderName, "Short");
    EXPECT_EQ(window.action("mnuExit")->shortcut(), QKeySequence(QKeySequence::Quit));
    EXPECT_TRUE(message->toPlainText().isEmpty());
    EXPECT_EQ(window.findChild<QLabel*>("lblInfo")->text(), "1 Message in Queue");
    // A failed check moves the focus as the model says.
    window.action("mnuQueue")->trigger();
    EXPECT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_TRUE(message->hasFocus() || QApplication::focusWidget() == nullptr);
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
    EXPECT_EQ(window.findChild<QWidget*>("fraQueue")->geometry().right(),
              window.findChild<QWidget*>("fraGroup")->geometry().right());
    window.action("mnuGroup")->trigger();
    window.action("mnuViewQueue")->trigger();
    EXPECT_EQ(client->size(), small);
    EXPECT_FALSE(window.findChild<QWidget*>("fraGroup")->isVisible());
}

// A flooding centre mirrors the window at every read: the online picture is drawn again only
// when its frame changes (each drawing held memory until the pixmap cache was full).
TEST(MainWindowPanels, TheOnlinePictureIsDrawnOncePerFrame) {
    TestPlatform p;
    auto& form = p.load();
    MainWindow window(form);
    form.state.CallActive = true;
    form.onlineFrame = 1;
    window.controlsChanged();
    auto* picture = window.findChild<QLabel*>("Picture1");
    const auto drawn = picture->pixmap().cacheKey();
    for (int i = 0; i < 50; ++i) window.controlsChanged();
    EXPECT_EQ(picture->pixmap().cacheKey(), drawn);
    form.onlineFrame = 2;
    window.controlsChanged();
    EXPECT_NE(picture->pixmap().cacheKey(), drawn);
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
    EXPECT_TRUE(window.action("mnuGerman")->isChecked());
    EXPECT_EQ(window.findChild<QGroupBox*>("fraLogo")->title(), QString("Zu sendende Nachricht:"));
    EXPECT_EQ(window.findChild<QWidget*>("txtAreaCode")->toolTip(), QString("Ortsvorwahl"));
}

TEST(DebugWindow, OpensFromTheCommandAndFollowsThePanesAtTheirCaret) {
    TestPlatform p;
    auto& form = p.load();
    auto& model = form.DebugForm;
    model.Sent("\x02ID\r");  // before the window exists
    MainWindow window(form);
    window.show();
    window.action("mnuDebug2")->trigger();
    auto* debug = window.findChild<DebugWindow*>("frmDebug");
    ASSERT_TRUE(debug && QTest::qWaitForWindowExposed(debug));
    EXPECT_TRUE(p.dialogues.shown.empty());  // no "not available" box
    EXPECT_EQ(debug->windowTitle(), "Monitor SMSC");
    EXPECT_EQ(debug->findChild<QLabel*>("lblFromServer")->text(), "Data Received");
    auto* sent = debug->findChild<QPlainTextEdit*>("ToServer");
    auto* received = debug->findChild<QPlainTextEdit*>("FromServer");
    EXPECT_FALSE(debug->findChild<QPlainTextEdit*>("Text1")->toPlainText().isEmpty());
    EXPECT_EQ(sent->toPlainText(), QString::fromUtf8("\u2402ID\u240d"));

    // Many rows, then the user's caret in the middle of the third: the next text goes there,
    // in the model as in the pane, and the rows still hold the model's text.
    for (int i = 0; i < 40; ++i) model.Received("<6>ID=<13>");
    QTextCursor caret = received->textCursor();
    caret.setPosition(received->document()->findBlockByNumber(2).position() + 1);
    received->setTextCursor(caret);
    const std::size_t at = model.FromServer.SelStart();
    EXPECT_EQ(static_cast<int>(at), caret.position() - 2);  // less the two row ends before it
    const std::string after = model.FromServer.Text().substr(at, 1);
    model.Sent("\x1bPG1\r");
    model.Received("Z");
    EXPECT_EQ(model.FromServer.Text().substr(at, 7), ".....Z" + after);
    EXPECT_GT(received->blockCount(), 3);
    EXPECT_EQ(received->toPlainText().remove('\n'), LinePaneText(model.FromServer.Text()));
    EXPECT_EQ(sent->toPlainText().remove('\n'), LinePaneText(model.ToServer.Text()));

    // Exit empties the line panes and hides; the command shows the same window again.
    debug->findChild<QToolButton*>("cmdExit")->click();
    EXPECT_FALSE(debug->isVisible());
    EXPECT_TRUE(received->toPlainText().isEmpty() && sent->toPlainText().isEmpty());
    window.action("mnuDebug2")->trigger();
    EXPECT_TRUE(debug->isVisible());
    EXPECT_EQ(window.findChildren<DebugWindow*>().size(), 1);
}

}  // namespace
}  // namespace parlane
