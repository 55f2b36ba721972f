// The directory-entry view: keys go through the model's rules, the buttons through its
// handlers, and the view closes when the model unloads.
#include "qt/dialogs/directory_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "support/test_platform.h"
#include "ui/frm_directory_add.h"

namespace parlane {
namespace {

// Runs `body` on the dialogue once it is open.
void WhenOpen(const char* name, std::function<void(QDialog&)> body) {
    QTimer::singleShot(0, [name, body] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* d = qobject_cast<QDialog*>(w); d && d->objectName() == name && d->isVisible())
                return body(*d);
        FAIL() << name << " not open";
    });
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
