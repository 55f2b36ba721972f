// The internet line through the main window, in real time, against centres on loopback ports:
// whole runs over IPv4 and IPv6, plain and TLS, several messages in one connection, and the
// ways a connection fails. Nothing queued may be lost and every message must be archived.
#include "line/tcp/tcp_line.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "line/device_list.h"
#include "line/tcp/tcp_settings_form.h"
#include "support/loopback_centre.h"
#include "support/real_time_loop.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::LoopbackCentre;
using testing::RealTimeLoop;
using testing::TestCertificate;

TEST(TcpConfig, BlocksRoundTripAndOthersAreNotOurs) {
    const TcpConfig c{"sms.example.net", 3000, 12, true, false};
    EXPECT_EQ(DecodeTcpConfig(EncodeTcpConfig(c)), c);
    auto truncated = EncodeTcpConfig(c);
    truncated.pop_back();
    auto blank = EncodeTcpConfig({"a b", 1});
    const std::vector<std::uint8_t> modem = {'P', 'L', 'M', 'C', 1};
    for (const auto& bad : {truncated, blank, modem, std::vector<std::uint8_t>{}})
        EXPECT_FALSE(DecodeTcpConfig(bad));
}

TEST(TcpConfig, TheFormRefusesWhatCannotBeDialled) {
    const std::pair<const char*, std::string> cases[] = {
        {"txtHost", ""},      {"txtHost", "a b"},  {"txtPort", "0"},
        {"txtPort", "65536"}, {"txtTimeout", "0"}, {"txtTimeout", "301"}};
    for (const auto& [control, text] : cases) {
        TcpSettingsForm form(TcpConfig{"centre.example", 3000});
        for (const auto& f : form.fields())
            if (std::string(f.control) == control) f.box->Text = text;
        ASSERT_TRUE(form.FirstFault()) << control << " " << text;
        EXPECT_STREQ(form.FirstFault()->control, control);
        EXPECT_FALSE(form.Result());
    }
    EXPECT_EQ(TcpSettingsForm(TcpConfig{"h", 1, 5, true}).Result(), (TcpConfig{"h", 1, 5, true}));
}

// The main window, its devices and a centre on device 1 that reaches `centre`.
struct Road {
    Road(const TcpConfig& config, int protocol, const std::string& trustFile = "") {
        devices.tcp().setExtraTrustFile(trustFile);
        auto centre = testing::MakeProvider("Internet", protocol, "3");
        centre.TapiDevice = "1";
        centre.Number = "1";
        centre.DevConfig = EncodeTcpConfig(config);
        p.writeProviders({centre});
        form.Form_Load();
        form.timSendMessages.setInterval(500);  // the run's tick, to dial sooner than in 4 s
        devices.tcp().onNote = [this](const std::string& t) { form.debugLog.AppendLog(t); };
    }
    // Queues the texts and sends them; true when the run ended with the queue empty.
    bool send(const std::vector<std::string>& texts) {
        testing::QueueTexts(form, texts);
        form.mnuSend_Click();
        return loop.runUntil(
            [&] { return form.lblInfo.Caption == "There are no more messages in the queue  "; });
    }
    bool logged(const std::string& text) const {
        return form.debugLog.text().find(text) != std::string::npos;
    }

    testing::TestPlatform p;
    RealTimeLoop loop;
    SimulatedModem simulated{loop};
    DeviceList devices{loop, simulated, "", "", AtModemOptions{}, {}};
    frmMain form{Platform{loop, p.settings, p.dialogues, p.formats, devices, devices, p.home},
                 p.globals};
};

