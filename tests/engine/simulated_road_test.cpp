// The whole road of a message through the simulated modem and its centres, for every dialogue
// and the line's faults, in virtual time.
#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::QueueTexts;
using testing::TestPlatform;

struct Road {
    std::vector<std::string> statuses;  // archive statuses, in file order
    long long seconds = 0;              // virtual time the run took
    int unmarked = 0;  // status lines telling a delivery without saying it was simulated
};

Road Drive(int protocol, const std::string& number, int messages,
           const std::string& password = "") {
    TestPlatform p;
    p.useSimulatedModem();
    auto centre = MakeProvider("Sim", protocol, "3");
    centre.AreaCode = "0800";
    centre.Number = number;
    centre.Password = password;
    p.writeProviders({centre});
    auto& f = p.load();
    for (int i = 1; i <= messages; ++i)
        QueueTexts(f, {"Message number " + std::to_string(i) + " [ok]"}, "44", "07700", "900123");
    f.mnuSend_Click();
    EXPECT_TRUE(p.loop.runUntil(
        [&] { return f.lblInfo.Caption == "There are no more messages in the queue  "; }));
    int unmarked = 0;
    for (const auto& line : p.statusLines)
        if (line.rfind("Message Sent Successfully", 0) == 0 &&
            line.find("(simulated)") == std::string::npos)
            ++unmarked;
    return {p.archiveStatuses(), p.loop.now().count() / 1000, unmarked};
}

// The number of the centre for `protocol` with fault `fault` and variant `variant`.
std::string Number(int protocol, char fault, char variant = '1') {
    return std::string{variant, fault} + std::to_string(100 + protocol);
}

TEST(SimulatedRoad, EveryDialogueDeliversThroughEveryFaultOfTheLine) {
    const std::vector<std::string> sent(3, "Message Sent Successfully (simulated)");
    for (int protocol = ProtocolTap; protocol <= ProtocolLibertel; ++protocol) {
        for (char fault : {'0', '5', '6', '7', '1'}) {
            // TAP and TIM look at the latest chunk only, so text in small pieces is theirs
            // to miss; the appending dialogues must not care how it is cut.
            const bool appends = protocol != ProtocolTap && protocol != ProtocolTim;
            if (fault == '6' && !appends) continue;
            const auto road = Drive(protocol, Number(protocol, fault), 3);
            EXPECT_EQ(road.statuses, sent) << "protocol " << protocol << " fault " << fault;
            EXPECT_EQ(road.unmarked, 0) << "protocol " << protocol;
            EXPECT_LT(road.seconds, 400) << "protocol " << protocol << " fault " << fault;
        }
    }
    // The other manners of each centre (the cases above have variant 1), without a fault.
    for (const auto& [protocol, variants] : {std::pair{ProtocolTap, "0234"},
                                             {ProtocolUcp, "023"},
                                             {ProtocolVoda, "0"},
                                             {ProtocolTim, "023"}})
        for (const char* v = variants; *v; ++v)
            EXPECT_EQ(Drive(protocol, Number(protocol, '0', *v), 3).statuses, sent)
                << "protocol " << protocol << " variant " << *v;
}

TEST(SimulatedRoad, RefusalsPasswordsAndSilence) {
    // The second message of each call is refused (protocol 6: TAP refusing by RS); the others
    // go through.
    for (int protocol = ProtocolTap; protocol <= ProtocolLibertel + 1; ++protocol) {
        const bool rs = protocol > ProtocolLibertel;
        auto road = Drive(rs ? ProtocolTap : protocol,
                          rs ? Number(ProtocolTap, '8', '5') : Number(protocol, '8'), 3);
        std::sort(road.statuses.begin(), road.statuses.end());
        ASSERT_EQ(road.statuses.size(), 3u) << protocol;
        EXPECT_EQ(road.statuses[2].rfind("Message Sent Successfully", 0), 0u) << protocol;
        EXPECT_EQ(road.statuses[0].rfind("Message Rejected By SMSC", 0), 0u) << protocol;
    }
    // The right password gets in; a wrong one is refused call after call until the attempts
    // run out.
    EXPECT_EQ(Drive(ProtocolTap, "109100", 1, "secret").statuses,
              std::vector<std::string>{"Message Sent Successfully (simulated)"});
    EXPECT_EQ(Drive(ProtocolTap, "109100", 1, "guess").statuses,
              std::vector<std::string>{"Aborted - Maximum Dial Attempts Exceeded (simulated)"});
    // A centre that never speaks: the safety limit cuts each call at its third minute.
    const auto silent = Drive(ProtocolTap, "103100", 1);
    EXPECT_EQ(silent.statuses,
              (std::vector<std::string>{"Message Sending Timed Out (simulated)",
                                        "Message Sending Timed Out (simulated)",
                                        "Message Sending Timed Out (simulated)",
                                        "Aborted - Maximum Dial Attempts Exceeded (simulated)"}));
    EXPECT_GT(silent.seconds, 3 * 120);
}

}  // namespace
}  // namespace parlane
