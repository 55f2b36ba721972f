// The real serial code on pseudo-terminals, in real time. The serial link: reads in turns of at
// most 1000 bytes, every byte value both ways, and a close that is harmless when repeated and
// leaves the descriptor to its owner. The AT modem provider, with an emulated Hayes modem: the
// command dialogue, failed calls, hang-up and the next call, the UUCP lock, and whole messages
// sent by the main window through the device list.
#include "line/at/at_modem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "line/at/posix_serial_link.h"
#include "line/device_list.h"
#include "line/modem_config.h"
#include "support/pty_modem_emulator.h"
#include "support/real_time_loop.h"
#include "support/temp_files.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::PtyModemEmulator;
using testing::RealTimeLoop;
using Clock = std::chrono::steady_clock;

struct PtyPair {
    PtyPair() {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        grantpt(master);
        unlockpt(master);
        slave = open(ptsname(master), O_RDWR | O_NOCTTY);
    }
    ~PtyPair() {
        close(slave);
        close(master);
    }
    int master = -1, slave = -1;
};

std::string AllByteValues(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i % 256);
    return bytes;
}

TEST(PosixSerialLink, ReadsInTurnsOfAtMostAThousandAndKeepsEveryByte) {
    PtyPair pty;
    RealTimeLoop loop;
    PosixSerialLink link;
    int events = 0;
    ASSERT_TRUE(link.OpenCommunicationsPort(pty.slave, [&](std::int32_t code) {
        loop.post([&, code] { events += code == 1 ? 1 : 1000; });
    }));
    const std::string sent = AllByteValues(1500);
    ASSERT_EQ(write(pty.master, sent.data(), sent.size()), 1500);

    // The program's way: one read per event.
    std::string received;
    std::vector<int> turns;
    int handled = 0;
    ASSERT_TRUE(loop.runUntil([&] {
        while (handled < events) {
            ++handled;
            RxBufferArray buffer{};
            const int n = link.GetRxCharacters(buffer);
            turns.push_back(n);
            received.append(reinterpret_cast<const char*>(buffer.data()),
                            static_cast<std::size_t>(n));
        }
        return received.size() >= sent.size();
    }));
    EXPECT_EQ(received, sent);
    ASSERT_GE(turns.size(), 2u);
    for (int n : turns) {
        EXPECT_GT(n, 0);
        EXPECT_LE(n, 1000);
    }

    // Writes: NUL and the high half unchanged, in order.
    const std::string out = AllByteValues(300);
    EXPECT_TRUE(link.TxChars(out.substr(0, 100)));
    EXPECT_TRUE(link.TxCharacters(out.substr(100)));
    std::string echoed;
    char chunk[512];
    while (echoed.size() < out.size()) {
        const auto n = read(pty.master, chunk, sizeof chunk);
        ASSERT_GT(n, 0);
        echoed.append(chunk, static_cast<std::size_t>(n));
    }
    EXPECT_EQ(echoed, out);

    EXPECT_TRUE(link.CloseCommunicationsPort());
    EXPECT_FALSE(link.CloseCommunicationsPort());
    // The descriptor still belongs to whoever handed it over.
    EXPECT_GE(fcntl(pty.slave, F_GETFD), 0);
    // Nothing is read or announced after the close.
    const int before = events;
    ASSERT_EQ(write(pty.master, "x", 1), 1);
    loop.waitSecs(0.2);
    EXPECT_EQ(events, before);
    RxBufferArray buffer{};
    EXPECT_EQ(link.GetRxCharacters(buffer), 0);
}

TEST(PosixSerialLink, RefusesABadHandleAndSurvivesTheDeviceVanishing) {
    PosixSerialLink link;
    EXPECT_FALSE(link.OpenCommunicationsPort(0, [](std::int32_t) {}));
    EXPECT_FALSE(link.OpenCommunicationsPort(987654, [](std::int32_t) {}));
    EXPECT_FALSE(link.CloseCommunicationsPort());

    auto pty = std::make_unique<PtyPair>();
    ASSERT_TRUE(link.OpenCommunicationsPort(pty->slave, [](std::int32_t) {}));
    // The other side goes away: the reader must neither spin nor keep the close from returning.
    close(pty->master);
    pty->master = open("/dev/null", O_RDONLY);
    std::this_thread::sleep_for(Milliseconds(100));
    EXPECT_TRUE(link.CloseCommunicationsPort());
}

