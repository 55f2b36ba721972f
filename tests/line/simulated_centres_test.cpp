// The simulated centres, fed the bytes the program writes, in virtual time.
#include <gtest/gtest.h>

#include <memory>
#include <regex>
#include <tuple>
#include <typeindex>

#include "core/cp1252.h"
#include "core/virtual_event_loop.h"
#include "line/sim/simulated_orange_centre.h"
#include "line/sim/simulated_tap_centre.h"
#include "line/sim/simulated_tim_centre.h"
#include "line/sim/simulated_ucp_centre.h"
#include "line/sim/simulated_voda_centre.h"

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
    // Thirty nudges at once: thirty answers, in turn, each 200 to 800 ms after the one before.
    centre.received(std::string(30, '\r'));
    std::vector<int> gaps;
    int sinceLast = 0;
    for (int ms = 0; ms < 30 * 800; ++ms) {
        const std::size_t before = call.link.chunks.size();
        call.loop.advance(1ms);
        ++sinceLast;
        if (call.link.chunks.size() == before) continue;
        EXPECT_EQ(call.link.chunks.size(), before + 1);
        gaps.push_back(std::exchange(sinceLast, 0));
    }
    ASSERT_EQ(gaps.size(), 30u);
    const auto [least, most] = std::minmax_element(gaps.begin(), gaps.end());
    EXPECT_GE(*least, 200);
    EXPECT_LE(*most, 800);
    EXPECT_LT(*least, *most);
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

// ---- Menus ----

struct Step {
    std::string in;
    std::string want;         // regular expression on the answer; empty: no answer at all
    std::string forbid = "";  // must not appear in the answer
    Milliseconds wait = 3s;   // how long the answer may take
};

// Words that make the program give up on a message, in any case.
bool HasGiveUpWord(const std::string& text) {
    const std::string lower = Cp1252LowerCase(text);
    for (const char* w : {"sorry", "unavailable", "invalid", "error", "goodbye", "essere inviato"})
        if (lower.find(w) != std::string::npos) return true;
    return false;
}

// A good call (`good`) may say a give-up word in its last answer only.
void RunMenu(SimulatedCentreBase&& centre, const std::string& greeting,
             const std::vector<Step>& script, std::vector<AcceptedMessage> accepted, bool good) {
    Call call(centre);
    EXPECT_TRUE(std::regex_search(call.greeting, std::regex(greeting))) << call.greeting;
    std::string said = call.greeting;
    for (std::size_t i = 0; i < script.size(); ++i) {
        const Step& s = script[i];
        const std::string out = call.send(s.in, s.wait);
        EXPECT_TRUE(s.want.empty() ? out.empty() : std::regex_search(out, std::regex(s.want)))
            << s.in << " -> " << out;
        EXPECT_TRUE(s.forbid.empty() || out.find(s.forbid) == std::string::npos) << out;
        if (i + 1 < script.size()) said += out;
    }
    EXPECT_FALSE(good && HasGiveUpWord(said)) << said;
    EXPECT_EQ(centre.accepted(), accepted);
    EXPECT_TRUE(call.link.hungUp);
}

TEST(SimulatedMenuCentres, VodaAndLibertel) {
    for (bool good : {true, false}) {
        const RefusalRule refuse{good ? 0 : 2};
        const struct {
            std::unique_ptr<SimulatedCentreBase> centre;
            std::string number, type, accepted, refused;
        } kinds[] = {
            {std::make_unique<SimulatedVodaCentre>(VodaCentreOptions{false, refuse}), "NUMBER",
             "TYPE", "ACCEPTED", "SORRY"},
            {std::make_unique<SimulatedVodaCentre>(VodaCentreOptions{true, refuse}), "number",
             "Type", "accepted", "Sorry"},
            {std::make_unique<SimulatedLibertelCentre>(refuse), "telefoonnummer", "bericht",
             "geaccepteerd", "Sorry"},
        };
        for (const auto& k : kinds) {
            SCOPED_TRACE(k.number);
            // The number prompt comes back by itself, in a chunk of its own after the result.
            RunMenu(std::move(*k.centre), k.number,
                    {{"\r", ""},
                     {"447973123456\r", k.type},
                     {"Hello\r", k.accepted + "[^|]*\\|[^|]*" + k.number},
                     {"3161234567\r", k.type},
                     // A caller that is done answers the result with a CR at once.
                     {"Second one\r", good ? k.accepted : k.refused, "", 1s},
                     {"\r", "."}},
                    good ? std::vector{kHello, kSecond} : std::vector{kHello}, good);
        }
    }
}

