// The bytes of TAP blocks and UCP frames.
#include <gtest/gtest.h>

#include "engine/tap_block.h"
#include "engine/ucp_frame.h"

namespace parlane {
namespace {

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

}  // namespace
}  // namespace parlane
