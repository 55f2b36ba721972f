// The archive windows on the offscreen platform: the browser lists, opens and sends again through
// its own widgets, deletes to a private trash, and the viewer's print layout makes a PDF.
#include "qt/dialogs/archive_windows.h"

#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPrinter>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "archive/frm_open.h"
#include "core/file_io.h"
#include "qt/qt_printer.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::TestPlatform;

std::string Output(const std::string& command) {
    std::string out;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            out.append(buffer, n);
        ::pclose(pipe);
    }
    return out;
}

// Runs `step` inside the modal window that opens next.
void InModal(const std::function<void(QWidget&)>& step) {
    QTimer::singleShot(100, [step] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        step(*window);
    });
}

TEST(ArchiveWindows, BrowserOpensSendsAgainAndTrashes) {
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());  // the trash of this test alone
    TestPlatform p;
    p.writeProviders({MakeProvider("Alpha")});
    auto& f = p.load();
    f.SaveToOutbox("Message Sent Successfully", {"44", "07802", "123456", "again", 1, 0, "Alpha"});
    f.SaveToOutbox("Message Sent Successfully", {"44", "07802", "654321", "bin me", 2, 0, "Alpha"});
    ASSERT_EQ(p.archiveFiles().size(), 2u);

    bool sawList = false, resent = false;
    InModal([&](QWidget& browser) {
        auto* tree = browser.findChild<QTreeWidget*>("tvwView");
        auto* list = browser.findChild<QTableView*>("lstData");
        ASSERT_TRUE(tree && list);
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));  // Outbox
        sawList = list->model()->rowCount() == 2;
        // Newest first: the second file heads the list.
        list->setFocus();
        list->selectRow(1);
        InModal([&](QWidget& viewer) {
            viewer.findChild<QPushButton*>("cmdResend")->click();
            resent = true;
        });
        QTest::keyClick(list, Qt::Key_Return);
        // Delete asks first: No keeps the message, Yes puts it in the trash.
        list->selectRow(0);
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(list->model()->rowCount(), 2);
        EXPECT_EQ(p.dialogues.shown.back().prompt.rfind("Move to the trash: ", 0), 0u);
        p.dialogues.answers.push_back(AnswerYes);
        list->selectRow(0);
        QTest::keyClick(list, Qt::Key_Delete);
        EXPECT_EQ(list->model()->rowCount(), 1);
        browser.close();
    });
    ShowFoldersWindow(nullptr, f);
    EXPECT_TRUE(sawList);
    EXPECT_TRUE(resent);
    ASSERT_EQ(UpperBound(f.QueueBuffer), 1);
    EXPECT_EQ(f.QueueBuffer[1].Text, "again");
    EXPECT_EQ(p.archiveFiles().size(), 1u);
    EXPECT_EQ(QDir(data.path() + "/Trash/files").entryList(QDir::Files).size(), 1);
}

// Two rows of the list dropped on another folder move there; a drop on the folder shown is refused.
TEST(ArchiveWindows, DraggingRowsOntoAFolderMovesThem) {
    TestPlatform p;
    auto& f = p.load();
    for (const char* text : {"one", "two", "three"})
        f.SaveToOutbox("Message Sent Successfully", {"44", "07802", "1", text, 1, 0, "Alpha"});
    std::filesystem::create_directories(p.home / "SMS" / "Kept");

    auto drop = [](QTreeWidget& tree, QTreeWidgetItem* on, QMimeData& data) {
        const QPoint at = tree.visualItemRect(on).center();
        QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &enter);
        QDragMoveEvent move(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &move);
        QDropEvent dropped(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &dropped);
        return dropped.isAccepted();
    };
    bool refusedOnOwnFolder = false, acceptedOnOther = false;
    int left = -1;
    InModal([&](QWidget& browser) {
        auto* tree = browser.findChild<QTreeWidget*>("tvwView");
        auto* list = browser.findChild<QTableView*>("lstData");
        ASSERT_TRUE(tree && list);
        QTreeWidgetItem* outbox = nullptr;
        QTreeWidgetItem* kept = nullptr;
        for (int i = 0; i < tree->topLevelItem(0)->childCount(); ++i) {
            auto* item = tree->topLevelItem(0)->child(i);
            (item->text(0) == "Outbox" ? outbox : kept) = item;
        }
        ASSERT_TRUE(outbox && kept);
        tree->setCurrentItem(outbox);
        list->selectRow(0);
        list->selectionModel()->select(list->model()->index(1, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
        std::unique_ptr<QMimeData> data(
            list->model()->mimeData(list->selectionModel()->selectedRows()));
        refusedOnOwnFolder = !drop(*tree, outbox, *data);
        acceptedOnOther = drop(*tree, kept, *data);
        left = list->model()->rowCount();
        browser.close();
    });
    ShowFoldersWindow(nullptr, f);
    EXPECT_TRUE(refusedOnOwnFolder);
    EXPECT_TRUE(acceptedOnOther);
    EXPECT_EQ(left, 1);
    const auto count = [&](const char* folder) {
        auto files = std::filesystem::directory_iterator(p.home / "SMS" / folder);
        return std::distance(begin(files), end(files));
    };
    EXPECT_EQ(count("Kept"), 2);
    EXPECT_EQ(count("Outbox"), 1);
}

TEST(ArchiveWindows, PrintLaysTheTextOutOnPdfPages) {
    TestPlatform p;
    auto& f = p.load();
    std::string text = "Message:\r\n\r\n";
    for (int line = 1; line <= 120; ++line) text += "line " + std::to_string(line) + "\n";
    QTemporaryDir dir;
    const QString pdf = dir.path() + "/out.pdf";
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    int pages = 0;
    {
        QtPrinter out(printer);
        frmOpen viewer(f, text);
        viewer.cmdPrint_Click(out);
        pages = out.Page();
    }
    EXPECT_GT(pages, 1);
    const std::string info = Output("pdfinfo '" + pdf.toStdString() + "'");
    const auto at = info.find("Pages:");
    ASSERT_NE(at, std::string::npos) << info;
    EXPECT_EQ(std::atoi(info.c_str() + at + 6), pages) << info;
    const std::string words = Output("pdftotext '" + pdf.toStdString() + "' -");
    for (const std::string& expected :
         std::vector<std::string>{"line 1", "line 120", "Page " + std::to_string(pages)})
        EXPECT_NE(words.find(expected), std::string::npos) << expected;
}

}  // namespace
}  // namespace parlane
