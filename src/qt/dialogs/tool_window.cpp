#include "qt/dialogs/tool_window.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/qt_text.h"

namespace parlane {

ToolWindow::ToolWindow(QWidget* mainWindow, frmMain& main)
    : QWidget(mainWindow, Qt::Tool), model_(main) {
    setObjectName("frmToolWindow");
    model_.Form_Load();
    auto* layout = new QVBoxLayout(this);
    auto* bar = new QMenuBar;
    layout->setMenuBar(bar);
    mnuEdit_ = bar->addMenu(QString());
    mnuEdit_->setObjectName("mnuEdit");
    mnuSig_ = mnuEdit_->addAction(QString());
    mnuSig_->setObjectName("mnuSig");
    connect(mnuSig_, &QAction::triggered, this, [this] { run(&frmToolWindow::mnuSig_Click); });
    mnuEdit_->addSeparator();
    for (int n = 1; n <= frmToolWindow::kNotes; ++n) {
        auto* action = mnuEdit_->addAction(QString());
        action->setObjectName(QString("mnu%1").arg(n));
        connect(action, &QAction::triggered, this, [this, n] {
            model_.mnuNote_Click(n);
            mirror();
        });
        mnuNote_[static_cast<std::size_t>(n - 1)] = action;
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    for (int i = 0; i < frmToolWindow::kIcons; ++i) {
        auto* button = new QToolButton;
        button->setObjectName(QString("picToolIcons_%1").arg(i));
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, [this, i] { iconClicked(i); });
        row->addWidget(button);
        picToolIcons_[static_cast<std::size_t>(i)] = button;
    }
    layout->addLayout(row);
    mirror();
}

void ToolWindow::setIcons(const std::vector<QIcon>& icons) {
    for (std::size_t i = 0; i < picToolIcons_.size() && i < icons.size(); ++i) {
        picToolIcons_[i]->setIcon(icons[i]);
        picToolIcons_[i]->setToolButtonStyle(Qt::ToolButtonIconOnly);
    }
}

void ToolWindow::mirror() {
    setWindowTitle(ToQt(model_.Caption));
    mnuEdit_->setTitle(ToQt(model_.mnuEdit.Caption));
    mnuSig_->setText(ToQt(model_.mnuSig.Caption));
    for (std::size_t i = 0; i < mnuNote_.size(); ++i)
        mnuNote_[i]->setText(ToQt(model_.mnuNote[i].Caption));
    for (std::size_t i = 0; i < picToolIcons_.size(); ++i) {
        const QString tip = ToQt(model_.picToolIconsToolTipText[i]);
        picToolIcons_[i]->setToolTip(tip);
        picToolIcons_[i]->setText(tip);
    }
}

void ToolWindow::run(void (frmToolWindow::*handler)()) {
    (model_.*handler)();
    mirror();
}

void ToolWindow::iconClicked(int index) {
    // The model told the main window's view through frmMain::changed(); the focus it gave to
    // txtMessage only shows once the main window is the active one.
    if (model_.picToolIcons_Click(index) && parentWidget()) parentWidget()->activateWindow();
}

void ToolWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QWidget* owner = parentWidget();
    if (!owner || !owner->screen()) return;
    const QRect main = owner->frameGeometry();
    const QRect screen = owner->screen()->availableGeometry();
    const auto at = ToolWindowTopLeft({main.x(), main.y(), main.width(), main.height()},
                                      {screen.x(), screen.y(), screen.width(), screen.height()},
                                      frameGeometry().width());
    move(at.x, at.y);
}

}  // namespace parlane
