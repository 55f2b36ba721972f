// The device dialogs' Qt views: fields mirrored by name, keys filtered by the model, OK held
// back by the model's check.
#include "qt/qt_device_dialogs.h"

#include <gtest/gtest.h>

#include <QComboBox>
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
