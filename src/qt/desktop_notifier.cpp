#include "qt/desktop_notifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include "core/string_ids.h"
#include "qt/qt_text.h"

namespace parlane {

DesktopNotifier::DesktopNotifier(frmMain& form, QWidget& window) : form_(form), window_(window) {
    form_.onRunEnded = [this](const frmMain::RunTally& tally) { runEnded(tally); };
}

std::string DesktopNotifier::Summary(const frmMain::RunTally& tally, const Strings& strings) {
    std::string text = std::to_string(tally.sent) + " " + strings.LoadResString(sid::CountSent);
    if (tally.notSent > 0)
        text +=
            ", " + std::to_string(tally.notSent) + " " + strings.LoadResString(sid::CountNotSent);
    if (tally.simulated) text += " " + strings.LoadResString(sid::SimulatedMark);
    return text;
}

void DesktopNotifier::runEnded(const frmMain::RunTally& tally) {
    if (form_.settings().Get(key::Notify) == "0") return;
    const bool watched = window_.isVisible() && !window_.isMinimized() && window_.isActiveWindow();
    if (watched) return;
    auto call = QDBusMessage::createMethodCall("org.freedesktop.Notifications",
                                               "/org/freedesktop/Notifications",
                                               "org.freedesktop.Notifications", "Notify");
    const Strings& strings = form_.globals().strings;
    call << ToQt(strings.ProductName()) << 0u << QStringLiteral("parlane")
         << ToQt(strings.ProductName()) << ToQt(Summary(tally, strings)) << QStringList()
         << QVariantMap{{"desktop-entry", QStringLiteral("parlane")}} << -1;
    // Waited for briefly, so that a run from the command line is told before the program ends;
    // without a session bus or a notification service nothing is shown.
    QDBusConnection::sessionBus().call(call, QDBus::Block, 1000);
}

}  // namespace parlane