struct Bench {
    Bench() {
        options.devicePath = emulator.devicePath();
        options.lockDir = lockDir.path().string();
    }
    // A provider whose call states are recorded.
    std::unique_ptr<AtModem> modem(AtModemOptions o) {
        auto m = std::make_unique<AtModem>(loop, std::move(o));
        std::uint32_t devices = 0;
        m->lineInitialize(
            [this](std::uint32_t, std::uint32_t message, std::uint32_t, std::uint32_t state,
                   std::uint32_t, std::uint32_t) {
                if (message == LINE_CALLSTATE) states.push_back(state);
            },
            "test", devices);
        return m;
    }
    bool reaches(std::uint32_t state) {
        return loop.runUntil([&] { return !states.empty() && states.back() == state; });
    }
    RealTimeLoop loop;
    PtyModemEmulator emulator;
    testing::TempFolder lockDir;
    AtModemOptions options;
    std::vector<std::uint32_t> states;
};

TEST(AtModem, ReadsRepliesOfEveryStyle) {
    const std::pair<const char*, ModemReply> cases[] = {{"ok", ModemReply::Ok},
                                                        {"0", ModemReply::Ok},
                                                        {"connect 33600/ARQ", ModemReply::Connect},
                                                        {"1", ModemReply::Connect},
                                                        {"12", ModemReply::Connect},
                                                        {"7", ModemReply::Failure},
                                                        {"No Dialtone", ModemReply::Failure},
                                                        {"RING", ModemReply::Ring},
                                                        {"atdt0044800100100", ModemReply::Echo},
                                                        {"Manufacturer: Acme", ModemReply::None}};
    for (const auto& [line, reply] : cases) EXPECT_EQ(ClassifyModemLine(line), reply) << line;
}

TEST(AtModem, DialsWithEchoAndNumericCodesHangsUpAndCallsAgain) {
    Bench b;
    auto o = b.options;
    o.initCommands = {"atz", "ATE1V0"};  // the modem echoes and answers in numbers
    auto modem = b.modem(o);
    std::uint32_t line = 0, call = 0;
    ASSERT_EQ(modem->lineOpen(0, line), 0);
    std::string dialable;
    // From a location in the same country the national number is dialled.
    modem->lineTranslateAddress(0, "+44 (0800) 100100", dialable);
    EXPECT_EQ(dialable, "0800100100");

    // The centre's own block brings its init string after the modem's.
    ModemConfig centreConfig;
    centreConfig.initString = "AT&K0";
    EXPECT_EQ(modem->lineSetDevConfig(0, EncodeModemConfig(centreConfig), "comm/datamodem"), 0);

    EXPECT_GT(modem->lineMakeCall(line, call, dialable, LINEMEDIAMODE_DATAMODEM), 0);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_CONNECTED));
    EXPECT_EQ(b.emulator.commands(),
              (std::vector<std::string>{"atz", "ATE1V0", "AT&K0", "ATDT0800100100"}));

    // The data belong to the link now: the centre's greeting reaches it, not the provider.
    std::intptr_t fd = 0;
    ASSERT_EQ(modem->lineGetID(line, fd), 0);
    auto& link = modem->serialLink();
    std::string got;
    ASSERT_TRUE(link.OpenCommunicationsPort(fd, [&](std::int32_t) {
        b.loop.post([&] {
            RxBufferArray buffer{};
            const int n = link.GetRxCharacters(buffer);
            got.append(reinterpret_cast<const char*>(buffer.data()), static_cast<std::size_t>(n));
        });
    }));
    link.TxChars("\r");
    ASSERT_TRUE(b.loop.runUntil([&] { return got.find("ID=") != std::string::npos; }));

    // Idle call: the program's threads must sleep.
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    const char* seconds = std::getenv("PARLANE_IDLE_SECONDS");
    const double idle = seconds ? std::atof(seconds) : 2.0;
    b.loop.waitSecs(idle);
    getrusage(RUSAGE_SELF, &after);
    const auto cpu = [](const rusage& r) {
        return r.ru_utime.tv_sec + r.ru_stime.tv_sec +
               (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
    };
    EXPECT_LT(cpu(after) - cpu(before), 0.02 * idle);

    // Hang-up on a pseudo-terminal: no DTR, so "+++" and ATH; then the line can call again.
    link.CloseCommunicationsPort();
    const auto drop = Clock::now();
    EXPECT_EQ(modem->lineDrop(call), 0);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_IDLE));
    // A second of silence before the escape, the modem's own guard time after it.
    EXPECT_GE(Clock::now() - drop, Milliseconds(1900));
    EXPECT_EQ(b.emulator.hangUps(), 1);
    EXPECT_FALSE(b.emulator.callUp());
    EXPECT_EQ(b.emulator.commands().back(), "ATH");

    EXPECT_GT(modem->lineMakeCall(line, call, "0800100101", LINEMEDIAMODE_DATAMODEM), 0);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_CONNECTED));
    EXPECT_EQ(b.emulator.dialled(), "T0800100101");
    // Closing the line ends the call at the modem (the port closing) and frees the lock.
    EXPECT_EQ(modem->lineClose(line), 0);
    ASSERT_TRUE(b.loop.runUntil([&] { return b.emulator.hangUps() == 2; }));
    EXPECT_TRUE(std::filesystem::is_empty(b.lockDir.path()));
}

