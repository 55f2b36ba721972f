#include "qt/dialogs/directory_dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <utility>

#include "qt/dialogs/dialog_parts.h"
#include "qt/key_rule.h"
#include "qt/qt_text.h"
#include "ui/frm_directory_add.h"
#include "ui/frm_group_add.h"

namespace parlane {

void ShowDirectoryAddDialog(QWidget* owner, frmDirectoryAdd& model) {
    QDialog dialog(owner);
    dialog.setObjectName("frmDirectoryAdd");
    dialog.setWindowTitle(ToQt(model.Caption));
    auto* txtName = LineEdit("txtName", &dialog);
    auto* Country = ListBox("Country", &dialog);
    auto* txtCountryCode = LineEdit("txtCountryCode", &dialog);
    auto* txtAreaCode = LineEdit("txtAreaCode", &dialog);
    auto* txtNumber = LineEdit("txtNumber", &dialog);
    for (auto [edit, hint] : {std::pair{txtName, &model.NameHint},
                              {txtCountryCode, &model.CountryCodeHint},
                              {txtAreaCode, &model.AreaCodeHint},
                              {txtNumber, &model.NumberHint}}) {
        SetHint(edit, *hint);
    }
    Country->setPlaceholderText(ToQt(model.CountryHint));
    Country->setToolTip(ToQt(model.CountryHint));
    auto* chkUseService = new QCheckBox(ToQt(model.chkUseService.Caption), &dialog);
    chkUseService->setObjectName("chkUseService");
    auto* Services = ListBox("Services", &dialog);
    auto* lblSaving = new QLabel(ToQt(model.lblSaving.Caption), &dialog);
    lblSaving->setObjectName("lblSaving");
    auto* ok = Button("cmdProviderItemOk", model.cmdProviderItemOk.Caption, &dialog);
    auto* cancel = Button("cmdProviderItemCancel", model.cmdProviderItemCancel.Caption, &dialog);
    ok->setDefault(true);

    auto* layout = new QFormLayout(&dialog);
    layout->addRow(txtName);
    layout->addRow(Country);
    auto* number = new QHBoxLayout;
    number->addWidget(txtCountryCode, 1);
    number->addWidget(txtAreaCode, 1);
    number->addWidget(txtNumber, 3);
    layout->addRow(number);
    layout->addRow(chkUseService);
    layout->addRow(Services);
    // The buttons keep their own width at the right, whether "Saving ..." shows or not.
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblSaving);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addRow(buttons);

    const auto pull = [&] {
        SetText(txtName, model.txtName);
        SetText(txtCountryCode, model.txtCountryCode);
        SetText(txtAreaCode, model.txtAreaCode);
        SetText(txtNumber, model.txtNumber);
        {
            const QSignalBlocker block(chkUseService);
            chkUseService->setChecked(model.chkUseService.Value);
        }
        FillList(Services, model.Services);
        lblSaving->setVisible(model.lblSaving.Visible);
        MoveFocus(dialog, model.focusedControl);
        if (model.unloaded) dialog.done(QDialog::Accepted);
    };
    FillList(Country, model.Country);
    pull();

    const std::pair<QLineEdit*, TextBox*> fields[] = {{txtName, &model.txtName},
                                                      {txtCountryCode, &model.txtCountryCode},
                                                      {txtAreaCode, &model.txtAreaCode},
                                                      {txtNumber, &model.txtNumber}};
    for (auto [edit, box] : fields)
        QObject::connect(edit, &QLineEdit::textEdited,
                         [box](const QString& text) { box->Text = FromQt(text); });
    new KeyRule(txtName, nullptr, true);
    for (QLineEdit* edit : {txtCountryCode, txtAreaCode, txtNumber})
        new KeyRule(
            edit, [&model](int k) { return model.NumberField_KeyPress(k); }, true);
    new KeyRule(
        Country, [&model](int k) { return model.Country_KeyPress(k); }, false);
    new KeyRule(
        Services, [&model](int k) { return model.Services_KeyPress(k); }, false);

    QObject::connect(Country, &QComboBox::activated, [&](int index) {
        model.Country.select(index);
        model.Country_Click();
        pull();
    });
    QObject::connect(Services, &QComboBox::currentIndexChanged,
                     [&](int index) { model.Services.select(index); });
    QObject::connect(chkUseService, &QCheckBox::toggled, [&](bool checked) {
        model.chkUseService.Value = checked;
        model.chkUseService_Click();
        pull();
    });
    RunWithButtons(dialog, ok, cancel, model, pull);
}

void ShowGroupAddDialog(QWidget* owner, frmGroupAdd& model) {
    QDialog dialog(owner);
    dialog.setObjectName("frmGroupAdd");
    dialog.setWindowTitle(ToQt(model.Caption));
    auto* txtName = LineEdit("txtName", &dialog);
    auto* ok = Button("cmdProviderItemOk", model.cmdProviderItemOk.Caption, &dialog);
    auto* cancel = Button("cmdProviderItemCancel", model.cmdProviderItemCancel.Caption, &dialog);
    ok->setDefault(true);
    dialog.setMinimumWidth(300);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(txtName);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    const auto pull = [&] {
        SetText(txtName, model.txtName);
        MoveFocus(dialog, model.focusedControl);
        if (model.unloaded) dialog.done(QDialog::Accepted);
    };
    pull();
    QObject::connect(txtName, &QLineEdit::textEdited,
                     [&](const QString& text) { model.txtName.Text = FromQt(text); });
    RunWithButtons(dialog, ok, cancel, model, pull);
}

}  // namespace parlane
