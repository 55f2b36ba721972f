// The device dialogs' Qt views: fields mirrored by name, keys filtered by the model, OK held
// back by the model's check.
#include "qt/qt_device_dialogs.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "support/test_platform.h"

namespace parlane {
namespace {

TEST(QtDeviceDialogs, OkRunsTheModelsCheckAndKeysGoThroughItsFilter) {
    testing::ScriptedDialogues host;
    Strings strings;
    ModemSettingsForm form(ModemConfig{});
    auto dialog = MakeFieldDialog(form, host, strings, nullptr, "frmModemSettings");
    auto* speed = dialog->findChild<QLineEdit*>("txtSpeed");
    auto* parity = dialog->findChild<QLineEdit*>("txtParity");
    auto* ok = dialog->findChild<QPushButton*>("cmdOK");
    ASSERT_TRUE(speed && parity && ok && dialog->findChild<QLineEdit*>("txtInitString"));
    EXPECT_EQ(dialog->windowTitle(), "Properties");
    EXPECT_EQ(speed->text(), "115200");

    parity->clear();
    QTest::keyClicks(parity, "xe");
    EXPECT_EQ(parity->text(), "E");
    speed->setText("1234");
    ok->click();
    EXPECT_EQ(dialog->result(), QDialog::Rejected);  // still open
    ASSERT_EQ(host.shown.size(), 1u);
    EXPECT_EQ(host.shown[0].prompt, "Please Enter A Valid Speed (bits per second)");
    speed->setText("2400");
    ok->click();
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(form.Result(), (ModemConfig{2400, 8, 'E', 1, false, ""}));
}

}  // namespace
}  // namespace parlane
