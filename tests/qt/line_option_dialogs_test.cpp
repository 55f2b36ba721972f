// The line-option and device dialogues on the offscreen platform: real key events reach the
// model's filters, fields are mirrored by name, and OK runs the model's checks in their order.
#include "qt/dialogs/line_option_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "core/string_bank.h"
#include "core/string_ids.h"
#include "qt/dialogs/tool_window.h"
#include "qt/main_window.h"
#include "qt/qt_device_dialogs.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

void ShowActive(QWidget& window) {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(QtOriginatorDialog, TypedKeysPassTheModelsFilter) {
    testing::TestPlatform p;
    auto& form = p.load();
    OriginatorDialog dialog(nullptr, form);
    ShowActive(dialog);
    auto* id = dialog.findChild<QLineEdit*>("txtID");
    ASSERT_TRUE(id && dialog.findChild<QLabel*>("Label3"));
    id->setFocus();
    EXPECT_EQ(id->selectedText(), "12345");  // the focus selects the whole text
    QTest::keyClick(id, Qt::Key_Backspace);
    EXPECT_EQ(dialog.model().txtID.Text, "");

    QTest::keyClicks(id, "+12345678x90123456+7");
    EXPECT_EQ(id->text(), "1234567890123456");  // "+", "x" and the 17th digit dropped
    EXPECT_EQ(dialog.model().txtID.Text, "1234567890123456");
    QTest::keyClick(id, Qt::Key_Home);
    QTest::keyClick(id, '7');  // refused wherever the caret stands
    EXPECT_EQ(id->text(), "1234567890123456");
    QTest::keyClick(id, Qt::Key_End);
    QTest::keyClick(id, Qt::Key_Backspace);
    QTest::keyClick(id, '9');
    EXPECT_EQ(id->text(), "1234567890123459");

    dialog.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(form.state.OriginatorId, "1234567890123459");
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Originator"), "1234567890123459");
}

TEST(QtTimeoutDialog, RefusalsKeepItOpenAndThirtyCloses) {
    testing::TestPlatform p;
    auto& form = p.load();
    TimeoutDialog dialog(nullptr, form);
    ShowActive(dialog);
    auto* secs = dialog.findChild<QLineEdit*>("txtResponseSecs");
    auto* ok = dialog.findChild<QPushButton*>("cmdOK");
    ASSERT_TRUE(secs && ok);
    secs->setFocus();

    const struct {
        const char* typed;
        int refusal;  // 0: accepted
    } steps[] = {{"29", sid::MustEnterAtLeast30}, {"4a0000", sid::NumberTooLarge}, {"3-0", 0}};
    for (const auto& step : steps) {
        secs->selectAll();
        QTest::keyClick(secs, Qt::Key_Backspace);
        QTest::keyClicks(secs, step.typed);
        const auto shownBefore = p.dialogues.shown.size();
        ok->click();
        if (step.refusal) {
            ASSERT_EQ(p.dialogues.shown.size(), shownBefore + 1) << step.typed;
            EXPECT_EQ(p.dialogues.shown.back().prompt, FindBankString(step.refusal));
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_TRUE(secs->hasFocus());
            EXPECT_EQ(secs->selectedText(), secs->text());
            EXPECT_FALSE(p.settings.read("Parlane", "Settings", "Timeout"));
            EXPECT_EQ(form.ResponseTimeoutSecs, 30);
        }
    }
    EXPECT_EQ(p.dialogues.shown.size(), 2u);  // "a" never reached the box
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(p.settings.read("Parlane", "Settings", "Timeout"), "30");
}

TEST(QtToolWindow, AnIconAddsItsTextToTheMainWindowsMessage) {
    testing::TestPlatform p;
    p.writeProviders({testing::MakeProvider("Alpha")});
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    ToolWindow tools(&window, form);
    tools.show();
    EXPECT_TRUE(tools.windowFlags() & Qt::Tool);
    auto* date = tools.findChild<QToolButton*>("picToolIcons_8");
    ASSERT_TRUE(date);
    auto* menu = tools.findChild<QMenu*>("mnuEdit");
    ASSERT_TRUE(menu);
    QStringList names;
    for (auto* action : menu->actions())
        if (!action->isSeparator()) names << action->objectName();
    EXPECT_EQ(names, QStringList({"mnuSig", "mnu1", "mnu2", "mnu3", "mnu4", "mnu5", "mnu6"}));

    auto* message = window.findChild<QPlainTextEdit*>("txtMessage");
    message->setPlainText("Seen ");
    date->click();
    EXPECT_EQ(message->toPlainText(), "Seen 02/01/2026");
}

TEST(QtDeviceDialogs, OkRunsTheModelsCheckAndKeysGoThroughItsFilter) {
    testing::ScriptedDialogues host;
    Strings strings;
    ModemSettingsForm form(ModemConfig{});
    auto dialog = MakeFieldDialog(form, host, strings, nullptr, "frmModemSettings");
    auto* speed = dialog->findChild<QComboBox*>("txtSpeed");
    auto* dataBits = dialog->findChild<QComboBox*>("txtDataBits");
    auto* framing = dialog->findChild<QComboBox*>("cboFraming");
    auto* init = dialog->findChild<QLineEdit*>("txtInitString");
    auto* ok = dialog->findChild<QPushButton*>("cmdOK");
    ASSERT_TRUE(speed && dataBits && framing && init && ok);
    EXPECT_EQ(dialog->windowTitle(), "Properties");
    EXPECT_EQ(speed->currentText(), "115200");
    EXPECT_EQ(dialog->findChild<QComboBox*>("txtParity")->currentText(), "None");

    // The ready 7E1 sets the three lists; a list changed by hand leaves the ready framings.
    framing->setCurrentIndex(1);
    emit framing->activated(1);
    EXPECT_EQ(dataBits->currentText(), "7");
    EXPECT_EQ(dialog->findChild<QComboBox*>("txtParity")->currentText(), "Even");
    dialog->findChild<QComboBox*>("txtStopBits")->setCurrentIndex(1);
    EXPECT_EQ(framing->currentIndex(), -1);

    QTest::keyClicks(init, "xZZ");
    EXPECT_EQ(init->text(), "xZZ");
    ok->click();
    EXPECT_EQ(dialog->result(), QDialog::Rejected);  // still open
    ASSERT_EQ(host.shown.size(), 1u);
    EXPECT_EQ(host.shown[0].prompt, "Please Enter A Valid Initialisation Command (AT...)");
    init->setText("ATM0");
    speed->setCurrentIndex(speed->findText("2400"));
    ok->click();
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(form.Result(), (ModemConfig{2400, 7, 'E', 2, false, "ATM0"}));
}

}  // namespace
}  // namespace parlane
