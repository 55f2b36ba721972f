#include "qt/dialogs/archive_windows.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDrag>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "archive/frm_folders.h"
#include "archive/frm_open.h"
#include "core/string_ids.h"
#include "qt/artwork.h"
#include "qt/qt_printer.h"
#include "qt/qt_shell_file_operations.h"
#include "qt/qt_text.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr const char* kMessagesMime = "application/x-parlane-archive-rows";

// Menu captions carry "&" for their mnemonics already.
QString Bank(frmMain& main, int id) {
    return ToQt(main.LoadResString(id));
}

// The list of the chosen folder: rows are the model's; a row's summary is read when the view
// first shows it, so a folder of many thousand messages opens at once.
class MessageListModel : public QAbstractTableModel {
  public:
    MessageListModel(frmFolders& model, frmMain& main) : model_(model), main_(main) {}
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(model_.rows.size());
    }
    int columnCount(const QModelIndex&) const override { return 3; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DecorationRole && index.column() == 0) return ArtworkIcon("sent");
        if (role != Qt::DisplayRole) return {};
        const auto& summary = model_.Summary(index.row());
        switch (index.column()) {
            case 0:
                return ToQt(summary.dateColumn);
            case 1:
                return ToQt(summary.recipient);
            default:
                return ToQt(summary.status);
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        static constexpr int kIds[] = {sid::ColumnDateSent, sid::ColumnTo, sid::ColumnStatus};
        return Bank(main_, kIds[section]);
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    }
    QStringList mimeTypes() const override { return {kMessagesMime}; }
    QMimeData* mimeData(const QModelIndexList&) const override {
        auto* data = new QMimeData;
        data->setData(kMessagesMime, "rows");  // the model knows which rows are selected
        return data;
    }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
    void reset() {
        beginResetModel();
        endResetModel();
    }

  private:
    frmFolders& model_;
    frmMain& main_;
};

// The tree takes the list's rows when they are dropped on a folder other than the one shown.
class FolderTree : public QTreeWidget {
  public:
    FolderTree(frmFolders& model, QWidget* parent) : QTreeWidget(parent), model_(model) {}
    std::function<void(int node)> dropped;
    // Node index as the model counts: root 1, folders 2 and on.
    int nodeIndexOf(QTreeWidgetItem* item) const {
        if (!item) return 0;
        if (!item->parent()) return frmFolders::kRootNode;
        return item->parent()->indexOfChild(item) + 2;
    }

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->mimeData()->hasFormat(kMessagesMime)) event->acceptProposedAction();
    }
    void dragMoveEvent(QDragMoveEvent* event) override {
        const int node = nodeIndexOf(itemAt(event->position().toPoint()));
        if (model_.CanDropOn(node))
            event->acceptProposedAction();
        else
            event->ignore();
    }
    void dropEvent(QDropEvent* event) override {
        const int node = nodeIndexOf(itemAt(event->position().toPoint()));
        if (!model_.CanDropOn(node)) return event->ignore();
        event->acceptProposedAction();
        if (dropped) dropped(node);
    }

  private:
    frmFolders& model_;
};

// The list, with Delete for the selected messages.
class MessageTable : public QTableView {
  public:
    using QTableView::QTableView;
    std::function<void()> deletePressed;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Delete && deletePressed) return deletePressed();
        QTableView::keyPressEvent(event);
    }
};

class FoldersWindow : public QDialog {
  public:
    FoldersWindow(QWidget* owner, frmMain& main)
        : QDialog(owner), main_(main), shell_(main), model_(main, shell_), list_(model_, main) {
        setObjectName("frmFolders");
        setWindowTitle(Bank(main, sid::TitleFrmFolders));
        model_.askNewFolderName = [this] { return askFolderName(); };
        model_.chooseTargetFolder = [this](bool copy) { return chooseFolder(copy); };
        model_.openMessage = [this](const std::string& content) {
            ShowOpenMessageWindow(this, main_, content);
        };
        model_.Form_Load();
        build();
        fillTree();
        // The root's name runs long in some languages: its pane takes the width it needs.
        tree_->resizeColumnToContents(0);
        const int treeWidth = std::max(180, tree_->columnWidth(0) + 2 * tree_->frameWidth());
        split_->setSizes({treeWidth, 580});
        resize(treeWidth + 580, 480);
    }