TEST(TcpLineRoad, WholeRunsOverIpv4AndIpv6PlainAndTls) {
    const TestCertificate cert("IP:127.0.0.1,IP:::1");
    struct Case {
        const char* address;
        bool tls;
        const char* number;
        int protocol;
    };
    for (const auto& c :
         {Case{"127.0.0.1", false, "100102", ProtocolVoda},
          Case{"::1", false, "100100", ProtocolTap}, Case{"127.0.0.1", true, "100100", ProtocolTap},
          Case{"::1", true, "100101", ProtocolUcp}}) {
        SCOPED_TRACE(std::string(c.address) + (c.tls ? " TLS " : " ") + c.number);
        if (!LoopbackCentre::Available(c.address)) {
            std::printf("no %s on this machine's loopback: case left out\n", c.address);
            continue;
        }
        LoopbackCentre centre(
            {c.address, c.number, c.tls ? cert.certFile : "", c.tls ? cert.keyFile : "", 0});
        Road road({c.address, centre.port(), 5, c.tls, true}, c.protocol, cert.certFile);
        ASSERT_TRUE(road.send({"one", "two"}));
        // Two messages, one connection, each archived as sent.
        EXPECT_EQ(centre.accepted(), 2);
        EXPECT_EQ(centre.connections(), 1);
        EXPECT_EQ(road.p.archiveStatuses(),
                  std::vector<std::string>(2, "Message Sent Successfully"));
        EXPECT_TRUE(road.logged("LINECALLSTATE_PROCEEDING"));
        EXPECT_TRUE(road.loop.runUntil([&] { return road.form.lblEvent == "1"; }));
    }
}

// A port on which nothing listens: bound, then closed again.
std::uint16_t ClosedPort() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof a;
    bind(fd, reinterpret_cast<sockaddr*>(&a), length);
    getsockname(fd, reinterpret_cast<sockaddr*>(&a), &length);
    close(fd);
    return ntohs(a.sin_port);
}

TEST(TcpLineRoad, FailedConnectionsLoseNothingAndArchiveEveryMessage) {
    const TestCertificate otherName("DNS:other.example");
    struct Case {
        const char* name;
        LoopbackCentre::Options server;  // empty address: no server at all
        bool tls;
        TcpFailure failure;  // None: the centre never speaks, and the safety limit cuts the call
        const char* mode;
        const char* note;  // the debug log's words for it
    };
    // clang-format off
    const Case cases[] = {
        {"refused", {"", "", "", "", 0}, false, TcpFailure::Refused, "LINEDISCONNECTMODE_REJECT",
         "Not connected: No connection to 127.0.0.1:"},
        {"silent", {"127.0.0.1", "103101", "", "", 0}, false, TcpFailure::None, nullptr, nullptr},
        {"reset mid-block", {"::1", "100101", "", "", 20}, false, TcpFailure::Reset,
         "LINEDISCONNECTMODE_UNKNOWN", "Connection lost: "},
        {"certificate for another name",
         {"127.0.0.1", "100101", otherName.certFile, otherName.keyFile, 0}, true, TcpFailure::Tls,
         "LINEDISCONNECTMODE_INCOMPATIBLE", "Not connected: TLS failed: "},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        if (!LoopbackCentre::Available(c.server.address)) continue;  // no IPv6 loopback here
        std::unique_ptr<LoopbackCentre> server;
        if (*c.server.address.c_str()) server = std::make_unique<LoopbackCentre>(c.server);
        const TcpConfig config{c.server.address.empty() ? "127.0.0.1" : c.server.address,
                               server ? server->port() : ClosedPort(), 5, c.tls, true};
        Road road(config, ProtocolUcp, otherName.certFile);
        road.form.state.MaxDialAttempts = 1;  // one dial per message
        // The safety limit's three ticks a second each instead of a minute. Its count runs on
        // from call to call, so only the silent centre gets them.
        if (c.failure == TcpFailure::None) road.form.timSafetyTimer.setInterval(1000);
        ASSERT_TRUE(road.send({"one", "two"}));
        // Each message archived with its reason; one the limit cut is then given up as well.
        const auto statuses = road.p.archiveStatuses();
        const bool cut = c.failure == TcpFailure::None;
        const char* status =
            cut ? "Message Sending Timed Out" : "Aborted - Maximum Dial Attempts Exceeded";
        EXPECT_EQ(std::count(statuses.begin(), statuses.end(), status), 2);
        EXPECT_EQ(statuses.size(), cut ? 4u : 2u);
        EXPECT_EQ(UpperBound(road.form.QueueBuffer), 0);
        EXPECT_EQ(road.devices.tcp().lastFailure(), c.failure);
        if (c.mode) {
            EXPECT_TRUE(road.logged(c.mode)) << road.form.debugLog.text();
            EXPECT_TRUE(road.logged(c.note)) << road.form.debugLog.text();
        }
        if (server) {
            EXPECT_EQ(server->accepted(), 0);
        }
    }
}

}  // namespace
}  // namespace parlane
