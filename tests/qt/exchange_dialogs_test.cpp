// The import and export wizard's view on the offscreen platform: its buttons drive the model
// through both paths, and the main window's Names box follows an import.
#include "qt/dialogs/exchange_dialogs.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "exchange/frm_backup.h"
#include "qt/qt_file_choosers.h"
#include "store/directory.h"
#include "support/temp_files.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using namespace testing;

void Click(QDialog& dialog, const char* name) {
    auto* button = dialog.findChild<QAbstractButton*>(name);
    ASSERT_TRUE(button) << name;
    ASSERT_FALSE(button->isHidden()) << name;
    button->click();
}

TEST(QtImportWizard, ExportsAndImportsThroughItsButtons) {
    testing::TestPlatform p;
    p.writeDirectory({{"Ann", "44", "07", "1234", "Voda"}, {"Bob", "31", "", "555", ""}});
    auto& form = p.load();
    PickedFile chooser;
    {
        ImportDialog wizard(nullptr, form, chooser);
        wizard.show();
        EXPECT_TRUE(wizard.findChild<QPushButton*>("cmdOpen")->isHidden());
        Click(wizard, "optExport");
        Click(wizard, "cmdExport");
        EXPECT_EQ(wizard.result(), QDialog::Accepted);
        EXPECT_FALSE(wizard.isVisible());
    }
    // The exported file (without it Cid would be taken for the header) with one new name and a
    // duplicate differing in case.
    chooser.file = p.home / "in.csv";
    WriteBytes(*chooser.file, ReadBytes(p.home / "phones.csv") +
                                  "\"Cid\",\"+1\",\"(2)\",\"3-4\"\r\n" +
                                  "\"ann\",\"9\",\"9\",\"9\"\r\n");
    ImportDialog wizard(nullptr, form, chooser);
    wizard.show();
    Click(wizard, "optImport");
    Click(wizard, "cmdExport");
    EXPECT_TRUE(wizard.findChild<QPushButton*>("cmdExport")->isHidden());
    Click(wizard, "cmdOpen");
    EXPECT_TRUE(wizard.findChild<QPushButton*>("cmdOpen")->isHidden());
    Click(wizard, "cmdOK");
    EXPECT_FALSE(wizard.isVisible());
    EXPECT_EQ(form.Directory.size(), 3u);
    EXPECT_EQ(form.Names.rows, (std::vector<std::string>{"Ann", "Bob", "Cid"}));
    EXPECT_EQ(form.Names.ListIndex, 0);
    EXPECT_TRUE(std::filesystem::exists(p.home / "phones.bak"));
}

TEST(QtBackupWindow, BrowseShowsTheFolderAndOkCopiesIntoIt) {
    testing::TestPlatform p;
    p.writeDirectory({{"Ann", "44", "07", "1234", ""}});
    auto& form = p.load();
    PickedFolder chooser;
    const auto folder = p.home / "backup";
    chooser.folder = folder;
    std::filesystem::create_directories(folder);
    frmBackup model(p.home, "/", form.globals().strings, p.dialogues, chooser);
    model.Form_Load();
    TableCopyDialog window(nullptr, "frmBackup", model, [&model] { model.cmdOK_Click(); });
    window.show();
    Click(window, "cmdBrowse");
    EXPECT_EQ(window.findChild<QLineEdit*>("Dir1")->text(), PathToQt(folder));
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(ReadBytes(folder / "phones.dat"), ReadBytes(p.home / "phones.dat"));
    EXPECT_NE(ReadBytes(folder / "phones.dat"), "");
    EXPECT_TRUE(std::filesystem::exists(folder / "group.dat"));
}

TEST(QtFileChoosers, FiltersInQtsFormAndCancelWithNoScreen) {
    EXPECT_EQ(QtFileFilter("Comma Separated Files (*.csv)|*.csv"), "Comma Separated Files (*.csv)");
    EXPECT_EQ(QtFileFilter("Text|*.txt;*.log|All|*.*"), "Text (*.txt *.log);;All (*.*)");
    QtOpenFileChooser file;
    QtFolderChooser folder;
    EXPECT_FALSE(file.chooseOpenFile("t", "/", "*.csv", "Text|*.txt"));
    EXPECT_FALSE(folder.chooseFolder("t", "/"));
}

}  // namespace
}  // namespace parlane