TEST(AtModem, BusyNoCarrierAndAVanishingDeviceEndTheCall) {
    Bench b;
    auto modem = b.modem(b.options);
    std::uint32_t line = 0, call = 0;
    ASSERT_EQ(modem->lineOpen(0, line), 0);
    b.emulator.setAnswer(PtyModemEmulator::Answer::Busy);
    modem->lineMakeCall(line, call, "0800100100", LINEMEDIAMODE_DATAMODEM);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_DISCONNECTED));
    EXPECT_EQ(modem->lineDrop(call), 0);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_IDLE));
    EXPECT_EQ(b.states,
              (std::vector<std::uint32_t>{LINECALLSTATE_DISCONNECTED, LINECALLSTATE_IDLE}));

    b.emulator.setAnswer(PtyModemEmulator::Answer::NoCarrier);
    modem->lineMakeCall(line, call, "0800100100", LINEMEDIAMODE_DATAMODEM);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_DISCONNECTED));
    modem->lineDrop(call);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_IDLE));

    b.emulator.setAnswer(PtyModemEmulator::Answer::Connect);
    modem->lineMakeCall(line, call, "0800100100", LINEMEDIAMODE_DATAMODEM);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_CONNECTED));
    b.emulator.vanish();
    ASSERT_TRUE(b.reaches(LINECALLSTATE_DISCONNECTED));
    modem->lineDrop(call);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_IDLE));
    EXPECT_EQ(modem->lineClose(line), 0);
}

