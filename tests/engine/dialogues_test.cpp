// The bytes of TAP blocks and UCP frames, and whole calls against scripted centres in virtual
// time: bytes on the wire, status lines, archive.
#include <gtest/gtest.h>

#include <random>

#include "engine/tap_block.h"
#include "engine/ucp_frame.h"
#include "support/test_platform.h"

namespace parlane {
namespace {

using testing::MakeProvider;
using testing::QueueTexts;
using testing::TestPlatform;

TEST(TapBlock, ChecksumAndFramingOfTheExample) {
    const std::string block = BuildTapBlock("447973123456\rHello\r");
    EXPECT_EQ(block,
              "\x02"
              "447973123456\rHello\r\x03"
              "48:\r");
    EXPECT_EQ(BuildTapBlock(""),
              "\x02\x03"
              "005\r");
    // The sum must fit a signed 16-bit number; past it no block is built.
    EXPECT_TRUE(BuildTapBlock(std::string(250, '~')).size() > 250);
    EXPECT_TRUE(BuildTapBlock(std::string(300, '~')).empty());
}

TEST(TapBlock, SubstitutionKeepsLengthAndMapsBothWays) {
    struct Case {
        unsigned char in;
        bool extended;
        int out;
    } cases[] = {
        {'\n', false, 32},  {0, false, 32},     {'[', false, '('},  {'{', false, '('},
        {'\\', false, '/'}, {'|', false, '/'},  {']', false, ')'},  {'}', false, ')'},
        {'^', false, '\''}, {'`', false, '\''}, {'_', false, '-'},  {127, false, '-'},
        {0xA3, false, 1},   {0xA5, false, 3},   {0xE9, false, 'i'}, {0xE9, true, 5},
        {0xC5, true, 14},   {0xE0, true, 127},  {0xA0, true, 32},   {0x80, false, 32},
        {'A', true, 'A'},   {0xBF, true, 96},   {0xBF, false, '?'},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SubstituteCharacter(c.in, c.extended), c.out) << int(c.in) << c.extended;
    std::string text = "a[b]\r\n\xE9";
    FindAsciiCharacter(text, false);
    EXPECT_EQ(text, "a(b)  i");
}

TEST(UcpFrame, TheThreeOperationsOfTheExample) {
    QueuedMessage head{"44", "07973", "123456", "Hi", 1, 0, "C"};
    Provider centre;
    struct Case {
        const char* op;
        const char* frame;
    } cases[] = {
        {"01", "00/00045/O/01/00447973123456/12345//3/4869/94"},
        {"30", "00/00049/O/30/00447973123456/12345////////4869/52"},
        {"51", "00/00073/O/51/00447973123456/12345/////////////////3//4869/////////////BE"},
    };
    for (const auto& c : cases) {
        centre.UCPOperation = c.op;
        EXPECT_EQ(BuildUcpFrame(head, centre, "12345"), "\x02" + std::string(c.frame) + "\x03");
    }
    // Country code 0 or not a number: national dialling.
    head.CountryCode = "x";
    head.AreaCode = "0";
    centre.UCPOperation = "01";
    EXPECT_NE(BuildUcpFrame(head, centre, "1").find("/O/01/0123456/1/"), std::string::npos);
}

TEST(UcpFrame, TextToGsmHex) {
    EXPECT_EQ(UcpTextToHex("Hi"), "4869");
    EXPECT_EQ(UcpTextToHex("@$_[{"), "0002115B7B");
    EXPECT_EQ(UcpTextToHex("\xA3\xE9\xE0\xC9\r\n"), "01057F1F0D0A");
    EXPECT_EQ(UcpTextToHex("\xEA\x01"), "3F3F");  // outside the table: "?"
    EXPECT_EQ(UcpTextToHex(std::string(160, 'a')).size(), 320u);
    EXPECT_EQ(UcpChecksum("00/00045/O/01/00447973123456/12345//3/4869/"), "94");
}

// Answers the program: each rule fires once, in order, when the bytes written since the previous
// rule contain its trigger. Replies may be cut into random pieces.
struct ScriptedCentre {
    struct Rule {
        std::string trigger, reply;
        std::string later = {};  // said three seconds after the reply
    };
    TestPlatform& p;
    std::vector<Rule> rules;
    std::size_t next = 0;
    std::string heard;
    std::mt19937* splitter = nullptr;

