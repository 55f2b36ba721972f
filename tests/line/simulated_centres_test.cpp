// The simulated centres in virtual time: fed the bytes the program writes, and on the whole road
// of a message through the simulated modem, for every dialogue and the line's faults.
#include <gtest/gtest.h>

#include <memory>
#include <regex>
#include <tuple>
#include <typeindex>

#include "core/virtual_event_loop.h"
#include "line/sim/simulated_orange_centre.h"
#include "line/sim/simulated_tap_centre.h"
#include "line/sim/simulated_tim_centre.h"
#include "line/sim/simulated_ucp_centre.h"
#include "line/sim/simulated_voda_centre.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using namespace std::chrono_literals;

class LoopLink : public CentreLink {
  public:
    explicit LoopLink(VirtualEventLoop& loop) : loop_(loop) {}
    void sendToProgram(std::string bytes) override { chunks.push_back(std::move(bytes)); }
    void after(Milliseconds delay, std::function<void()> fn) override {
        auto id = std::make_shared<EventLoop::TimerId>();
        *id = loop_.createTimer([this, id, fn] {
            loop_.stopTimer(*id);
            if (!hungUp) fn();
        });
        loop_.startTimer(*id, delay);
    }
    void hangUp() override { hungUp = true; }

    std::vector<std::string> chunks;
    bool hungUp = false;

  private:
    VirtualEventLoop& loop_;
};

// One call to one centre. Answers come back with their chunks joined by '|', since where a
// chunk ends matters to the program.
struct Call {
    VirtualEventLoop loop;
    LoopLink link{loop};
    SimulatedCentreBase& centre;
    std::string greeting;

    explicit Call(SimulatedCentreBase& c) : centre(c) {
        centre.connected(link);
        greeting = send("");
    }
    std::string send(std::string_view bytes, Milliseconds wait = 3s) {
        const std::size_t first = link.chunks.size();
        centre.received(bytes);
        loop.advance(wait);
        std::string out;
        for (std::size_t i = first; i < link.chunks.size(); ++i)
            out += (i > first ? "|" : "") + link.chunks[i];
        return out;
    }
};

using Script = std::vector<std::pair<std::string, std::string>>;  // sent, exact answer

template <class Options>
struct ExactCase {
    const char* name;
    Options options;
    Script script;
    std::vector<AcceptedMessage> accepted;
    bool hungUp = false;
};

template <class Centre, class Options>
void RunExact(const std::vector<ExactCase<Options>>& cases) {
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Centre centre(c.options);
        Call call(centre);
        EXPECT_EQ(call.greeting, "");
        for (const auto& [in, out] : c.script) EXPECT_EQ(call.send(in), out) << "after " << in;
        EXPECT_EQ(centre.accepted(), c.accepted);
        EXPECT_EQ(call.link.hungUp, c.hungUp);
    }
}

const AcceptedMessage kHello{"447973123456", "Hello"};
const AcceptedMessage kSecond{"3161234567", "Second one"};

// ---- TAP ----

std::string Block(const std::string& f1, const std::string& f2, const std::string& sum) {
    return "\x02" + f1 + "\r" + f2 + "\r\x03" + sum + "\r";
}
const std::string kBlock1 = Block("447973123456", "Hello", "48:");
const std::string kBlock2 = Block("3161234567", "Second one", "5>3");
const std::string kLogon = "\x1BPG1\r", kGo = "\x1B[p\r", kAck = "\x06\r", kNak = "\x15\r";