  private:
    void build() {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* menus = new QMenuBar(this);
        layout->setMenuBar(menus);
        auto* file = menus->addMenu(Bank(main_, sid::MenuFile));
        auto* folder = file->addMenu(Bank(main_, sid::MenuFolder));
        folder
            ->addAction(Bank(main_, sid::MenuCreate), this,
                        [this] { run(&frmFolders::mnuCreate_Click); })
            ->setObjectName("mnuCreate");
        folder
            ->addAction(Bank(main_, sid::MenuDelete), this,
                        [this] { run(&frmFolders::mnuDelete_Click); })
            ->setObjectName("mnuDelete");
        file->addSeparator();
        file->addAction(Bank(main_, sid::MenuExit), this, &QDialog::accept)
            ->setObjectName("mnuExit");

        auto* tools = new QToolBar(this);
        tools->addAction(QIcon::fromTheme("view-list-text"), Bank(main_, sid::TipListView), this,
                         [this] { showDetails(false); });
        tools->addAction(QIcon::fromTheme("view-list-details"), Bank(main_, sid::TipDetailsView),
                         this, [this] { showDetails(true); });
        tools->addAction(ArtworkIcon("exit"), Bank(main_, sid::TipExitFolders), this,
                         &QDialog::accept);
        layout->addWidget(tools);

        auto* split = split_ = new QSplitter(this);
        tree_ = new FolderTree(model_, split);
        tree_->setObjectName("tvwView");
        tree_->setHeaderHidden(true);
        tree_->setAcceptDrops(true);
        tree_->setDropIndicatorShown(true);
        tree_->setEditTriggers(QAbstractItemView::EditKeyPressed);
        tree_->setContextMenuPolicy(Qt::CustomContextMenu);
        tree_->dropped = [this](int node) { run([this, node] { model_.DropOnNode(node); }); };
        connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
            if (!filling_ && item)
                run([this, item] { model_.tvwView_NodeClick(tree_->nodeIndexOf(item)); });
        });
        connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
            if (filling_ || !item->parent()) return;
            run([this, item] { model_.tvwView_AfterLabelEdit(FromQt(item->text(0))); });
            fillTree();
        });
        connect(tree_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
            QMenu menu;
            if (tree_->nodeIndexOf(tree_->currentItem()) == frmFolders::kRootNode)
                menu.addAction(Bank(main_, sid::MenuCreateFolder), this,
                               [this] { run(&frmFolders::mnuCreate_Click); });
            else
                menu.addAction(Bank(main_, sid::MenuDeleteFolder), this,
                               [this] { run(&frmFolders::mnuDelete_Click); });
            menu.exec(tree_->viewport()->mapToGlobal(at));
        });

        auto* right = new QSplitter(Qt::Vertical, split);
        table_ = new MessageTable(right);
        table_->setObjectName("lstData");
        table_->setModel(&list_);
        table_->setSelectionBehavior(QAbstractItemView::SelectRows);
        table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
        table_->setDragEnabled(true);
        table_->setDragDropMode(QAbstractItemView::DragOnly);
        table_->verticalHeader()->hide();
        table_->setShowGrid(false);
        table_->horizontalHeader()->setStretchLastSection(true);
        table_->horizontalHeader()->setSortIndicatorShown(true);
        table_->horizontalHeader()->setSortIndicator(0, Qt::DescendingOrder);
        table_->setWordWrap(false);
        table_->setColumnWidth(0, 190);
        table_->setColumnWidth(1, 170);
        table_->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this,
                [this](int section) {
                    syncSelection();
                    run([this, section] { model_.lstData_ColumnClick(section + 1); });
                });
        // The preview follows the current row, by mouse or keys; it changes nothing else.
        connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this](const QModelIndex& current) {
                    if (!current.isValid()) return;
                    model_.lstData_ItemClick(current.row());
                    preview_->setPlainText(ToQt(model_.txtMessage));
                });
        // A double click and Enter.
        connect(table_, &QTableView::activated, this, [this] { run(&frmFolders::mnuOpen_Click); });
        table_->deletePressed = [this] { run(&frmFolders::mnuDeleteFile_Click); };
        connect(table_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
            if (model_.rows.empty()) return;
            QMenu menu;
            menu.addAction(Bank(main_, sid::MenuOpen), this,
                           [this] { run(&frmFolders::mnuOpen_Click); });
            menu.addSeparator();
            menu.addAction(Bank(main_, sid::MenuMoveTo), this,
                           [this] { run(&frmFolders::mnuMoveTo_Click); });
            menu.addAction(Bank(main_, sid::MenuCopyTo), this,
                           [this] { run(&frmFolders::mnuCopyTo_Click); });
            menu.addSeparator();
            menu.addAction(Bank(main_, sid::MenuDelete), this,
                           [this] { run(&frmFolders::mnuDeleteFile_Click); });
            menu.exec(table_->viewport()->mapToGlobal(at));
        });
        preview_ = new QPlainTextEdit(right);
        preview_->setObjectName("txtMessage");
        preview_->setReadOnly(true);
        right->setStretchFactor(0, 1);
        right->setSizes({330, 110});
        split->setStretchFactor(1, 1);
        layout->addWidget(split, 1);
    }

    void showDetails(bool details) {
        for (int c = 1; c < 3; ++c) table_->setColumnHidden(c, !details);
        table_->horizontalHeader()->setVisible(details);
    }

    // The model's selection is the view's at the moment a command runs.
    void syncSelection() {
        model_.selectedRows.clear();
        for (const auto& index : table_->selectionModel()->selectedRows())
            model_.selectedRows.push_back(index.row());
        std::sort(model_.selectedRows.begin(), model_.selectedRows.end());
    }

    void run(void (frmFolders::*handler)()) {
        run([this, handler] { (model_.*handler)(); });
    }
    void run(const std::function<void()>& handler) {
        syncSelection();
        handler();
        refresh();
    }

    void refresh() {
        if (static_cast<int>(model_.folders.size()) + 1 != folderItems()) fillTree();
        list_.reset();
        for (int row : model_.selectedRows)
            table_->selectionModel()->select(
                list_.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        table_->horizontalHeader()->setSortIndicator(
            model_.sortColumn == frmFolders::ColumnTo ? 1 : 0,
            model_.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
        preview_->setPlainText(ToQt(model_.txtMessage));
    }

    int folderItems() const {
        return tree_->topLevelItemCount() ? tree_->topLevelItem(0)->childCount() + 1 : 0;
    }

    void fillTree() {
        filling_ = true;
        tree_->clear();
        auto* root = new QTreeWidgetItem(tree_, {ToQt(model_.rootText)});
        root->setIcon(0, ArtworkIcon("sent"));
        for (const auto& folder : model_.folders) {
            auto* item = new QTreeWidgetItem(root, {ToQt(folder.text)});
            item->setIcon(0, QIcon::fromTheme("folder"));
            // The Outbox keeps its name.
            if (folder.text != "Outbox") item->setFlags(item->flags() | Qt::ItemIsEditable);
        }
        root->setExpanded(true);
        const int node = model_.selectedNode;
        tree_->setCurrentItem(node == frmFolders::kRootNode || node - 2 >= root->childCount()
                                  ? root
                                  : root->child(node - 2));
        filling_ = false;
    }

    std::string askFolderName() {
        frmFolderAdd add(main_);
        QDialog dialog(this);
        dialog.setObjectName("frmFolderAdd");
        dialog.setWindowTitle(Bank(main_, sid::TitleFrmFolderAdd));
        auto* layout = new QVBoxLayout(&dialog);
        auto* name = new QLineEdit(&dialog);
        name->setObjectName("txtName");
        layout->addWidget(name);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Cancel)->setText(Bank(main_, sid::ButtonCancel));
        layout->addWidget(buttons);
        connect(buttons, &QDialogButtonBox::accepted, &dialog, [&] {
            add.txtName = FromQt(name->text());
            add.cmdOK_Click();
            if (add.unloaded)
                dialog.accept();
            else
                name->setFocus();
        });
        connect(buttons, &QDialogButtonBox::rejected, &dialog, [&] {
            add.cmdCancel_Click();
            dialog.reject();
        });
        dialog.exec();
        return add.NewFolderName;
    }

    std::optional<std::string> chooseFolder(bool copy) {
        frmMove move(model_.ArchiveRoot(), copy);
        QDialog dialog(this);
        dialog.setObjectName("frmMove");
        dialog.setWindowTitle(Bank(main_, move.titleId));
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(new QLabel(Bank(main_, move.infoId), &dialog));
        auto* tree = new QTreeWidget(&dialog);
        tree->setObjectName("tvwView");
        tree->setHeaderHidden(true);
        auto* root = new QTreeWidgetItem(tree, {ToQt(model_.rootText)});
        for (const auto& folder : move.folders) new QTreeWidgetItem(root, {ToQt(folder.text)});
        root->setExpanded(true);
        layout->addWidget(tree);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        auto* ok = buttons->button(QDialogButtonBox::Ok);
        ok->setObjectName("cmdOK");
        buttons->button(QDialogButtonBox::Cancel)->setText(Bank(main_, sid::ButtonCancel));
        ok->setEnabled(false);
        layout->addWidget(buttons);
        const auto nodeOf = [](QTreeWidgetItem* item) {
            return !item || !item->parent() ? frmFolders::kRootNode
                                            : item->parent()->indexOfChild(item) + 2;
        };
        connect(tree, &QTreeWidget::currentItemChanged, &dialog, [&](QTreeWidgetItem* item) {
            move.tvwView_NodeClick(nodeOf(item));
            ok->setEnabled(move.cmdOKEnabled);
        });
        connect(tree, &QTreeWidget::itemDoubleClicked, &dialog, [&] {
            move.tvwView_DblClick();
            if (move.unloaded) dialog.accept();
        });
        connect(buttons, &QDialogButtonBox::accepted, &dialog, [&] {
            move.cmdOK_Click();
            if (move.unloaded) dialog.accept();
        });
        connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        dialog.exec();
        if (!move.FolderDialogAccepted) return std::nullopt;
        return move.TargetFolder;
    }

    frmMain& main_;
    QtShellFileOperations shell_;
    frmFolders model_;
    MessageListModel list_;
    FolderTree* tree_ = nullptr;
    QSplitter* split_ = nullptr;
    MessageTable* table_ = nullptr;
    QPlainTextEdit* preview_ = nullptr;
    bool filling_ = false;
};

}  // namespace

