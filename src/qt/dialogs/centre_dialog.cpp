#include "qt/dialogs/centre_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <array>
#include <utility>

#include "config/frm_first_centre.h"
#include "config/frm_smsc_edit.h"
#include "qt/dialogs/dialog_parts.h"
#include "qt/dialogs/field_dialog.h"
#include "qt/key_rule.h"

namespace parlane {
namespace {

QLabel* NamedLabel(const char* name, const Label& label, QWidget* parent) {
    auto* text = new QLabel(ToQt(label.Caption), parent);
    text->setObjectName(name);
    return text;
}

QCheckBox* NamedCheck(const char* name, const CheckBox& box, QWidget* parent) {
    auto* check = new QCheckBox(ToQt(box.Caption), parent);
    check->setObjectName(name);
    return check;
}

}  // namespace

void ShowCentreEditDialog(QWidget* owner, frmSMSCEdit& model) {
    QDialog dialog(owner);
    dialog.setObjectName("frmSMSCEdit");
    dialog.setWindowTitle(ToQt(model.Caption));
    model.ownerWindow = static_cast<std::uintptr_t>(dialog.winId());

    auto* txtProviderName = LineEdit("txtProviderName", &dialog);
    auto* txtPassword = LineEdit("txtPassword", &dialog);
    txtPassword->setEchoMode(QLineEdit::Password);
    txtPassword->setStyleSheet("lineedit-password-character: 42");  // "*" for each character
    auto* cboTapiDevice = ListBox("cboTapiDevice", &dialog);
    auto* cmdLineConfigDialog =
        Button("cmdLineConfigDialog", model.cmdLineConfigDialog.Caption, &dialog);
    auto* Country = ListBox("Country", &dialog);
    Country->setPlaceholderText(ToQt(model.Country.Text));
    Country->setToolTip(ToQt(model.CountryHint));
    auto* txtCountryCode = LineEdit("txtCountryCode", &dialog);
    auto* txtAreaCode = LineEdit("txtAreaCode", &dialog);
    auto* txtNumber = LineEdit("txtNumber", &dialog);
    for (auto [edit, hint] : {std::pair{txtCountryCode, &model.CountryCodeHint},
                              {txtAreaCode, &model.AreaCodeHint},
                              {txtNumber, &model.NumberHint}}) {
        SetHint(edit, *hint);
    }
    auto* txtProviderMaxChars = LineEdit("txtProviderMaxChars", &dialog);
    std::array<QRadioButton*, frmSMSCEdit::kProtocols> optProtocol{};
    auto* protocols = new QButtonGroup(&dialog);
    for (int i = 0; i < frmSMSCEdit::kProtocols; ++i) {
        auto* option =
            new QRadioButton(ToQt(model.optProtocol[static_cast<std::size_t>(i)].Caption), &dialog);
        option->setObjectName(QString("optProtocol_%1").arg(i));
        protocols->addButton(option, i);
        optProtocol[static_cast<std::size_t>(i)] = option;
    }
    auto* cboUCPOperation = ListBox("cboUCPOperation", &dialog);
    auto* chkProviderMultiMessage =
        NamedCheck("chkProviderMultiMessage", model.chkProviderMultiMessage, &dialog);
    auto* txtMaxMessages = LineEdit("txtMaxMessages", &dialog);
    auto* chkASCII = NamedCheck("chkASCII", model.chkASCII, &dialog);
    auto* chkDefaultSMSC = NamedCheck("chkDefaultSMSC", model.chkDefaultSMSC, &dialog);
    auto* chkDefModem = NamedCheck("chkDefModem", model.chkDefModem, &dialog);
    auto* ok = Button("cmdProviderItemOk", model.cmdProviderItemOk.Caption, &dialog);
    auto* cancel = Button("cmdProviderItemCancel", model.cmdProviderItemCancel.Caption, &dialog);
    ok->setDefault(true);
    auto* Label1 = NamedLabel("Label1", model.Label1, &dialog);
    auto* Label2 = NamedLabel("Label2", model.Label2, &dialog);
    auto* Label3 = NamedLabel("Label3", model.Label3, &dialog);
    auto* Label4 = NamedLabel("Label4", model.Label4, &dialog);
    auto* Label5 = NamedLabel("Label5", model.Label5, &dialog);
    auto* Label6 = NamedLabel("Label6", model.Label6, &dialog);
    auto* Label7 = NamedLabel("Label7", model.Label7, &dialog);

    auto* grid = new QGridLayout(&dialog);
    grid->addWidget(Label1, 0, 0);
    grid->addWidget(txtProviderName, 0, 1, 1, 2);
    grid->addWidget(Label2, 1, 0);
    grid->addWidget(txtPassword, 1, 1, 1, 2);
    grid->addWidget(Label3, 2, 0);
    grid->addWidget(cboTapiDevice, 2, 1);
    grid->addWidget(cmdLineConfigDialog, 2, 2);
    grid->addWidget(Country, 3, 1, 1, 2);
    grid->addWidget(Label4, 4, 0);
    auto* number = new QHBoxLayout;
    number->addWidget(txtCountryCode, 1);
    number->addWidget(txtAreaCode, 1);
    number->addWidget(txtNumber, 3);
    grid->addLayout(number, 4, 1, 1, 2);
    grid->addWidget(Label6, 5, 0);
    grid->addWidget(txtProviderMaxChars, 5, 1);
    auto* options = new QHBoxLayout;
    for (auto* option : optProtocol) options->addWidget(option);
    grid->addLayout(options, 6, 0, 1, 3);
    grid->addWidget(Label7, 7, 0);
    grid->addWidget(cboUCPOperation, 7, 1);
    grid->addWidget(chkProviderMultiMessage, 8, 0);
    grid->addWidget(Label5, 8, 1, Qt::AlignRight);
    grid->addWidget(txtMaxMessages, 8, 2);
    grid->addWidget(chkASCII, 9, 0, 1, 3);
    grid->addWidget(chkDefaultSMSC, 10, 0, 1, 3);
    grid->addWidget(chkDefModem, 11, 0, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 12, 0, 1, 3);

    const std::pair<QLineEdit*, TextBox*> fields[] = {
        {txtProviderName, &model.txtProviderName},
        {txtPassword, &model.txtPassword},
        {txtCountryCode, &model.txtCountryCode},
        {txtAreaCode, &model.txtAreaCode},
        {txtNumber, &model.txtNumber},
        {txtProviderMaxChars, &model.txtProviderMaxChars},
        {txtMaxMessages, &model.txtMaxMessages}};
    const auto pull = [&] {
        for (auto [edit, box] : fields) SetText(edit, *box);
        FillList(cboTapiDevice, model.cboTapiDevice);
        cboUCPOperation->setCurrentIndex(model.cboUCPOperation.ListIndex);
        cboUCPOperation->setEnabled(model.cboUCPOperation.Enabled);
        for (std::size_t i = 0; i < optProtocol.size(); ++i)
            optProtocol[i]->setChecked(model.optProtocol[i].Value);
        for (auto [check, box] :
             {std::pair{chkProviderMultiMessage, &model.chkProviderMultiMessage},
              {chkASCII, &model.chkASCII},
              {chkDefaultSMSC, &model.chkDefaultSMSC},
              {chkDefModem, &model.chkDefModem}}) {
            const QSignalBlocker block(check);
            check->setChecked(box->Value);
            check->setEnabled(box->Enabled);
        }
        Label5->setEnabled(model.Label5.Enabled);
        Label7->setEnabled(model.Label7.Enabled);
        MoveFocus(dialog, model.focusedControl);
        if (model.unloaded) dialog.done(QDialog::Accepted);
    };
    FillList(Country, model.Country);
    {
        const QSignalBlocker block(cboUCPOperation);
        FillList(cboUCPOperation, model.cboUCPOperation);
    }
    pull();

    // Every edit tells the model its text, and whether the code page could hold all of it.
    for (auto [edit, box] : fields) {
        const std::string control = FromQt(edit->objectName());
        const bool number = edit != txtProviderName && edit != txtPassword;
        const bool maxMessages = edit == txtMaxMessages;
        FieldHooks::Handlers handlers;
        handlers.keyPress = [&model, number](int key) {
            return number ? model.NumberField_KeyPress(key) : key;
        };
        handlers.gotFocus = [&model, box = box, maxMessages] {
            if (!maxMessages) model.TextField_GotFocus(*box);
        };
        handlers.change = [&model, edit = edit, box = box, control, maxMessages] {
            if (ToQt(box->Text) != edit->text())
                model.NotStorable.insert(control);
            else
                model.NotStorable.erase(control);
            if (!maxMessages) return;
            model.txtMaxMessages_Change();
            edit->setSelection(box->SelStart, box->SelLength);
        };
        new FieldHooks(edit, *box, std::move(handlers));
    }
    new KeyRule(
        Country, [&model](int k) { return model.Country_KeyPress(k); }, false);
    new KeyRule(
        cboUCPOperation, [&model](int k) { return model.cboUCPOperation_KeyPress(k); }, false);

    QObject::connect(cboTapiDevice, &QComboBox::activated, [&](int index) {
        model.cboTapiDevice.select(index);
        model.cboTapiDevice_Click();
        pull();
    });
    QObject::connect(cmdLineConfigDialog, &QPushButton::clicked, [&] {
        model.cmdLineConfigDialog_Click();
        pull();
    });
    QObject::connect(Country, &QComboBox::activated, [&](int index) {
        model.Country.select(index);
        model.Country_Click();
        pull();
    });
    QObject::connect(cboUCPOperation, &QComboBox::currentIndexChanged,
                     [&](int index) { model.cboUCPOperation.select(index); });
    QObject::connect(protocols, &QButtonGroup::idClicked, [&](int index) {
        model.optProtocol_Click(index);
        pull();
    });
    QObject::connect(chkProviderMultiMessage, &QCheckBox::toggled, [&](bool checked) {
        model.chkProviderMultiMessage.Value = checked;
        model.chkProviderMultiMessage_Click();
        pull();
    });
    for (auto [check, box] : {std::pair{chkASCII, &model.chkASCII},
                              {chkDefaultSMSC, &model.chkDefaultSMSC},
                              {chkDefModem, &model.chkDefModem}})
        QObject::connect(check, &QCheckBox::toggled,
                         [box = box](bool checked) { box->Value = checked; });
    RunWithButtons(dialog, ok, cancel, model, pull);
}

void ShowFirstCentreDialog(QWidget* owner, frmFirstCentre& model) {
    QDialog dialog(owner);
    dialog.setObjectName("frmFirstCentre");
    dialog.setWindowTitle(ToQt(model.Caption));
    dialog.setMinimumWidth(460);
    auto* layout = new QVBoxLayout(&dialog);
    AddLabel(layout, "lblInfo", model.lblInfo);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const std::pair<const char*, ExchangeButton*> named[] = {
        {"cmdNewCentre", &model.cmdNewCentre},
        {"cmdDemoCentres", &model.cmdDemoCentres},
        {"cmdLater", &model.cmdLater}};
    for (auto [name, button] : named) {
        auto* push = Button(name, button->Caption, &dialog);
        buttons->addWidget(push);
        QObject::connect(push, &QPushButton::clicked, [&dialog, &model, button = button] {
            if (button == &model.cmdNewCentre) model.cmdNewCentre_Click();
            if (button == &model.cmdDemoCentres) model.cmdDemoCentres_Click();
            if (button == &model.cmdLater) model.cmdLater_Click();
            if (model.unloaded) dialog.accept();
        });
        if (button == &model.cmdNewCentre) push->setDefault(true);
    }
    layout->addLayout(buttons);
    dialog.exec();
}

}  // namespace parlane