TEST(SimulatedTapCentre, Sessions) {
    TapCentreOptions secret, byNak, bare, doneShort, doneLong, goAck, second, secondRs;
    secret.password = byNak.password = "secret";
    byNak.passwordRefusedByNak = true;
    bare.ackWithCr = bare.signOffWithEsc = false;
    doneShort.finishAfter = doneLong.finishAfter = 1;
    doneLong.finishLong = true;
    goAck.afterGoAhead = kAck;
    second.refuse.nth = secondRs.refuse.nth = 2;
    secondRs.refuseByRs = true;
    auto loggedOn = [](Script more) {
        Script s = {{"\r", "ID="}, {kLogon, kGo}};
        s.insert(s.end(), more.begin(), more.end());
        return s;
    };
    // clang-format off
    RunExact<SimulatedTapCentre, TapCentreOptions>({
        {"two messages", {}, {{"\r\r", "ID=|ID="}, {kLogon, kGo}, {kBlock1, kAck}, {kBlock2, kAck},
                              {"\x04\r", "\x1B\x04"}, {kBlock1, ""}}, {kHello, kSecond}, true},
        {"block in pieces", {}, loggedOn({{kBlock1.substr(0, 5), ""}, {kBlock1.substr(5), kAck}}),
         {kHello}},
        {"bad checksum", {}, loggedOn({{Block("447973123456", "Hello", "48;"), kNak},
                                       {kBlock1, kAck}}), {kHello}},
        {"2nd refused by NAK", second, loggedOn({{kBlock1, kAck}, {kBlock2, kNak}}), {kHello}},
        {"2nd refused by RS", secondRs, loggedOn({{kBlock1, kAck}, {kBlock2, "\x1E"}}), {kHello}},
        {"wrong password, then the right one", secret,
         {{"\r", "ID="}, {"\x1BPG1guess\r", "BAD PASSWORD\r"}, {"\x1BPG1secret\r", kGo}}, {}},
        {"three refused logons end the call", byNak,
         {{"\r", "ID="}, {kLogon, kNak}, {kLogon, kNak}, {kLogon, kNak + "|\x1B\x04"}}, {}, true},
        {"bare ACK and EOT", bare, loggedOn({{kBlock1, "\x06"}, {"\x04\r", "\x04"}}), {kHello}, true},
        {"short done", doneShort, loggedOn({{kBlock1, "\x06\r\x1B\x04"}, {kBlock2, ""}}), {kHello},
         true},
        {"long done", doneLong, loggedOn({{kBlock1, "\x06\r\r\x1B\x04"}}), {kHello}, true},
        {"ACK in the go-ahead chunk", goAck, {{"\r", "ID="}, {kLogon, kGo + kAck}}, {}},
    });
    // clang-format on
}

TEST(SimulatedTapCentre, AnswersOneAtATimeAfterARealisticPause) {
    SimulatedTapCentre centre;
    Call call(centre);
    centre.received(std::string(30, '\r'));  // thirty nudges at once
    std::vector<long long> at;               // when each answer came
    for (int ms = 1; ms <= 30 * 800; ++ms) {
        call.loop.advance(1ms);
        at.resize(call.link.chunks.size(), ms);
    }
    ASSERT_EQ(at.size(), 30u);
    for (std::size_t i = 0; i < at.size(); ++i) {
        const long long gap = at[i] - (i ? at[i - 1] : 0);
        EXPECT_TRUE(gap >= 200 && gap <= 800) << i << ": " << gap;
    }
}

// ---- UCP ----

std::string Framed(const std::string& inner) {
    return "\x02" + inner + "\x03";
}
const std::string kOp01 = Framed("00/00045/O/01/00447973123456/12345//3/4869/94");
const std::string kAck01 = Framed("00/00019/R/01/A//68");
const AcceptedMessage kHi{"00447973123456", "Hi"};

TEST(SimulatedUcpCentre, Sessions) {
    UcpCentreOptions lower, pieces, silent, second, secret;
    lower.lowerCase = true;
    pieces.answerPieces = 3;
    silent.answerBadFrames = false;
    second.refuse.nth = 2;
    secret.password = "secret";
    const std::string badSum = Framed("00/00045/O/01/00447973123456/12345//3/4869/95");
    // clang-format off
    RunExact<SimulatedUcpCentre, UcpCentreOptions>({
        {"operations 01, 30 and 51", {},
         {{kOp01, kAck01},
          {Framed("00/00049/O/30/00447973123456/12345////////4869/52"), Framed("00/00019/R/30/A//6A")},
          {Framed("00/00073/O/51/00447973123456/12345/////////////////3//4869/////////////BE"),
           Framed("00/00019/R/51/A//6D")}},
         {kHi, kHi, kHi}},
        {"GSM codes", {}, {{Framed("00/00049/O/01/00447973123456/12345//3/00015B7F/72"), kAck01}},
         {{"00447973123456", "@\xA3\xC4\xE0"}}},
        {"frames in pieces, after junk", {},
         {{"junk\x02" + kOp01.substr(0, 12), ""}, {kOp01.substr(12), kAck01},
          {"\x02" "cut short" + kOp01, kAck01}},
         {kHi, kHi}},
        {"bad checksum and bad length", {},
         {{badSum, Framed("00/00036/R/01/N/01/CHECKSUM ERROR/01")},
          {Framed("00/00046/O/01/00447973123456/12345//3/4869/95"),
           Framed("00/00034/R/01/N/02/SYNTAX ERROR/94")}},
         {}},
        {"bad frames unanswered", silent, {{badSum, ""}, {kOp01, kAck01}}, {kHi}},
        {"2nd refused", second,
         {{kOp01, kAck01}, {kOp01, Framed("00/00043/R/01/N/04/OPERATION NOT ALLOWED/EF")}}, {kHi}},
        {"wrong AC", secret, {{kOp01, Framed("00/00044/R/01/N/07/AUTHENTICATION FAILURE/51")}}, {}},
        {"lower case", lower, {{kOp01, Framed("00/00019/r/01/a//a8")}}, {kHi}},
        {"three chunks", pieces, {{kOp01, "\x02" "00/000|19/R/01|/A//68\x03"}}, {kHi}},
    });
    // clang-format on
}