void ShowFoldersWindow(QWidget* owner, frmMain& main) {
    FoldersWindow window(owner, main);
    window.exec();
}

void ShowOpenMessageWindow(QWidget* owner, frmMain& main, const std::string& content) {
    frmOpen model(main, content);
    QDialog dialog(owner);
    dialog.setObjectName("frmOpen");
    dialog.setWindowTitle(ToQt(main.LoadResString(sid::MenuOpen)).remove('&'));
    auto* layout = new QVBoxLayout(&dialog);
    auto* text = new QPlainTextEdit(ToQt(content), &dialog);
    text->setObjectName("txtMessage");
    text->setReadOnly(true);
    layout->addWidget(text);
    auto* row = new QHBoxLayout;
    const auto button = [&](const char* name, int id) {
        auto* b = new QPushButton(Bank(main, id), &dialog);
        b->setObjectName(name);
        row->addWidget(b);
        return b;
    };
    auto* resend = button("cmdResend", sid::ButtonSendAgain);
    auto* print = button("cmdPrint", sid::ButtonPrint);
    auto* exit = button("cmdExit", sid::TipExit);
    layout->addLayout(row);
    QObject::connect(resend, &QPushButton::clicked, &dialog, [&] {
        model.cmdResend_Click();
        if (model.unloaded) dialog.accept();
    });
    QObject::connect(print, &QPushButton::clicked, &dialog, [&] {
        // The text as the box holds it, with the box's selection in it.
        const auto cursor = text->textCursor();
        frmOpen printing(main, FromQt(text->toPlainText()));
        printing.SelStart = FromQt(text->toPlainText().left(cursor.selectionStart())).size();
        printing.SelLength = FromQt(cursor.selectedText().replace(QChar(0x2029), '\n')).size();
        QPrinter printer(QPrinter::HighResolution);
        QPrintDialog ask(&printer, &dialog);
        if (ask.exec() != QDialog::Accepted) return;
        QtPrinter out(printer);
        printing.cmdPrint_Click(out);
    });
    QObject::connect(exit, &QPushButton::clicked, &dialog, &QDialog::accept);
    dialog.resize(520, 420);
    dialog.exec();
}

}  // namespace parlane