TEST(AtModem, TheLockKeepsASecondUserOutAndStaleLocksAreTakenOver) {
    Bench b;
    // Named as minicom and lockdev name it: "LCK..pts_3" for /dev/pts/3.
    std::string device = std::filesystem::canonical(b.options.devicePath).string().substr(5);
    std::replace(device.begin(), device.end(), '/', '_');
    const std::string lockFile = (b.lockDir.path() / ("LCK.." + device)).string();
    // A lock left by a process that is gone.
    const pid_t child = fork();
    if (child == 0) _exit(0);
    waitpid(child, nullptr, 0);
    std::ofstream(lockFile) << "     " << child << "\n";

    auto first = b.modem(b.options);
    auto second = b.modem(b.options);
    std::uint32_t line = 0, call = 0;
    ASSERT_EQ(first->lineOpen(0, line), 0);
    std::ifstream in(lockFile);
    long holder = 0;
    in >> holder;
    EXPECT_EQ(holder, getpid());

    // The second user's line opens, its call finds the line in use (the program waits).
    std::uint32_t line2 = 0;
    ASSERT_EQ(second->lineOpen(0, line2), 0);
    EXPECT_EQ(second->lineMakeCall(line2, call, "0800100100", LINEMEDIAMODE_DATAMODEM),
              LINEERR_INUSE);
    first->lineClose(line);
    EXPECT_FALSE(std::filesystem::exists(lockFile));
    EXPECT_GT(second->lineMakeCall(line2, call, "0800100100", LINEMEDIAMODE_DATAMODEM), 0);
    ASSERT_TRUE(b.reaches(LINECALLSTATE_CONNECTED));
    second->lineClose(line2);

    // A terminal program's flock keeps the modem out too, and not a byte is written; once the
    // modem lets the port go, it is open to others (no exclusive mode left behind).
    const int held = open(b.options.devicePath.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(held, 0);
    int exclusive = 1;
    EXPECT_EQ(ioctl(held, TIOCGEXCL, &exclusive), 0);
    EXPECT_EQ(exclusive, 0);
    const auto commands = b.emulator.commands().size();
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    ASSERT_EQ(second->lineOpen(0, line2), 0);
    EXPECT_EQ(second->lineMakeCall(line2, call, "0800100100", LINEMEDIAMODE_DATAMODEM),
              LINEERR_INUSE);
    EXPECT_EQ(b.emulator.commands().size(), commands);
    close(held);
    second->lineClose(line2);

    // A missing device is not a line in use.
    auto o = b.options;
    o.devicePath = "/dev/parlane-no-such-port";
    EXPECT_EQ(b.modem(o)->lineOpen(0, line), LINEERR_NODEVICE);
}

TEST(ModemDeviceList, ListsSettingsThenDetectedPortsOnceEachWithoutOpeningThem) {
    testing::TempFolder folder;
    const auto& dev = folder.path();
    std::filesystem::create_directories(dev / "serial" / "by-id");
    for (const char* node : {"ttyUSB0", "ttyUSB1", "ttyACM0", "ttyS0"})
        std::ofstream(dev / node) << "";
    std::filesystem::create_symlink("../../ttyUSB0",
                                    dev / "serial" / "by-id" / "usb-Acme_USB_Modem_42-if00-port0");
    const auto detected = DetectSerialPorts(dev.string());
    ASSERT_EQ(detected.size(), 3u);
    EXPECT_EQ(detected[0].name, "Acme USB Modem 42 (ttyUSB0)");
    EXPECT_EQ(detected[1].name, "USB modem ttyACM0");
    EXPECT_EQ(detected[2].name, "USB serial ttyUSB1");

    RealTimeLoop loop;
    SimulatedModem simulated(loop);
    // ttyUSB1 is named in the settings too: listed once, under the path as written.
    const std::string usb1 = (dev / "ttyUSB1").string();
    DeviceList list(loop, simulated, " /dev/ttyS7 ;" + usb1 + ";", "", AtModemOptions{}, detected);
    std::uint32_t count = 0;
    list.lineInitialize([](auto...) {}, "test", count);
    std::vector<std::string> names, keys;
    for (std::uint32_t d = 0; d < count; ++d) {
        LineDevCaps caps;
        EXPECT_EQ(list.lineGetDevCaps(d, caps), 0);
        names.push_back(caps.lineName);
        keys.push_back(caps.lineKey);
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{SimulatedModem::kLineName, "Internet (TCP)", "/dev/ttyS7",
                                        usb1, "Acme USB Modem 42 (ttyUSB0)", "USB modem ttyACM0"}));
    LineDevCaps caps;
    EXPECT_EQ(list.lineGetDevCaps(count, caps), LINEERR_BADDEVICEID);
    // Nothing open: the serial side refuses quietly.
    EXPECT_FALSE(list.CloseCommunicationsPort());

    // The next start, with ttyS7 taken out of the settings and a new port plugged in: every
    // line keeps its number, the gone one leaves a gap that names it, the new one comes last.
    std::string remembered;
    for (const auto& key : keys) remembered += (remembered.empty() ? "" : ";") + key;
    auto replugged = detected;
    replugged.push_back({"/dev/ttyACM9", "USB modem ttyACM9"});
    DeviceList later(loop, simulated, usb1, remembered, AtModemOptions{}, replugged);
    later.lineInitialize([](auto...) {}, "test", count);
    ASSERT_EQ(count, keys.size() + 1);
    for (std::uint32_t d = 0; d < count; ++d) {
        LineDevCaps now;
        const auto result = later.lineGetDevCaps(d, now);
        EXPECT_EQ(now.lineKey, d < keys.size() ? keys[d] : "/dev/ttyACM9");
        EXPECT_EQ(result, d == 2 ? LINEERR_NODEVICE : 0) << d;
    }
    std::uint32_t line = 0;
    EXPECT_EQ(later.lineOpen(2, line), LINEERR_BADDEVICEID);
}

