// The editors' views. The centre editor: a centre added by real key events carries a message
// through the simulated modem, and a block edited with &Properties reaches the line before the
// dial. The directory entry: keys go through the model's rules, the buttons through its handlers,
// and the view closes when the model unloads.
#include "qt/dialogs/centre_dialog.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "config/frm_smsc_edit.h"
#include "core/file_io.h"
#include "line/sim/simulated_modem.h"
#include "qt/dialogs/directory_dialogs.h"
#include "qt/main_window.h"
#include "qt/qt_event_loop.h"
#include "support/test_platform.h"
#include "ui/frm_directory_add.h"

namespace parlane {
namespace {

using testing::TestPlatform;

// Runs `body` on the dialogue once it is open.
void WhenOpen(const char* name, std::function<void(QDialog&)> body) {
    QTimer::singleShot(0, [name, body] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* d = qobject_cast<QDialog*>(w); d && d->objectName() == name && d->isVisible())
                return body(*d);
        FAIL() << name << " not open";
    });
}

void Retype(QDialog& d, const char* field, const char* keys) {
    auto* edit = d.findChild<QLineEdit*>(field);
    ASSERT_TRUE(edit) << field;
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, keys);
}

TEST(QtCentreEditor, ACentreAddedByKeysCarriesAMessage) {
    TestPlatform p;
    p.writeProviders({});  // a fresh home: one empty centre
    QtEventLoop loop;
    SimulatedModem modem(loop);
    frmMain form(Platform{loop, p.settings, p.dialogues, p.formats, modem, modem, p.home},
                 p.globals);
    form.Form_Load();
    MainWindow window(form);
    window.show();
    WhenOpen("frmSMSCEdit", [&](QDialog& d) {
        Retype(d, "txtProviderName", "Sim UCP");
        Retype(d, "txtCountryCode", "44");
        Retype(d, "txtAreaCode", "0800");
        Retype(d, "txtNumber", "10x0101");
        EXPECT_EQ(d.findChild<QLineEdit*>("txtNumber")->text(), "100101");
        auto* ucp = d.findChild<QRadioButton*>("optProtocol_1");
        ASSERT_TRUE(ucp);
        QTest::mouseClick(ucp, Qt::LeftButton);
        EXPECT_TRUE(d.findChild<QComboBox*>("cboUCPOperation")->isEnabled());
        EXPECT_FALSE(d.findChild<QCheckBox*>("chkASCII")->isEnabled());
        // The simulated modem is never proposed: the person picks it.
        auto* device = d.findChild<QComboBox*>("cboTapiDevice");
        EXPECT_EQ(device->currentIndex(), -1);
        QTest::keyClick(device, Qt::Key_Down);
        EXPECT_EQ(device->currentText(), SimulatedModem::kLineName);
        d.findChild<QPushButton*>("cmdProviderItemOk")->click();
        if (d.isVisible()) d.reject();  // refused: the checks below tell
    });
    window.action("mnuNewSMSC")->trigger();
    // The empty record of the fresh home gives way: the file holds the new centre alone.
    ASSERT_EQ(form.Providers.size(), 1u);
    EXPECT_EQ(ParseProviderFile(*ReadWholeFile(p.home / "smsc.dat")).records.size(), 1u);
    EXPECT_EQ(form.Services.Text, "Sim UCP");
    EXPECT_EQ(form.Providers[0].Protocol, ProtocolUcp);
    EXPECT_TRUE(p.dialogues.shown.empty());
    EXPECT_EQ(window.findChild<QLabel*>("lblLine")->text().toStdString(),
              std::string("Line: ") + SimulatedModem::kLineName);

    testing::Compose(form, "Through a centre of my own", "44", "07700", "900123");
    window.controlsChanged();
    window.action("mnuQueue")->trigger();
    ASSERT_EQ(UpperBound(form.QueueBuffer), 1);
    EXPECT_EQ(form.QueueBuffer[1].ProviderName, "Sim UCP");
    window.action("mnuSend")->trigger();
    // The menus follow the call.
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
    EXPECT_EQ(p.archiveStatuses(),
              std::vector<std::string>{"Message Sent Successfully (simulated)"});
    // The panel is back on the centre in use, ready for the next message.
    EXPECT_EQ(form.Services.Text, "Sim UCP");
    EXPECT_EQ(form.lblTotal.Caption, "/160");
    EXPECT_TRUE(window.action("mnuSend")->isEnabled());
    EXPECT_FALSE(window.action("mnuHangUp")->isEnabled());
    form.Form_QueryUnload();
    form.Form_Unload();
}

