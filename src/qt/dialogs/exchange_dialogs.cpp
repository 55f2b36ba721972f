#include "qt/dialogs/exchange_dialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "exchange/frm_backup.h"
#include "exchange/frm_restore.h"
#include "qt/dialogs/field_dialog.h"
#include "qt/qt_file_choosers.h"
#include "qt/qt_text.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

QPushButton* Button(const char* name, QBoxLayout* row) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    row->addWidget(button);
    return button;
}

void Mirror(QPushButton* button, const ExchangeButton& model) {
    button->setText(ToQt(model.Caption));
    button->setVisible(model.Visible);
    button->setEnabled(model.Enabled);
}

void Mirror(QRadioButton* option, const ExchangeOption& model) {
    const QSignalBlocker block(option);
    option->setText(ToQt(model.Caption));
    option->setChecked(model.Value);
}

// The model's hourglass, over its own window.
void MirrorBusy(QWidget& window, bool busy) {
    if (busy)
        window.setCursor(Qt::WaitCursor);
    else
        window.unsetCursor();
}

// Where the folder picker opens, and where the window goes back to after an unreachable folder.
std::filesystem::path StartFolder() {
    return PathFromQt(QDir::homePath());
}

}  // namespace

ImportDialog::ImportDialog(QWidget* owner, frmMain& main, OpenFileChooser& chooser)
    : QDialog(owner),
      main_(main),
      model_(main.Directory, main.platform().home, main.globals().strings,
             main.platform().dialogues, chooser, hooks()) {
    setObjectName("frmImport");
    auto* layout = new QVBoxLayout(this);
    optExport_ = new QRadioButton;
    optExport_->setObjectName("optExport");
    optImport_ = new QRadioButton;
    optImport_->setObjectName("optImport");
    // The model decides which option is chosen, none at first.
    for (auto* option : {optExport_, optImport_}) {
        option->setAutoExclusive(false);
        layout->addWidget(option);
    }
    for (std::size_t i = 0; i < lblInfo_.size(); ++i)
        lblInfo_[i] = AddLabel(layout, QString("lblInfo_%1").arg(i), model_.lblInfo[i]);
    lblProgBar_ = AddLabel(layout, "lblProgBar", model_.lblProgBar);
    progBar_ = new QProgressBar;
    progBar_->setObjectName("progBar");
    progBar_->setRange(0, 100);
    layout->addWidget(progBar_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdExport_ = Button("cmdExport", buttons);
    cmdOpen_ = Button("cmdOpen", buttons);
    cmdOK_ = Button("cmdOK", buttons);
    cmdCancel_ = Button("cmdCancel", buttons);
    layout->addLayout(buttons);
    setMinimumWidth(460);

    connect(optExport_, &QRadioButton::clicked, this, [this] { run(&frmImport::optExport_Click); });
    connect(optImport_, &QRadioButton::clicked, this, [this] { run(&frmImport::optImport_Click); });
    connect(cmdExport_, &QPushButton::clicked, this, [this] { run(&frmImport::cmdExport_Click); });
    connect(cmdOpen_, &QPushButton::clicked, this, [this] { run(&frmImport::cmdOpen_Click); });
    connect(cmdOK_, &QPushButton::clicked, this, [this] { run(&frmImport::cmdOK_Click); });
    connect(cmdCancel_, &QPushButton::clicked, this, &ImportDialog::reject);
    model_.Form_Load();
    mirror();
}

ImportWindowHooks ImportDialog::hooks() {
    ImportWindowHooks hooks = main_.ImportHooks();
    hooks.DoEvents = [this] {
        mirror();
        QCoreApplication::processEvents();
    };
    return hooks;
}

void ImportDialog::run(void (frmImport::*handler)()) {
    (model_.*handler)();
    mirror();
    if (model_.closed) accept();
}

void ImportDialog::reject() {
    model_.cmdCancel_Click();
    if (model_.closed) QDialog::reject();
}

void ImportDialog::mirror() {
    setWindowTitle(ToQt(model_.Caption));
    Mirror(optExport_, model_.optExport);
    Mirror(optImport_, model_.optImport);
    for (std::size_t i = 0; i < lblInfo_.size(); ++i) {
        lblInfo_[i]->setText(LabelText(model_.lblInfo[i].Caption));
        lblInfo_[i]->setVisible(model_.lblInfo[i].Visible);
    }
    lblProgBar_->setText(LabelText(model_.lblProgBar.Caption));
    progBar_->setVisible(model_.progBar.Visible);
    progBar_->setValue(model_.progBar.Value);
    Mirror(cmdExport_, model_.cmdExport);
    Mirror(cmdOpen_, model_.cmdOpen);
    Mirror(cmdOK_, model_.cmdOK);
    Mirror(cmdCancel_, model_.cmdCancel);
    MirrorBusy(*this, model_.busy);
}

TableCopyDialog::TableCopyDialog(QWidget* owner, const char* name, TableCopyWindow& model,
                                 std::function<void()> ok)
    : QDialog(owner), model_(model) {
    setObjectName(name);
    auto* layout = new QVBoxLayout(this);
    auto* folder = new QHBoxLayout;
    Dir1_ = new QLineEdit;
    Dir1_->setObjectName("Dir1");
    Dir1_->setReadOnly(true);
    folder->addWidget(Dir1_, 1);
    cmdBrowse_ = Button("cmdBrowse", folder);
    layout->addLayout(folder);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdOK_ = Button("cmdOK", buttons);
    cmdOK_->setDefault(true);
    cmdCancel_ = Button("cmdCancel", buttons);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(cmdBrowse_, &QPushButton::clicked, this,
            [this] { run([this] { model_.cmdBrowse_Click(); }); });
    connect(cmdOK_, &QPushButton::clicked, this, [this, ok = std::move(ok)] { run(ok); });
    connect(cmdCancel_, &QPushButton::clicked, this, &TableCopyDialog::reject);
    mirror();
}

void TableCopyDialog::run(const std::function<void()>& handler) {
    handler();
    mirror();
    if (model_.closed) accept();
}

void TableCopyDialog::reject() {
    model_.cmdCancel_Click();
    QDialog::reject();
}

void TableCopyDialog::mirror() {
    setWindowTitle(ToQt(model_.Caption));
    Dir1_->setText(PathToQt(model_.Dir1));
    Mirror(cmdBrowse_, model_.cmdBrowse);
    Mirror(cmdOK_, model_.cmdOK);
    Mirror(cmdCancel_, model_.cmdCancel);
    MirrorBusy(*this, model_.busy);
}

void ShowImportDialog(QWidget* owner, frmMain& main) {
    QtOpenFileChooser chooser;
    ImportDialog dialog(owner, main, chooser);
    chooser.setOwner(&dialog);
    dialog.exec();
    main.changed();  // the Names box after an import
}

void ShowBackupDialog(QWidget* owner, frmMain& main) {
    QtFolderChooser chooser;
    frmBackup model(main.platform().home, StartFolder(), main.globals().strings,
                    main.platform().dialogues, chooser);
    model.Form_Load();
    TableCopyDialog dialog(owner, "frmBackup", model, [&model] { model.cmdOK_Click(); });
    chooser.setOwner(&dialog);
    dialog.exec();
}

void ShowRestoreDialog(QWidget* owner, frmMain& main) {
    QtFolderChooser chooser;
    frmRestore model(main.platform().home, StartFolder(), main.globals().strings,
                     main.platform().dialogues, chooser);
    model.Form_Load();
    TableCopyDialog dialog(owner, "frmRestore", model, [&model] { model.cmdOK_Click(); });
    chooser.setOwner(&dialog);
    dialog.exec();
}

}  // namespace parlane
