// Remote on a private session bus: a cold bus starts the program on the first call, the six
// methods do what a user's commands would, clients share the one compose panel, a wrong call
// gets the bus's error and the program lives on. Run under dbus-run-session only.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/file_io.h"
#include "store/directory.h"
#include "store/message_queue.h"
#include "store/provider.h"
#include "support/temp_files.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

const QString kName = "org.parlane.Parlane";
const QString kPath = "/org/parlane/Parlane/Remote";
const QString kInterface = "org.parlane.Parlane.Remote";

QDBusMessage Call(const QString& method, const QVariantList& args = {},
                  QDBusConnection bus = QDBusConnection::sessionBus()) {
    auto message = QDBusMessage::createMethodCall(kName, kPath, kInterface, method);
    message.setArguments(args);
    return bus.call(message, QDBus::Block, 60000);
}

bool WaitFor(const std::function<bool()>& done, int seconds) {
    QDeadlineTimer deadline(seconds * 1000);
    while (!done()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(50);
    }
    return true;
}

bool Running() {
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(kName).value();
}

std::vector<std::string> Statuses(const std::filesystem::path& home) {
    std::vector<std::string> statuses;
    for (const auto& e : std::filesystem::directory_iterator(home / "SMS" / "Outbox")) {
        const std::string text = ReadWholeFile(e.path()).value_or("");
        const auto at = text.find("Status: \t");
        if (at != std::string::npos)
            statuses.push_back(text.substr(at + 9, text.find('\r', at) - at - 9));
    }
    std::sort(statuses.begin(), statuses.end());
    return statuses;
}

std::vector<std::string> QueuedTexts(const std::filesystem::path& home) {
    std::vector<std::string> texts;
    const auto table = ParseQueueFile(ReadWholeFile(home / "queue.dat").value_or("")).records;
    for (std::size_t i = 1; i < table.size(); ++i)
        texts.push_back(table[i].Text);  // 0 holds no message
    return texts;
}

// The interface as the running program describes it, whitespace aside.
QString Interface(QString xml) {
    const auto start = xml.indexOf("<interface name=\"" + kInterface + "\"");
    xml = xml.mid(start, xml.indexOf("</interface>", start) - start);
    return xml.remove(QRegularExpression(">\\s+<")).simplified();
}