TEST(QtCentreEditor, PropertiesGiveTheBlockTheLineGetsBeforeTheDial) {
    TestPlatform p;
    p.writeProviders({testing::MakeProvider("Alpha")});
    p.line.editedDevConfig = {7, 8, 1, 'E', 1};
    auto& form = p.load();
    MainWindow window(form);
    window.show();
    p.settings.write("Parlane", "Settings", "FirstEdit", "1");
    WhenOpen("frmSMSCEdit", [&](QDialog& d) {
        // A character the code page lacks is refused, and stays on screen as typed.
        auto* password = d.findChild<QLineEdit*>("txtPassword");
        QTest::keyClicks(password, "p");
        QKeyEvent omega(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                        QString::fromUtf8("\u03a9"));
        QApplication::sendEvent(password, &omega);
        d.findChild<QPushButton*>("cmdProviderItemOk")->click();
        EXPECT_TRUE(d.isVisible());
        EXPECT_EQ(password->text(), QString::fromUtf8("p\u03a9"));
        EXPECT_TRUE(password->hasFocus() || !QApplication::focusWidget());
        QTest::keyClick(password, Qt::Key_Backspace);
        d.findChild<QPushButton*>("cmdLineConfigDialog")->click();
        d.findChild<QPushButton*>("cmdProviderItemOk")->click();
    });
    window.action("mnuEditSMSC")->trigger();
    ASSERT_EQ(p.dialogues.shown.size(), 1u);
    EXPECT_NE(p.dialogues.shown[0].prompt.find("Logon Password"), std::string::npos);
    EXPECT_EQ(form.Providers[0].Password, "p");
    EXPECT_EQ(form.Providers[0].DevConfig, p.line.editedDevConfig);

    testing::QueueTexts(form, {"Framed"});
    form.mnuSend_Click();
    p.loop.runUntil([&] { return !p.line.dialled.empty(); });
    const auto set = std::find(p.line.log.begin(), p.line.log.end(), "set dev config 5");
    ASSERT_NE(set, p.line.log.end());
    EXPECT_LT(set - p.line.log.begin(),
              std::find_if(p.line.log.begin(), p.line.log.end(), [](const std::string& s) {
                  return s.rfind("translate", 0) == 0;
              }) - p.line.log.begin());
}

TEST(QtDirectoryDialogs, EntryKeysAndSaveGoThroughTheModel) {
    testing::TestPlatform p;
    p.writeProviders({testing::MakeProvider("Alpha")});
    auto& form = p.load();
    frmDirectoryAdd model(form, {"", "44", "", "", "Alpha"});
    model.Form_Load();
    WhenOpen("frmDirectoryAdd", [&](QDialog& d) {
        EXPECT_TRUE(d.findChild<QCheckBox*>("chkUseService")->isChecked());
        EXPECT_EQ(d.findChild<QComboBox*>("Country")->count(), 242);
        auto* number = d.findChild<QLineEdit*>("txtNumber");
        QTest::keyClicks(number, "5a+1");
        EXPECT_EQ(number->text(), "5+1");
        QTest::keyClicks(d.findChild<QLineEdit*>("txtAreaCode"), "07");
        d.findChild<QPushButton*>("cmdProviderItemOk")->click();  // no name yet
        EXPECT_TRUE(d.isVisible());
        QTest::keyClicks(d.findChild<QLineEdit*>("txtName"), "Cleo");
        d.findChild<QPushButton*>("cmdProviderItemOk")->click();
    });
    ShowDirectoryAddDialog(nullptr, model);
    EXPECT_TRUE(model.unloaded);
    EXPECT_EQ(p.dialogues.shown.at(0).prompt, "Please Enter A Name");
    ASSERT_EQ(form.Directory.size(), 1u);
    EXPECT_EQ(form.Directory[0], (DirectoryEntry{"Cleo", "44", "07", "5+1", "Alpha"}));
}

}  // namespace
}  // namespace parlane
