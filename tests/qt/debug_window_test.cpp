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

using testing::TestPlatform;

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