TEST(SimulatedMenuCentres, Orange) {
    RunMenu(SimulatedOrangeCentre(), "Send a message",
            {{"\r", ""},
             {"s", "Pager number"},
             {"447973123456\r", "to send"},
             {"Hello\r", "accepted"},
             {"s", "Pager number"},
             {"3161234567\r", "to send"},
             {"Second one\r", "accepted"},
             {"\r", "Goodbye"}},
            {kHello, kSecond}, true);
    RunMenu(
        SimulatedOrangeCentre({1}), "Send a message",
        {{"s", "Pager number"}, {"447973123456\r", "to send"}, {"Hello\r", "Sorry"}, {"q", "."}},
        {}, false);
}

TEST(SimulatedMenuCentres, TimWalksBackToTheFormForEachMessage) {
    // Until the result, nothing may name the recipient field again: the program waits for it.
    auto message = [](const std::string& number, const std::string& text,
                      const std::string& result) {
        std::vector<Step> steps = {{number + "\r", "\\S", "Destinatario"}};
        for (int i = 0; i < 3; ++i) steps.push_back({"\r", "\\S", "Destinatario"});
        steps.push_back({"\r", "Testo", "Destinatario"});
        steps.push_back({text + "\r", "\\S", "Destinatario"});
        steps.push_back({"\r", "^[^|]*" + result});
        return steps;
    };
    auto script = [&](const std::string& secondResult) {
        std::vector<Step> s = {{"1\r", "\\S"}, {"\r", "Destinatario"}, {"\r", ""}, {"\r", ""}};
        const std::vector<Step> back = {
            {"u", "\\S", "Destinatario"}, {"u", "\\S", "Destinatario"}, {"\r", "Destinatario"}};
        for (const auto& part : {message("00447973123456", "Hello", "MESSAGGIO INVIATO"), back,
                                 message("0031161234567", "Second one", secondResult), back,
                                 message("00447973123456", "Third", "MESSAGGIO INVIATO")})
            s.insert(s.end(), part.begin(), part.end());
        s.push_back({"q\r\r", "\\S"});
        return s;
    };
    const AcceptedMessage hello{"00447973123456", "Hello"}, third{"00447973123456", "Third"};
    const char* headings[] = {"pTIM", "CMenu", "CScr", "CServizio"};
    for (int h = 0; h < 4; ++h) {
        SCOPED_TRACE(headings[h]);
        RunMenu(SimulatedTimCentre(static_cast<SimulatedTimCentre::Heading>(h)),
                std::string("^[^|]*") + headings[h], script("MESSAGGIO INVIATO"),
                {hello, {"0031161234567", "Second one"}, third}, true);
    }
    RunMenu(SimulatedTimCentre(SimulatedTimCentre::Heading::PTim, {2}), "pTIM",
            script("ESSERE INVIATO"), {hello, third}, false);
}

// ---- Number plan ----

TEST(CentreNumberPlan, LastDigitsPickTheCentreTheFaultAndTheVariant) {
    using Kind = std::type_index;
    const Kind Tap = typeid(SimulatedTapCentre), Ucp = typeid(SimulatedUcpCentre),
               Voda = typeid(SimulatedVodaCentre), Orange = typeid(SimulatedOrangeCentre),
               Tim = typeid(SimulatedTimCentre), Libertel = typeid(SimulatedLibertelCentre),
               Nobody = typeid(void);
    auto faults = [](const LineBehaviour& b) {
        return std::tuple(b.busyAttempts, b.noAnswer, b.dropAfterMs, b.noise, b.splitChunks,
                          b.burstBytes);
    };
    const struct {
        const char* number;
        Kind kind;
        LineBehaviour line;
    } cases[] = {
        {"+44 (0800) 100100", Tap, {}},
        {"+440800100101", Ucp, {}},
        {"+440800100102", Voda, {}},
        {"+440800100103", Orange, {}},
        {"+440800100104", Tim, {}},
        {"+440800100105", Libertel, {}},
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
        EXPECT_FALSE(choice.description.empty());
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

}  // namespace
}  // namespace parlane
