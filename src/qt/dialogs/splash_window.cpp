#include "qt/dialogs/splash_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/program.h"
#include "core/string_ids.h"
#include "qt/artwork.h"
#include "qt/qt_text.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

QToolButton* Link(const char* name, const QString& tip, QWidget* parent) {
    auto* link = new QToolButton(parent);
    link->setObjectName(name);
    link->setIcon(ArtworkIcon(name));
    link->setIconSize(QSize(32, 32));
    link->setAutoRaise(true);
    link->setToolTip(tip);
    link->setCursor(Qt::PointingHandCursor);
    return link;
}

}  // namespace

SplashWindow::SplashWindow(QWidget* owner, const ProgramGlobals& globals, frmMain* main)
    : QDialog(owner, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmSplash");
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(24, 20, 24, 16);
    auto* logo = new QLabel(this);
    logo->setObjectName("Image2");
    logo->setPixmap(ArtworkIcon(ToQt(LogoArtwork(globals, false))).pixmap(QSize(280, 90)));
    logo->setAlignment(Qt::AlignCenter);
    auto* version = new QLabel(
        ToQt(globals.strings.LoadResString(sid::VersionWord) + " " + VersionText()), this);
    version->setObjectName("lblVersion");
    version->setAlignment(Qt::AlignCenter);
    box->addWidget(logo);
    box->addWidget(version);
    auto* links = new QHBoxLayout;
    links->addStretch(1);
    auto* web = Link("web", ToQt(globals.strings.LoadResString(sid::MenuSupportInternet)), this);
    auto* mail = Link("mail", ToQt(globals.strings.LoadResString(sid::MenuSupportEmail)), this);
    links->addWidget(web);
    links->addWidget(mail);
    links->addStretch(1);
    box->addLayout(links);
    // By object name: the class has no meta-object of its own for a type selector to match.
    setStyleSheet("QDialog#frmSplash { background: white; border: 1px solid #8a9bb0; }");
    if (main) {
        connect(web, &QToolButton::clicked, this, [this, main] {
            main->mnuSupportInternet_Click();
            accept();
        });
        connect(mail, &QToolButton::clicked, this, [this, main] {
            main->mnuSupportEmail_Click();
            accept();
        });
    }
}

void SplashWindow::mousePressEvent(QMouseEvent*) {
    accept();
}

void SplashWindow::keyPressEvent(QKeyEvent*) {
    accept();
}

void ShowAboutWindow(QWidget* owner, frmMain& main) {
    SplashWindow about(owner, main.globals(), &main);
    about.exec();
}

}  // namespace parlane