    ScriptedCentre(TestPlatform& platform, std::vector<Rule> script)
        : p(platform), rules(std::move(script)) {
        p.line.onWrite = [this](const std::string& bytes) { hear(bytes); };
    }
    void say(const std::string& text) {
        if (!splitter) {
            p.loop.singleShot(Milliseconds(300), [this, text] { p.line.receive(text); });
            return;
        }
        int delay = 300;
        for (std::size_t pos = 0; pos < text.size();) {
            const std::size_t n = 1 + (*splitter)() % 5;
            delay += 20;
            p.loop.singleShot(Milliseconds(delay),
                              [this, part = text.substr(pos, n)] { p.line.receive(part); });
            pos += n;
        }
    }
    void hear(const std::string& bytes) {
        heard += bytes;
        while (next < rules.size() && heard.find(rules[next].trigger) != std::string::npos) {
            heard.clear();
            const Rule& rule = rules[next++];
            say(rule.reply);
            if (!rule.later.empty())
                p.loop.singleShot(Milliseconds(3000), [this, text = rule.later] { say(text); });
        }
    }
};

// Queues `texts` for one centre and sends them; the call connects when it is dialled.
frmMain& StartCall(TestPlatform& p, int protocol, const std::vector<std::string>& texts,
                   const std::string& password = "") {
    auto centre = MakeProvider("Centre", protocol);
    centre.Password = password;
    p.writeProviders({centre});
    auto& f = p.load();
    QueueTexts(f, texts, "44", "07973", "123456");
    f.mnuSend_Click();
    p.loop.advance(Milliseconds(4000));
    p.line.sendState(LINECALLSTATE_CONNECTED);
    return f;
}

struct CallFixture : ::testing::Test {
    TestPlatform p;
    frmMain* f = nullptr;
    void start(int protocol, std::vector<std::string> texts, const std::string& password = "") {
        f = &StartCall(p, protocol, texts, password);
    }
    void finishCall() {
        p.loop.runUntil([&] { return !f->state.CallActive; });
        p.loop.advance(Milliseconds(1000));
    }
};

TEST_F(CallFixture, TapOneMessageByteForByte) {
    ScriptedCentre centre(
        p, {{"\r", "ID="}, {"\x1BPG1pw\r", "\x1B[p"}, {"\x03", "\x06\r"}, {"\x04\r", "\x1B\x04"}});
    start(ProtocolTap, {"Hello"}, "pw");
    ASSERT_TRUE(f->timSendCR.Enabled());
    p.loop.advance(Milliseconds(2000));  // the first nudge, two seconds after connection
    finishCall();
    EXPECT_EQ(p.line.written,
              "\r\x1BPG1pw\r\x02"
              "447973123456\rHello\r\x03"
              "48:\r\x04\r");
    EXPECT_EQ(p.archiveStatuses(), std::vector<std::string>{"Message Sent Successfully"});
    EXPECT_TRUE(p.saw("Logging On  "));
    EXPECT_TRUE(p.saw("Sending Message #1  "));
    EXPECT_EQ(UpperBound(f->SendBuffer), 0);
}

TEST_F(CallFixture, TapSeveralMessagesOneLogonAndARefusal) {
    ScriptedCentre centre(p, {{"\r", "ID="},
                              {"PG1\r", "\x1B[p\x06"},  // an ACK in the go-ahead's chunk
                              {"\x03", "\x06"},
                              {"\x03", "\x15\r"},  // second block refused
                              {"\x03", "\x06"},
                              {"\x04\r", "\x04"}});
    start(ProtocolTap, {"one", "two", "three"});
    p.loop.advance(Milliseconds(2000));
    finishCall();
    EXPECT_EQ(p.archiveStatuses(),
              (std::vector<std::string>{"Message Sent Successfully", "Message Rejected By SMSC",
                                        "Message Sent Successfully"}));
    std::size_t logons = 0;
    for (std::size_t at = 0; (at = p.line.written.find("PG1", at)) != std::string::npos; ++at)
        ++logons;
    EXPECT_EQ(logons, 1u);
    EXPECT_EQ(f->lblInfo.Caption, "Disconnected  ");
}

TEST_F(CallFixture, UcpFramesAndRepliesInPiecesAndLowerCase) {
    std::mt19937 random(7);
    for (int round = 0; round < 20; ++round) {
        TestPlatform q;
        ScriptedCentre centre(q, {{"\x03",
                                   "junk\x02"
                                   "00/00019/r/01/a/123/0A\x03"},
                                  {"\x03",
                                   "\x02"
                                   "00/00022/R/01/N/02//0B\x03"}});
        centre.splitter = &random;
        auto& g = StartCall(q, ProtocolUcp, {"Hi", "Ho"});
        q.loop.runUntil([&] { return !g.state.CallActive; });
        const std::string first =
            "\x02"
            "00/00045/O/01/00447973123456/12345//3/4869/94\x03";
        ASSERT_EQ(q.line.written.substr(0, first.size()), first) << round;
        ASSERT_EQ(UpperBound(g.SendBuffer), 0) << round;
        // A refusal keeps the status line's two blanks in the archive.
        EXPECT_EQ(q.archiveStatuses(), (std::vector<std::string>{"Message Sent Successfully",
                                                                 "Message Rejected By SMSC  "}))
            << round;
    }
}

struct MenuCase {
    const char* name;
    int protocol;
    std::vector<ScriptedCentre::Rule> script;
    std::string greeting;
    std::string expectedWrites;
};

TEST_F(CallFixture, MenuDialoguesTwoMessagesInOneCallUnderAnySplit) {
    const std::vector<MenuCase> cases = {
        {"Voda",
         ProtocolVoda,
         {{"447973123456\r", "type message"},
          {"one\r", "Accepted\r\n", "number:"},
          {"447973123456\r", "TYPE"},
          {"two\r", "ACCEPTED"}},
         "Welcome\r\nEnter Number:",
         "447973123456\rone\r447973123456\rtwo\r\r"},
        {"Libertel",
         ProtocolLibertel,
         {{"447973123456\r", "uw bericht:"},
          {"one\r", "geaccepteerd ", "telefoonnummer:"},
          {"447973123456\r", "bericht"},
          {"two\r", "geaccepteerd"}},
         "Geef telefoonnummer:",
         "447973123456\rone\r447973123456\rtwo\r\r"},
        {"Orange",
         ProtocolOrange,
         {{"s", "Pager number?"},
          {"447973123456\r", "Message to send:"},
          {"one\r", "Message accepted"},
          {"s", "Pager number?"},
          {"447973123456\r", "to send"},
          {"two\r", "accepted"}},
         "1. Send a message\r\n",
         "s447973123456\rone\rs447973123456\rtwo\r\r"},
    };
    std::mt19937 random(11);
    for (const auto& c : cases) {
        for (int round = 0; round < 15; ++round) {
            TestPlatform q;
            ScriptedCentre centre(q, c.script);
            if (round > 0) centre.splitter = &random;
            auto& g = StartCall(q, c.protocol, {"one", "two"});
            centre.say(c.greeting);
            q.loop.runUntil([&] { return !g.state.CallActive; });
            EXPECT_EQ(q.line.written, c.expectedWrites) << c.name << " round " << round;
            EXPECT_EQ(q.archiveFiles().size(), 2u) << c.name << " round " << round;
            EXPECT_EQ(UpperBound(g.SendBuffer), 0) << c.name << " round " << round;
        }
    }
}

TEST_F(CallFixture, TimWalksBackAfterARefusalAndSignsOffWithQ) {
    ScriptedCentre centre(p, {{"1\r", "Destinatario:"},
                              {"one\r", "IL MESSAGGIO NON PUO' ESSERE INVIATO"},
                              {"uu\r", "Destinatario:"},
                              {"two\r", "MESSAGGIO INVIATO"}});
    start(ProtocolTim, {"one", "two"});
    centre.say("CMenu principale");
    finishCall();
    EXPECT_EQ(p.archiveStatuses(),
              (std::vector<std::string>{"Message Rejected By SMSC", "Message Sent Successfully"}));
    const std::string& w = p.line.written;
    EXPECT_EQ(w.substr(w.size() - 3), "q\r\r");
    EXPECT_NE(w.find("00447973123456\r\r\r\r\rone\r\r"), std::string::npos);
    EXPECT_EQ(f->state.counters.MenuMessagesInCall, 1);
}

TEST_F(CallFixture, TapBadPasswordWinsOverInvalidAndKeepsTheMessage) {
    ScriptedCentre centre(p, {{"\r", "ID="}, {"PG1", "password INVALID"}});
    start(ProtocolTap, {"y"});
    finishCall();
    EXPECT_TRUE(p.saw("Invalid Password  "));
    EXPECT_TRUE(p.archiveFiles().empty());  // the password check emptied the buffer first
    EXPECT_EQ(UpperBound(f->SendBuffer), 1);
}

TEST_F(CallFixture, NoResponsePromptYesNoAndLeftAlone) {
    // The centre greets, then never answers the logon. The prompt is modal: a watcher that ticks
    // inside it plays the user, answering Yes the first time and nothing the second.
    ScriptedCentre centre(p, {{"\r", "ID="}});
    std::vector<long long> shown;
    std::string label, statusAfterYes;
    start(ProtocolTap, {"x"});
    Timer watcher(p.loop, "watcher", 100, true, [&] {
        if (!f->frmNoResponse.Visible || (!shown.empty() && shown.size() == 2)) return;
        if (shown.size() == 1 && f->NoResponseAnswer != 0) return;
        shown.push_back(p.loop.now().count());
        label = f->frmNoResponse.Label1;
        if (shown.size() == 1) {
            EXPECT_NE(f->lblInfo.Caption.find("acknowledgement  ....."), std::string::npos);
            f->cmdYes_Click();
        }
    });
    const auto logonWritten = [&] { return p.line.written.find("PG1") != std::string::npos; };
    p.loop.runUntil(logonWritten);
    const long long logonAt = p.loop.now().count();
    p.loop.runUntil([&] { return !f->state.CallActive; });
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(label, "The remote server has not responded for 30 seconds");
    EXPECT_NEAR(static_cast<double>(shown[0] - logonAt), 30000, 1100);
    EXPECT_NEAR(static_cast<double>(shown[1] - shown[0]), 30000, 1100);
    // Left alone it closes itself as No after 61 seconds and hangs up; the message stays.
    EXPECT_NEAR(static_cast<double>(p.loop.now().count() - shown[1]), 61000, 1100);
    EXPECT_FALSE(f->frmNoResponse.Visible);
    EXPECT_EQ(UpperBound(f->SendBuffer), 1);
}

TEST_F(CallFixture, ChunksOverAThousandBytesAreReadInTurns) {
    start(ProtocolTap, {"x"});
    std::string burst(1500, 'z');
    burst += "ID=";
    p.line.receive(burst);
    p.loop.advance(Milliseconds(100));
    EXPECT_NE(p.line.written.find("PG1"), std::string::npos);
    EXPECT_GE(f->DebugForm.FromServer.Text().size(), 1503u);
}

// A centre that floods the line with text that has no end: the buffers the dialogues search stay
// bounded, and the answer that finally comes is still found.
TEST_F(CallFixture, AFloodKeepsTheBuffersBoundedAndTheAnswerCounts) {
    start(ProtocolUcp, {"x"});
    p.loop.advance(Milliseconds(3000));
    std::size_t largest = 0;
    for (int i = 0; i < 300; ++i) {
        p.line.receive(std::string(10000, 'z'));
        p.loop.advance(Milliseconds(20));
        largest = std::max(largest, f->state.UcpReceiveBuffer.size());
    }
    p.line.receive(
        "\x02"
        "00/00019/R/01/A/123/0A\x03");
    finishCall();
    EXPECT_GT(largest, TextBuffer::kKeep);  // the flood did reach the buffer
    EXPECT_LE(largest, TextBuffer::kLimit);
    EXPECT_EQ(p.archiveStatuses(), std::vector<std::string>{"Message Sent Successfully"});
}

}  // namespace
}  // namespace parlane
