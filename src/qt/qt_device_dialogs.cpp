#include "qt/qt_device_dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
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
    if (form.noteId != 0) {
        auto* note =
            new QLabel(ToQt(strings.LoadResString(form.noteId) + " " + form.noteDetail), d);
        note->setObjectName("lblNote");
        note->setWordWrap(true);
        layout->addRow(note);
    }
    auto* modem = dynamic_cast<ModemSettingsForm*>(&form);
    QComboBox* framing = nullptr;
    if (modem) {
        framing = new QComboBox(d);
        framing->setObjectName("cboFraming");
        for (const auto& choice : ModemSettingsForm::Framings())
            framing->addItem(ToQt(strings.LoadResString(choice.captionId)));
        framing->setPlaceholderText(ToQt(strings.LoadResString(sid::LabelFraming)));
        framing->setCurrentIndex(modem->FramingIndex());
        layout->addRow(ToQt(strings.LoadResString(sid::LabelFraming)), framing);
    }
    for (const auto& field : form.fields()) {
        const QString label = ToQt(strings.LoadResString(field.labelId));
        if (const auto* choices = form.Choices(field.control)) {
            auto* list = new QComboBox(d);
            list->setObjectName(field.control);
            for (const auto& choice : *choices)
                list->addItem(
                    ToQt(choice.captionId ? strings.LoadResString(choice.captionId) : choice.value),
                    ToQt(choice.value));
            list->setCurrentIndex(list->findData(ToQt(field.box->Text)));
            layout->addRow(label, list);
            continue;
        }
        auto* edit = new QLineEdit(ToQt(field.box->Text), d);
        edit->setObjectName(field.control);
        const std::string control = field.control;
        new KeyRule(edit, [&form, control](int key) {
            return static_cast<unsigned char>(form.KeyPress(control, static_cast<char>(key)));
        });
        layout->addRow(label, edit);
    }
    // The fields' texts from what the dialog shows: a list gives its chosen value.
    const auto take = [&form, d] {
        for (const auto& field : form.fields()) {
            if (auto* list = d->findChild<QComboBox*>(field.control))
                field.box->Text = FromQt(list->currentData().toString());
            else
                field.box->Text = FromQt(d->findChild<QLineEdit*>(field.control)->text());
        }
    };
    if (modem) {
        // A ready framing sets its three lists; a list changed by hand shows which one it is.
        QObject::connect(framing, &QComboBox::activated, d, [modem, d](int index) {
            modem->cboFraming_Click(index);
            for (auto* box : {&modem->txtDataBits, &modem->txtParity, &modem->txtStopBits}) {
                for (const auto& field : modem->fields()) {
                    if (field.box != box) continue;
                    auto* list = d->findChild<QComboBox*>(field.control);
                    const QSignalBlocker block(list);
                    list->setCurrentIndex(list->findData(ToQt(box->Text)));
                }
            }
        });
        for (const char* name : {"txtDataBits", "txtParity", "txtStopBits"})
            QObject::connect(d->findChild<QComboBox*>(name), &QComboBox::currentIndexChanged, d,
                             [modem, framing, take] {
                                 take();
                                 framing->setCurrentIndex(modem->FramingIndex());
                             });
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
    QObject::connect(buttons, &QDialogButtonBox::accepted, d, [&form, &host, &strings, d, take] {
        take();
        if (form.Check(host, strings)) {
            d->accept();
        } else if (auto* bad = d->findChild<QWidget*>(ToQt(form.focusedControl))) {
            bad->setFocus();
            if (auto* edit = qobject_cast<QLineEdit*>(bad)) edit->selectAll();
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

bool QtDeviceDialogs::EditTcpSettings(TcpSettingsForm& form) {
    return run(form, "frmTcpSettings");
}

}  // namespace parlane
