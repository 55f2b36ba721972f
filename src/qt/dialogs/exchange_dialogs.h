#pragma once
// The data-exchange windows as Qt views: the import and export wizard, and the backup and
// restore windows. Each mirrors its model's fields after every handler and closes when the
// model has closed.

#include <QDialog>
#include <array>
#include <functional>

#include "exchange/frm_import.h"
#include "exchange/table_copy_window.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;

namespace parlane {

class frmMain;

// mnuExport, mnuBackup and mnuRestore: modal, they return when the window has closed.
void ShowImportDialog(QWidget* owner, frmMain& main);
void ShowBackupDialog(QWidget* owner, frmMain& main);
void ShowRestoreDialog(QWidget* owner, frmMain& main);

class ImportDialog : public QDialog {
  public:
    // The wizard works on the main window's directory and fills its Names box after an import.
    ImportDialog(QWidget* owner, frmMain& main, OpenFileChooser& chooser);
    frmImport& model() { return model_; }

  protected:
    // Escape and the window's frame are Cancel, refused while Cancel is disabled.
    void reject() override;

  private:
    ImportWindowHooks hooks();
    void run(void (frmImport::*handler)());
    void mirror();

    frmMain& main_;
    frmImport model_;
    QRadioButton *optExport_ = nullptr, *optImport_ = nullptr;
    std::array<QLabel*, 3> lblInfo_{};
    QLabel* lblProgBar_ = nullptr;
    QProgressBar* progBar_ = nullptr;
    QPushButton *cmdExport_ = nullptr, *cmdOpen_ = nullptr, *cmdOK_ = nullptr,
                *cmdCancel_ = nullptr;
};

// The backup or the restore window; `ok` is the model's own OK handler.
class TableCopyDialog : public QDialog {
  public:
    TableCopyDialog(QWidget* owner, const char* name, TableCopyWindow& model,
                    std::function<void()> ok);

  protected:
    void reject() override;

  private:
    void run(const std::function<void()>& handler);
    void mirror();

    TableCopyWindow& model_;
    QLineEdit* Dir1_ = nullptr;
    QPushButton *cmdBrowse_ = nullptr, *cmdOK_ = nullptr, *cmdCancel_ = nullptr;
};

}  // namespace parlane
