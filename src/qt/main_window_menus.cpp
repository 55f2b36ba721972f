// The menu bar and the two context menus, built from the model's menu tree.
#include <QMenuBar>

#include "qt/main_window.h"
#include "qt/qt_text.h"
#include "ui/main_menu.h"

namespace parlane {
namespace {

// Keys of the commands a user reaches for most; the mnemonics come with the captions. Quit and
// Help are the desktop's own keys; Queue takes Ctrl+Return, as a message is sent in a chat.
QList<QKeySequence> ShortcutsFor(const QString& name) {
    static const QMap<QString, QList<QKeySequence>> keys = {
        {"mnuQueue", {QKeySequence("Ctrl+Return"), QKeySequence("Ctrl+Enter")}},
        {"mnuSend", {QKeySequence("F5")}},
        {"mnuSendSingle", {QKeySequence("Shift+F5")}},
        {"mnuHangUp", {QKeySequence("Esc")}},
        {"mnuInsert", {QKeySequence("Ctrl+I")}},
        {"mnuNew", {QKeySequence("Ctrl+N")}},
        {"mnuEditPhone", {QKeySequence("Ctrl+E")}},
        {"mnuContents", QKeySequence::keyBindings(QKeySequence::HelpContents)},
        {"mnuExit", QKeySequence::keyBindings(QKeySequence::Quit)},
    };
    return keys.value(name);
}

}  // namespace

void MainWindow::buildMenus() {
    for (const MenuEntry& e : MainMenuTree()) {
        const QString name = e.name;
        const QString text = ToQt((form_.*e.item).Caption);
        QMenu* parent = menus_.value(e.parent, nullptr);
        if (e.ruleBefore && parent) parent->addSeparator()->setObjectName(name + "_rule");
        const bool hasChildren = [&] {
            for (const MenuEntry& c : MainMenuTree())
                if (name == c.parent) return true;
            return false;
        }();
        if (hasChildren) {
            QMenu* menu = e.popup || !*e.parent ? new QMenu(text, this) : parent->addMenu(text);
            menu->setObjectName(name);
            menus_.insert(name, menu);
            if (!*e.parent && !e.popup) menuBar()->addMenu(menu);
            actions_.insert(name, menu->menuAction());
            continue;
        }
        auto* act = new QAction(text, this);
        act->setObjectName(name);
        act->setShortcuts(ShortcutsFor(name));
        act->setShortcutContext(Qt::WindowShortcut);
        if (parent)
            parent->addAction(act);
        else
            menuBar()->addAction(act);  // Stop stands in the menu bar itself
        addAction(act);                 // shortcuts work with the menus closed
        actions_.insert(name, act);
        const auto handler = e.handler;
        if (handler) {
            connect(act, &QAction::triggered, this, [this, handler] {
                if (refreshing_) return;
                run([this, handler] { (form_.*handler)(); });
            });
        }
    }
    for (const char* name : {"mnuTools", "mnuViewQueue", "mnuGroup", "mnuEnglish", "mnuItalian",
                             "mnuGerman", "mnuFrench"})
        actions_.value(name)->setCheckable(true);
}

// Captions, checks, enabling and visibility follow the model; an entry without a handler in
// this version is shown disabled rather than doing nothing.
void MainWindow::mirrorMenus() {
    for (const MenuEntry& e : MainMenuTree()) {
        QAction* act = actions_.value(e.name);
        if (!act) continue;
        const MenuItem& item = form_.*e.item;
        if (e.id != 0) act->setText(ToQt(item.Caption));
        const bool leaf = !menus_.contains(e.name);
        act->setEnabled(item.Enabled && (!leaf || e.handler != nullptr));
        act->setVisible(item.Visible);
        if (act->isCheckable()) act->setChecked(item.Checked);
        if (QAction* rule = findChild<QAction*>(QString(e.name) + "_rule"))
            rule->setVisible(item.Visible);
    }
    // The rule under Insert Text File goes and comes with it.
    if (QAction* rule = findChild<QAction*>("mnuTelephoneDir_rule"))
        rule->setVisible(form_.mnuSeparator11.Visible);
}

}  // namespace parlane
