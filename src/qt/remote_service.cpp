#include "qt/remote_service.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QTimer>

#include "qt/qt_text.h"

namespace parlane {

RemoteService::RemoteService(frmMain& form, std::function<void(const std::function<void()>&)> run)
    : remote_(form), run_(std::move(run)) {}

bool RemoteService::publish(QString& why) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        why = "no session bus: " + bus.lastError().message();
        return false;
    }
    if (!bus.registerObject(kRemoteObjectPath, this, QDBusConnection::ExportAllSlots)) {
        why = "the object path is taken: " + bus.lastError().message();
        return false;
    }
    // A copy on another home may hold the name already; the first one keeps it.
    const auto reply =
        bus.interface()->registerService(kRemoteBusName, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid() || reply.value() != QDBusConnectionInterface::ServiceRegistered) {
        why = QString(kRemoteBusName) + " belongs to another copy";
        bus.unregisterObject(kRemoteObjectPath);
        return false;
    }
    return true;
}

void RemoteService::answer(RemoteAnswer taken, const QString& argument, int index) {
    if (taken == RemoteAnswer::Taken || !calledFromDBus()) return;
    if (taken == RemoteAnswer::NotKept) {
        sendErrorReply(QDBusError::Failed,
                       "the queue could not be written to disk, so a message was not queued: " +
                           ToQt(remote_.StatusLine()));
        return;
    }
    sendErrorReply(QDBusError::InvalidArgs,
                   taken == RemoteAnswer::NoSuchRow
                       ? QString("%1 %2 is not a row of the list").arg(argument).arg(index)
                       : QString("a text is longer than Parlane takes (a message: its service "
                                 "centre's limit; a number or a name: %1 characters); nothing "
                                 "was queued")
                             .arg(Remote::kFieldLimit));
}

void RemoteService::ParlaneQueueGroup(const QString& Message, int GroupIndex) {
    RemoteAnswer taken = RemoteAnswer::Taken;
    run_([&] { taken = remote_.ParlaneQueueGroup(FromQt(Message), GroupIndex); });
    answer(taken, "GroupIndex", GroupIndex);
}

void RemoteService::ParlaneQueueByName(const QString& Message, const QString& Name) {
    RemoteAnswer taken = RemoteAnswer::Taken;
    run_([&] { taken = remote_.ParlaneQueueByName(FromQt(Message), FromQt(Name)); });
    answer(taken, "Name", 0);
}

void RemoteService::ParlaneQueueMessage(const QString& Country, const QString& Area,
                                        const QString& Number, int ProviderIndex,
                                        const QString& Message) {
    RemoteAnswer taken = RemoteAnswer::Taken;
    run_([&] {
        taken = remote_.ParlaneQueueMessage(FromQt(Country), FromQt(Area), FromQt(Number),
                                            ProviderIndex, FromQt(Message));
    });
    answer(taken, "ProviderIndex", ProviderIndex);
}

void RemoteService::ParlaneSendMessages() {
    run_([&] { remote_.ParlaneSendMessages(); });
}

// The client has its answer before the window goes.
void RemoteService::ParlaneClose() {
    QTimer::singleShot(0, this, [this] { run_([this] { remote_.ParlaneClose(); }); });
}

void RemoteService::ParlaneShow() {
    run_([&] { remote_.ParlaneShow(); });
}

}  // namespace parlane
