#pragma once
// `Remote` on the session bus: the automation methods other programs call, served on the
// program's one thread between events. The interface's contract is
// resources/dbus/org.parlane.Parlane.Remote.xml; the names below are kept from release to release.

#include <QDBusContext>
#include <QObject>
#include <QString>
#include <functional>

#include "automation/remote.h"

namespace parlane {

inline constexpr const char* kRemoteBusName = "org.parlane.Parlane";
inline constexpr const char* kRemoteObjectPath = "/org/parlane/Parlane/Remote";
inline constexpr const char* kRemoteInterface = "org.parlane.Parlane.Remote";

class RemoteService : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.parlane.Parlane.Remote")

  public:
    // `run` runs a handler as the window runs its own commands (the view follows the model).
    RemoteService(frmMain& form, std::function<void(const std::function<void()>&)> run);
    // Puts the object and the well-known name on the session bus; false, with the reason, when
    // there is no session bus or the name belongs to another copy.
    bool publish(QString& why);

  public slots:
    void ParlaneQueueGroup(const QString& Message, int GroupIndex);
    void ParlaneQueueByName(const QString& Message, const QString& Name);
    void ParlaneQueueMessage(const QString& Country, const QString& Area, const QString& Number,
                             int ProviderIndex, const QString& Message);
    void ParlaneSendMessages();
    void ParlaneClose();
    void ParlaneShow();

  private:
    // An error reply for a refused request; nothing for one taken.
    void answer(RemoteAnswer taken, const QString& argument, int index);

    Remote remote_;
    std::function<void(const std::function<void()>&)> run_;
};

}  // namespace parlane
