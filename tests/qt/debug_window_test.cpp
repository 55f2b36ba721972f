// The debug view from the main window's command, on the offscreen platform.
#include "qt/dialogs/debug_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>

#include "qt/main_window.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

TEST(DebugWindow, OpensFromTheCommandAndFollowsThePanesAtTheirCaret) {
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& form = p.load();
    form.DebugForm.Sent(
        "\x02"
        "ID\r");  // before the window exists
    MainWindow window(form);
    window.show();
    window.action("mnuDebug2")->trigger();
    auto* debug = window.findChild<DebugWindow*>("frmDebug");
    ASSERT_TRUE(debug);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(debug));
    EXPECT_TRUE(p.dialogues.shown.empty());  // no "not available" box
    EXPECT_EQ(debug->windowTitle(), "Monitor SMSC");
    EXPECT_EQ(debug->findChild<QLabel*>("lblFromServer")->text(), "Data Received");
    EXPECT_EQ(debug->findChild<QToolButton*>("cmdSave")->toolTip(), "Save To File");
    auto* sent = debug->findChild<QPlainTextEdit*>("ToServer");
    auto* received = debug->findChild<QPlainTextEdit*>("FromServer");
    auto* log = debug->findChild<QPlainTextEdit*>("Text1");
    ASSERT_TRUE(sent && received && log);
    EXPECT_EQ(sent->toPlainText(), QString::fromUtf8("\u2402ID\u240d"));
    EXPECT_FALSE(log->toPlainText().isEmpty());

    form.DebugForm.Received("ID=<13>");
    EXPECT_EQ(received->toPlainText(), "....ID=<13>");
    // The user's caret is where the next text goes, in the model as in the pane.
    QTextCursor caret = received->textCursor();
    caret.setPosition(4);
    received->setTextCursor(caret);
    form.DebugForm.Sent("PG1");
    EXPECT_EQ(form.DebugForm.FromServer.Text(), ".......ID=<13>");
    // Over many rows, and inserting in the middle of one: the rows hold the box's text.
    const auto shown = [](QPlainTextEdit* pane) { return pane->toPlainText().remove('\n'); };
    for (int i = 0; i < 40; ++i) form.DebugForm.Received("<6>ID=<13>");
    caret = received->textCursor();
    caret.setPosition(received->document()->findBlockByNumber(2).position() + 1);
    received->setTextCursor(caret);
    const std::size_t at = form.DebugForm.FromServer.SelStart();
    EXPECT_EQ(static_cast<int>(at), caret.position() - 2);  // less the two row ends before it
    const std::string after = form.DebugForm.FromServer.Text().substr(at, 1);
    form.DebugForm.Sent(
        "\x1b"
        "PG1\r");
    EXPECT_GT(received->blockCount(), 3);
    EXPECT_EQ(shown(received), LinePaneText(form.DebugForm.FromServer.Text()));
    EXPECT_EQ(shown(sent), LinePaneText(form.DebugForm.ToServer.Text()));
    EXPECT_EQ(form.DebugForm.FromServer.Text().substr(at, 6), "....." + after);

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