// ---- Number plan ----

TEST(CentreNumberPlan, LastDigitsPickTheCentreTheFaultAndTheVariant) {
    using Kind = std::type_index;
    const Kind Tap = typeid(SimulatedTapCentre), Ucp = typeid(SimulatedUcpCentre),
               Orange = typeid(SimulatedOrangeCentre), Tim = typeid(SimulatedTimCentre),
               Libertel = typeid(SimulatedLibertelCentre), Nobody = typeid(void);
    auto faults = [](const LineBehaviour& b) {
        return std::tuple(b.busyAttempts, b.noAnswer, b.dropAfterMs, b.noise, b.splitChunks,
                          b.burstBytes);
    };
    const struct {
        const char* number;
        Kind kind;
        LineBehaviour line;
    } cases[] = {
        {"+44 (0800) 100100", Tap, {}},  // each centre's own ending: SimulatedRoad
        {"+440800101100", Tap, {.busyAttempts = 2}},
        {"+440800102101", Ucp, {.noAnswer = true}},
        {"+440800103102", Nobody, {}},
        {"+440800104103", Orange, {.dropAfterMs = 20000}},
        {"+440800105104", Tim, {.noise = true}},
        {"+440800106105", Libertel, {.splitChunks = true}},
        {"+440800107100", Tap, {.burstBytes = 1500}},
        {"+440800101106", Tap, {}},  // unknown centre: faults do not apply
        {"+4412345", Tap, {}},
        {"12", Tap, {}},
        {"", Tap, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        const CentreChoice choice = CentreForNumber(c.number, 1);
        const SimulatedCentre* centre = choice.centre.get();
        EXPECT_EQ(centre ? Kind(typeid(*centre)) : Nobody, c.kind);
        EXPECT_EQ(faults(choice.line), faults(c.line));
    }

    // Faults and variants that live in the centre show in what it answers.
    const struct {
        const char* number;
        std::vector<std::string> inputs;
        std::string want;  // regular expression on the last answer, or on the greeting
    } probes[] = {
        {"+440800100100", {"\r", "\x1BPG1guess\r"}, "^\x1B\\[p"},
        {"+440800109100", {"\r", "\x1BPG1guess\r"}, "^BAD PASSWORD\r$"},
        {"+440800169100", {"\r", "\x1BPG1guess\r"}, "^\x15\r$"},
        {"+440800158100", {"\r", kLogon, kBlock1, kBlock2}, "^\x1E$"},
        {"+440800020100", {"\r", kLogon, kBlock1}, "^\x06\r\x1B\x04$"},
        {"+440800110101", {kOp01}, "/r/01/a/"},
        {"+440800109101", {kOp01}, "/N/07/"},
        {"+440800110102", {}, "Enter number"},
        {"+440800109102", {"447973123456\r", "Hello\r"}, "SORRY"},
        {"+440800130104", {}, "CServizio"},
    };
    for (const auto& p : probes) {
        SCOPED_TRACE(p.number);
        CentreChoice choice = CentreForNumber(p.number, 1);
        Call call(dynamic_cast<SimulatedCentreBase&>(*choice.centre));
        std::string last = call.greeting;
        for (const auto& in : p.inputs) last = call.send(in);
        EXPECT_TRUE(std::regex_search(last, std::regex(p.want))) << last;
    }
}

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
}

}  // namespace
}  // namespace parlane