TEST(RemoteOnTheBus, ColdStartSixMethodsSharedPanelAndWrongCalls) {
    testing::TempFolder folder;
    const auto home = folder.path();
    auto centre = testing::MakeProvider("Sim TAP");
    centre.AreaCode = "0800";
    centre.Number = "100100";  // a simulated TAP centre that takes everything
    std::string error;
    WriteFileAtomically(home / "smsc.dat", SerializeProviderFile({centre}, error));
    WriteFileAtomically(home / "phones.dat",
                        SerializeDirectoryFile({{"Ann", "44", "07700", "900123", "Sim TAP"},
                                                {"Ben", "44", "07700", "900456", "Sim TAP"}},
                                               error));
    std::filesystem::create_directories(home / "Data");
    WriteFileAtomically(home / "Data" / "group.dat", SerializeNameListFile({"Team"}, error));
    WriteFileAtomically(home / "Data" / "Team.dat", SerializeNameListFile({"Ann", "Ben"}, error));
    WriteFileAtomically(home / "Parlane.ini", "[FirstRun]\nModem=4\n");

    // The program the bus starts finds this home and no display.
    qDBusRegisterMetaType<QMap<QString, QString>>();
    auto bus = QDBusConnection::sessionBus();
    ASSERT_TRUE(bus.isConnected());
    ASSERT_FALSE(Running());
    QDBusReply<void> env =
        QDBusInterface("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", bus)
            .call("UpdateActivationEnvironment",
                  QVariant::fromValue(QMap<QString, QString>{
                      {"PARLANE_HOME", QString::fromStdString(home.string())},
                      {"QT_QPA_PLATFORM", "offscreen"}}));
    ASSERT_TRUE(env.isValid()) << env.error().message().toStdString();

    // The first call starts it and is served.
    auto reply = Call("ParlaneQueueMessage", {"44", "07700", "900123", 0, "first"});
    ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    ASSERT_TRUE(Running());

    QFile contract(PARLANE_CONTRACT);
    ASSERT_TRUE(contract.open(QIODevice::ReadOnly));
    const QDBusReply<QString> live =
        QDBusInterface(kName, kPath, "org.freedesktop.DBus.Introspectable", bus).call("Introspect");
    EXPECT_EQ(Interface(live.value()).toStdString(),
              Interface(QString::fromUtf8(contract.readAll())).toStdString());

    // Two clients at once: each call fills the one panel in turn, both are queued.
    auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "second client");
    auto one = QDBusMessage::createMethodCall(kName, kPath, kInterface, "ParlaneQueueMessage");
    one.setArguments({"44", "07700", "900001", 0, "from one"});
    auto two = QDBusMessage::createMethodCall(kName, kPath, kInterface, "ParlaneQueueMessage");
    two.setArguments({"44", "07700", "900002", 0, "from two"});
    QDBusPendingCall a = bus.asyncCall(one), b = other.asyncCall(two);
    ASSERT_TRUE(WaitFor([&] { return a.isFinished() && b.isFinished(); }, 30));
    EXPECT_FALSE(a.isError() || b.isError());

    const struct {
        const char* method;
        QVariantList args;
        bool fails;
    } calls[] = {
        {"ParlaneQueueByName", {"by name", "Ann"}, false},
        {"ParlaneQueueByName", {"kept anyway", "Nobody"}, false},  // archived, no error
        {"ParlaneQueueGroup", {"to the team", 0}, false},
        {"ParlaneQueueGroup", {"no such group", 7}, true},            // refused selection
        {"ParlaneQueueMessage", {"44", "07700", "1", 9, "x"}, true},  // no such centre
        {"ParlaneQueueGroup", {"wrong", "types"}, true},              // the bus's own error
        {"ParlaneQueueByName", {"too few"}, true},
        // Longer than the window takes: refused whole, so the queue below stays as it is.
        {"ParlaneQueueMessage", {"44", "07700", "900123", 0, QString(2000, 'x')}, true},
        {"ParlaneQueueByName", {"hi", QString(1 << 20, 'n')}, true},
        {"ParlaneQueueMessage", {"44", QString(1 << 20, '7'), "900123", 0, "x"}, true},
        {"ParlaneShow", {}, false},
    };
    for (const auto& c : calls) {
        const auto r = Call(c.method, c.args);
        EXPECT_EQ(r.type() == QDBusMessage::ErrorMessage, c.fails)
            << c.method << ": " << r.errorMessage().toStdString();
    }
    ASSERT_TRUE(Running());

    // A queue the disk will not take answers an error; the message is not queued.
    const auto blocker = home / "queue.journal.tmp";
    std::filesystem::create_directory(blocker);
    const auto full = Call("ParlaneQueueMessage", {"44", "07700", "900123", 0, "disk full"});
    EXPECT_EQ(full.errorName().toStdString(), "org.freedesktop.DBus.Error.Failed");
    std::filesystem::remove(blocker);

    // A second start on the same home ends at once and queues nothing.
    QProcess second;
    second.start(PARLANE_PROGRAM, {"--home", QString::fromStdString(home.string()),
                                   "--send-and-exit", "Ann", "never", "queued"});
    ASSERT_TRUE(second.waitForFinished(20000));
    EXPECT_EQ(second.exitCode(), 8);

    ASSERT_EQ(Call("ParlaneClose").type(), QDBusMessage::ReplyMessage);
    ASSERT_TRUE(WaitFor([] { return !Running(); }, 20));
    auto queued = QueuedTexts(home);
    std::sort(queued.begin(), queued.end());
    EXPECT_EQ(queued, (std::vector<std::string>{"by name", "first", "from one", "from two",
                                                "to the team", "to the team"}));
    EXPECT_EQ(Statuses(home),
              std::vector<std::string>{"Aborted - Nobody is not in Telephone Directory"});

    // Started again by the next call, it sends what waits and leaves one archive file each.
    ASSERT_EQ(Call("ParlaneSendMessages").type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(WaitFor([&] { return Statuses(home).size() == 7; }, 120));
    ASSERT_EQ(Call("ParlaneClose").type(), QDBusMessage::ReplyMessage);
    ASSERT_TRUE(WaitFor([] { return !Running(); }, 20));
    const auto statuses = Statuses(home);
    EXPECT_EQ(std::count(statuses.begin(), statuses.end(), "Message Sent Successfully (simulated)"),
              6);
    EXPECT_TRUE(QueuedTexts(home).empty());
}

}  // namespace
}  // namespace parlane

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