// The main window dialling a centre on device 2 of the device list: the modem on the pty.
struct PtyRoad {
    PtyRoad(int protocol, const char* number) {
        auto centre = testing::MakeProvider("Modem", protocol, "3");
        centre.TapiDevice = "2";
        centre.AreaCode = "0800";
        centre.Number = number;
        p.writeProviders({centre});
        form.Form_Load();
        testing::Compose(form, "Hello over a real port", "44", "07700", "900123");
        form.mnuQueue_Click();
        form.mnuSend_Click();
    }
    static AtModemOptions Unlocked() {
        AtModemOptions o;
        o.lockDir.clear();
        return o;
    }
    PtyModemEmulator emulator;
    testing::TestPlatform p;
    RealTimeLoop loop;
    SimulatedModem simulated{loop};
    DeviceList devices{loop, simulated, emulator.devicePath(), "", Unlocked(), {}};
    frmMain form{Platform{loop, p.settings, p.dialogues, p.formats, devices, devices, p.home},
                 p.globals};
};

TEST(AtModemRoad, TapAndUcpMessagesGoThroughTheRealPort) {
    for (const auto& [number, protocol] :
         {std::pair{"100100", ProtocolTap}, {"100101", ProtocolUcp}}) {
        SCOPED_TRACE(number);
        PtyRoad road(protocol, number);
        EXPECT_TRUE(road.loop.runUntil([&] {
            return road.form.lblInfo.Caption == "There are no more messages in the queue  ";
        }));
        // After the run the call is dropped and the line closed (IDLE closes it).
        EXPECT_TRUE(road.loop.runUntil([&] { return road.form.lblEvent == "1"; }));
        EXPECT_FALSE(road.emulator.callUp());
        EXPECT_EQ(road.emulator.accepted(), 1);
        EXPECT_EQ(road.p.archiveStatuses(), std::vector<std::string>{"Message Sent Successfully"});
    }
}

// The centre hangs up: the modem's "NO CARRIER" ends the call at once, not a time-out. The
// re-dial waits for a modem slow to answer ATH rather than spend an attempt on "Line In Use".
TEST(AtModemRoad, NoCarrierEndsTheCallAndTheRedialWaitsForASlowHangUp) {
    PtyRoad road(ProtocolTap, "100100");
    auto& form = road.form;
    road.emulator.setHangUpDelay(Milliseconds(7000));
    ASSERT_TRUE(road.loop.runUntil([&] { return form.state.CallActive; }));
    const auto dropped = Clock::now();
    road.emulator.farEndHangsUp();
    ASSERT_TRUE(road.loop.runUntil([&] { return !form.state.CallActive; }));
    EXPECT_LT(Clock::now() - dropped, std::chrono::seconds(3));
    EXPECT_FALSE(form.frmNoResponse.Visible);
    // The second dial is the second attempt, once the modem has answered the ATH.
    const auto dials = [&] {
        const auto commands = road.emulator.commands();
        return std::count_if(commands.begin(), commands.end(),
                             [](const std::string& c) { return c.rfind("ATD", 0) == 0; });
    };
    EXPECT_TRUE(road.loop.runUntil([&] { return dials() == 2; }));
    EXPECT_EQ(form.state.counters.DialAttempts, 1);
    EXPECT_EQ(form.debugLog.text().find("LINEERR_INUSE"), std::string::npos);
    road.emulator.setHangUpDelay(Milliseconds(0));
    form.Form_QueryUnload();
    form.Form_Unload();
}

}  // namespace
}  // namespace parlane
