// Table files as JSON lines: the stored bytes of known records, exact round trips, cuts at every
// length and the input lines that must be refused.
#include "parlane-data/table_json.h"

#include <gtest/gtest.h>

#include <sstream>

#include "store/message_queue.h"
#include "store/provider.h"

namespace parlane::data {
namespace {

std::string Hex(const std::string& spaced) {
    std::string bytes;
    std::istringstream in(spaced);
    for (std::string pair; in >> pair;) bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    return bytes;
}

std::string Lines(const std::vector<std::string>& lines, std::size_t count = SIZE_MAX) {
    std::string text;
    for (std::size_t i = 0; i < std::min(count, lines.size()); ++i) text += lines[i] + "\n";
    return text;
}

BuiltTable Build(TableKind kind, const std::string& lines) {
    std::istringstream in(lines);
    return BuildTable(kind, in);
}

TEST(TableJson, KnownRecordsShowAndWriteBackExactly) {
    const std::tuple<TableKind, std::string, std::string> examples[] = {
        {TableKind::Provider,
         Hex("04 00 54 65 73 74 00 00 01 00 30 02 00 34 34 02 00 30 37 04 00 31 32 33 34 "
             "03 00 31 36 30 00 00 00 00 01 00 00 00 01 00 30 "
             "01 00 02 00 00 00 00 00 00 00 AA BB 01 00 33 02 00 30 31"),
         R"({"ProviderName":"Test","Password":"","TapiDevice":"0","CountryCode":"44",)"
         R"("AreaCode":"07","Number":"1234","MaxChars":"160","Protocol":0,"MultiMessage":1,)"
         R"("AllowASCII":"0","DevConfig":"aabb","MaxMessages":"3","UCPOperation":"01"})"
         "\n"},
        {TableKind::Queue,
         std::string(18, '\0') + Hex("02 00 34 34 02 00 30 37 04 00 31 32 33 34 02 00 48 69 "
                                     "01 00 00 00 00 00 00 00 04 00 54 65 73 74"),
         R"({"CountryCode":"","AreaCode":"","Number":"","Text":"","MessageNumber":0,)"
         R"("ProviderIndex":0,"ProviderName":""})"
         "\n"
         R"({"CountryCode":"44","AreaCode":"07","Number":"1234","Text":"Hi",)"
         R"("MessageNumber":1,"ProviderIndex":0,"ProviderName":"Test"})"
         "\n"},
        {TableKind::GroupNames, Hex("02 00 C9 71"), "{\"GroupName\":\"Éq\"}\n"},
    };
    for (const auto& [kind, bytes, json] : examples) {
        const ShownTable shown = ShowTable(kind, bytes);
        EXPECT_FALSE(shown.damaged);
        EXPECT_EQ(Lines(shown.lines), json);
        EXPECT_EQ(Build(kind, json).bytes, bytes);
    }
}

TEST(TableJson, EveryByteValueSurvivesInStringsAndByteBlocks) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    Provider centre;
    centre.ProviderName = all;
    centre.DevConfig.assign(all.begin(), all.end());
    QueuedMessage message;
    message.Text = all;
    RecordWriter providers, queue;
    ASSERT_TRUE(WriteProvider(providers, centre) && WriteQueuedMessage(queue, message));
    for (const auto& [kind, bytes] : {std::pair{TableKind::Provider, providers.bytes()},
                                      std::pair{TableKind::Queue, queue.bytes()}}) {
        const auto lines = ShowTable(kind, bytes).lines;
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_NE(lines[0].find("~\x7F"
                                "€"
                                "\xC2\x81"
                                "‚"),
                  std::string::npos)
            << lines[0];
        // A queue's first record is the empty one the program skips: it is put in front.
        RecordWriter placeholder;
        if (kind == TableKind::Queue) WriteQueuedMessage(placeholder, {});
        EXPECT_EQ(Build(kind, lines[0]).bytes, placeholder.bytes() + bytes);
    }
}

TEST(TableJson, CutAtEveryLengthIsDamagedExactlyInsideARecord) {
    const std::pair<TableKind, std::vector<std::string>> tables[] = {
        {TableKind::Provider, {R"({"ProviderName":"A","DevConfig":"0102"})", "{}"}},
        {TableKind::Queue, {"{}", R"({"Text":"Hello","MessageNumber":-7})"}},
        {TableKind::Directory, {R"({"Name":"Ann","Number":"5"})", "{}"}},
        {TableKind::GroupMembers, {R"({"GroupMember":"Bo"})", "{}", R"({"GroupMember":"C"})"}},
    };
    for (const auto& [kind, lines] : tables) {
        std::vector<std::size_t> ends;
        for (std::size_t n = 0; n <= lines.size(); ++n)
            ends.push_back(Build(kind, Lines(lines, n)).bytes.size());
        const std::string whole = Build(kind, Lines(lines)).bytes;
        for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
            std::size_t records = 0;
            while (records + 1 < ends.size() && ends[records + 1] <= cut) ++records;
            const ShownTable shown = ShowTable(kind, std::string_view(whole).substr(0, cut));
            EXPECT_EQ(shown.damaged, ends[records] != cut) << cut;
            EXPECT_EQ(shown.lines.size(), records) << cut;
            EXPECT_EQ(shown.damageOffset, shown.damaged ? ends[records] : 0) << cut;
        }
    }
}

TEST(TableJson, LinesAreRefusedWithTheirNumberAndProblemAndLimitsAccepted) {
    std::string longest;  // 65535 bytes once stored, though twice that in UTF-8
    for (int i = 0; i < 65535; ++i) longest += "é";
    const std::pair<std::string, std::string> cases[] = {
        {"{}\nnot json", "line 2: not valid JSON"},
        {"{}\n\n[1]", "line 3: a record must be a JSON object"},
        {R"({"Bogus":""})", R"(line 1: unknown field "Bogus")"},
        {R"({"Protocol":2147483648})", R"(field "Protocol": must be a whole number)"},
        {R"({"Protocol":-2147483649})", "must be a whole number"},
        {R"({"Protocol":1.5})", "must be a whole number"},
        {R"({"ProviderName":null})", R"(field "ProviderName": must be a string)"},
        {R"({"DevConfig":"abc"})", "even number"},
        {R"({"DevConfig":"0g"})", "hexadecimal"},
        {R"({"Password":"中"})", "Windows-1252 cannot store"},
        {R"({"MaxChars":")" + longest + "x\"}", "65536 bytes long"},
        {R"({"MaxChars":")" + longest + "\"}", ""},
        {"{\"Protocol\":2147483647}\r\n\n{\"MultiMessage\":-2147483648,\"Protocol\":1e3}", ""},
    };
    for (const auto& [lines, problem] : cases) {
        const BuiltTable built = Build(TableKind::Provider, lines);
        if (problem.empty()) {
            EXPECT_EQ(built.error, "");
            EXPECT_FALSE(built.bytes.empty());
        } else {
            EXPECT_NE(built.error.find(problem), std::string::npos) << built.error;
            EXPECT_EQ(built.bytes, "");
        }
    }
}

}  // namespace
}  // namespace parlane::data
