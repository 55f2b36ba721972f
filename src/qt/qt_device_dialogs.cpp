#include "qt/qt_device_dialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "core/string_ids.h"
#include "qt/key_rule.h"
#include "qt/qt_text.h"

namespace parlane {

std::unique_ptr<QDialog> MakeFieldDialog(FieldForm& form, DialogueHost& host,
                                         const Strings& strings, QWidget* owner, const char* name) {
    auto dialog = std::make_unique<QDialog>(owner);
    QDialog* d = dialog.get();
    d->setObjectName(name);
    d->setWindowTitle(ToQt(strings.LoadResString(form.titleId)).remove('&'));
    auto* layout = new QFormLayout(d);
    for (const auto& field : form.fields()) {
        auto* edit = new QLineEdit(ToQt(field.box->Text), d);
        edit->setObjectName(field.control);
        const std::string control = field.control;
        new KeyRule(edit, [&form, control](int key) {
            return static_cast<unsigned char>(form.KeyPress(control, static_cast<char>(key)));
        });
        layout->addRow(ToQt(strings.LoadResString(field.labelId)), edit);
    }
    if (auto* ports = dynamic_cast<PortsForm*>(&form)) {
        // The ports found, for reference; a double click adds one.
        auto* list = new QListWidget(d);
        list->setObjectName("lstPorts");
        for (const auto& row : ports->lstPorts.rows) list->addItem(ToQt(row));
        auto* edit = d->findChild<QLineEdit*>("txtPorts");
        QObject::connect(list, &QListWidget::itemDoubleClicked, d, [ports, list, edit] {
            ports->txtPorts.Text = FromQt(edit->text());
            ports->lstPorts.ListIndex = list->currentRow();
            ports->lstPorts_DblClick();
            edit->setText(ToQt(ports->txtPorts.Text));
        });
        layout->addRow(list);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, d);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    buttons->button(QDialogButtonBox::Cancel)
        ->setText(ToQt(strings.LoadResString(sid::ButtonCancel)));
    layout->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, d, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::accepted, d, [&form, &host, &strings, d] {
        for (const auto& field : form.fields())
            field.box->Text = FromQt(d->findChild<QLineEdit*>(field.control)->text());
        if (form.Check(host, strings)) {
            d->accept();
        } else if (auto* bad = d->findChild<QLineEdit*>(ToQt(form.focusedControl))) {
            bad->setFocus();
            bad->selectAll();
        }
    });
    return dialog;
}

bool QtDeviceDialogs::run(FieldForm& form, const char* name) {
    if (QGuiApplication::platformName() == "offscreen") return false;
    return MakeFieldDialog(form, host_, strings_, owner_, name)->exec() == QDialog::Accepted;
}

bool QtDeviceDialogs::EditModemSettings(ModemSettingsForm& form) {
    return run(form, "frmModemSettings");
}

bool QtDeviceDialogs::EditDiallingLocation(LocationForm& form) {
    return run(form, "frmDialLocation");
}

bool QtDeviceDialogs::EditSerialPorts(PortsForm& form) {
    return run(form, "frmSerialPorts");
}

}  // namespace parlane
