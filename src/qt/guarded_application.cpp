#include "qt/guarded_application.h"

#include <QMessageBox>
#include <cstdio>
#include <exception>

#include "qt/qt_text.h"

namespace parlane {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        fault(e.what());
    } catch (...) {
        fault("?");
    }
    return false;
}

void GuardedApplication::fault(const std::string& what) {
    // A fault while the last one is being reported must not report itself forever.
    if (inFault_ || !onFault) {
        std::fprintf(stderr, "parlane: unexpected error: %s\n", what.c_str());
        return;
    }
    inFault_ = true;
    onFault(what);
    inFault_ = false;
}

void ShowCriticalBox(QWidget* owner, const std::string& title, const std::string& text) {
    if (QGuiApplication::platformName() == "offscreen") {
        std::fprintf(stderr, "%s: %s\n", Cp1252ToUtf8(title).c_str(), Cp1252ToUtf8(text).c_str());
        return;
    }
    QMessageBox::critical(owner, ToQt(title), ToQt(text));
}

}  // namespace parlane
