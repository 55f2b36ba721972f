#include "qt/dialogs/line_option_dialogs.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "qt/qt_text.h"
#include "ui/frm_main.h"

namespace parlane {

DialDialog::DialDialog(QWidget* owner, frmMain& main) : OneFieldDialog(owner), model_(main) {
    setObjectName("frmDial");
    model_.Form_Load();
    auto& m = model_;
    build({&m.Caption,
           {&m.Label1},
           "txtDialAttempts",
           &m.txtDialAttempts,
           {[&m](int key) { return m.txtDialAttempts_KeyPress(key); },
            [&m] { m.txtDialAttempts_GotFocus(); },
            {}},
           "cmdProvidersClose",
           [&m] { m.cmdProvidersClose_Click(); },
           &m.focusedControl,
           &m.unloaded});
}

TimeoutDialog::TimeoutDialog(QWidget* owner, frmMain& main) : OneFieldDialog(owner), model_(main) {
    setObjectName("frmTimeout");
    model_.Form_Load();
    auto& m = model_;
    build({&m.Caption,
           {&m.Label1},
           "txtResponseSecs",
           &m.txtResponseSecs,
           {[&m](int key) { return m.txtResponseSecs_KeyPress(key); },
            [&m] { m.txtResponseSecs_GotFocus(); },
            {}},
           "cmdOK",
           [&m] { m.cmdOK_Click(); },
           &m.focusedControl,
           &m.unloaded});
}

OriginatorDialog::OriginatorDialog(QWidget* owner, frmMain& main)
    : OneFieldDialog(owner), model_(main) {
    setObjectName("frmOriginator");
    model_.Form_Load();
    auto& m = model_;
    build({&m.Caption,
           {&m.Label1, &m.Label2, &m.Label3},
           "txtID",
           &m.txtID,
           {[&m](int key) { return m.txtID_KeyPress(key); }, [&m] { m.txtID_GotFocus(); },
            [&m] { m.txtID_Change(); }},
           "cmdOK",
           [&m] { m.cmdOK_Click(); },
           nullptr,
           &m.unloaded});
    setMaximumWidth(520);
}

ModemInfoDialog::ModemInfoDialog(QWidget* owner, frmMain& main) : QDialog(owner), model_(main) {
    setObjectName("frmModemInfo");
    model_.Form_Load();
    setWindowTitle(ToQt(model_.Caption));
    auto* layout = new QVBoxLayout(this);
    AddLabel(layout, "lblInfo", model_.lblInfo);
    auto* check = new QCheckBox(ToQt(model_.chkShowModemInfo.Caption));
    check->setObjectName("chkShowModemInfo");
    check->setChecked(model_.chkShowModemInfo.Value);
    layout->addWidget(check);
    connect(check, &QCheckBox::clicked, this, [this](bool checked) {
        model_.chkShowModemInfo.Value = checked;
        model_.chkShowModemInfo_Click();
    });
    connect(AddOk(layout, "cmdOK"), &QPushButton::clicked, this, [this] {
        model_.cmdOK_Click();
        if (model_.unloaded) accept();
    });
    setMaximumWidth(520);
}

ModemDialog::ModemDialog(QWidget* owner, frmModem& model) : QDialog(owner), model_(model) {
    setObjectName("frmModem");
    setWindowTitle(ToQt(model_.Caption));
    auto* layout = new QVBoxLayout(this);
    AddLabel(layout, "Label1", model_.Label1);
    AddLabel(layout, "Label2", model_.Label2);
    cboTapiDevice_ = new QComboBox;
    cboTapiDevice_->setObjectName("cboTapiDevice");
    for (const auto& row : model_.cboTapiDevice.rows) cboTapiDevice_->addItem(ToQt(row));
    cboTapiDevice_->setCurrentIndex(model_.cboTapiDevice.ListIndex);
    connect(cboTapiDevice_, &QComboBox::currentIndexChanged, this,
            [this](int index) { model_.cboTapiDevice.select(index); });
    layout->addWidget(cboTapiDevice_);
    connect(AddOk(layout, "cmdProviderItemOk"), &QPushButton::clicked, this,
            &ModemDialog::okClicked);
}

void ModemDialog::okClicked() {
    model_.cmdProviderItemOk_Click();
    if (model_.unloaded) {
        accept();
        return;
    }
    if (!model_.focusedControl.empty()) {
        model_.focusedControl.clear();
        cboTapiDevice_->setFocus();
    }
}

bool ShowDialDialog(QWidget* owner, frmMain& main) {
    DialDialog dialog(owner, main);
    return dialog.exec() == QDialog::Accepted;
}

bool ShowTimeoutDialog(QWidget* owner, frmMain& main) {
    TimeoutDialog dialog(owner, main);
    return dialog.exec() == QDialog::Accepted;
}

bool ShowOriginatorDialog(QWidget* owner, frmMain& main) {
    OriginatorDialog dialog(owner, main);
    return dialog.exec() == QDialog::Accepted;
}

void ShowModemInfoDialog(QWidget* owner, frmMain& main) {
    ModemInfoDialog dialog(owner, main);
    dialog.exec();
}

void ShowModemDialog(QWidget* owner, frmModem& model) {
    if (model.unloaded) return;
    ModemDialog dialog(owner, model);
    dialog.exec();
}

}  // namespace parlane
