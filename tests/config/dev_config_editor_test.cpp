// The centre editor's device block: the two-pass read and the &Properties edit, on a scripted
// line.
#include "config/dev_config_editor.h"

#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace parlane {
namespace {

struct EditorBench {
    VirtualEventLoop loop;
    testing::FakeLine line{loop};
    DebugLog log;
    TAPISubs tapi{line, log};
    DevConfigEditor editor;
    std::vector<std::string> logLines() const {
        std::vector<std::string> lines;
        std::size_t at = 0;
        const auto& text = log.text();
        while (at < text.size()) {
            const auto end = text.find("\r\n", at);
            lines.push_back(text.substr(at + 5, end - at - 5));  // after "001: "
            at = end + 2;
        }
        return lines;  // newest first
    }
};

std::vector<std::uint8_t> Bytes(std::size_t n) {
    std::vector<std::uint8_t> b(n);
    for (std::size_t i = 0; i < n; ++i) b[i] = static_cast<std::uint8_t>(i * 7 + 1);
    return b;
}

TEST(ReadDevConfig, ABlockBiggerThanTheFirstAreaIsReadWhole) {
    EditorBench b;
    b.line.devConfig = Bytes(2000);
    ReadDevConfig(b.tapi, 2, b.editor);
    EXPECT_EQ(b.line.log,
              (std::vector<std::string>{"get dev config 2 1048", "get dev config 2 2024"}));
    EXPECT_EQ(b.editor.EditorDevConfig, b.line.devConfig);
    EXPECT_EQ(b.editor.EditorDevConfigSize, 2000u);
    EXPECT_EQ(b.logLines(), (std::vector<std::string>{"Success! - lineGetDevConfig",
                                                      "Success! - lineGetDevConfig"}));

    b.line.devConfig = Bytes(5);  // a small one needs a second pass of its own size
    ReadDevConfig(b.tapi, 0, b.editor);
    EXPECT_EQ(b.line.log.back(), "get dev config 0 29");
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(5));
}

TEST(ReadDevConfig, FailuresOfEitherPass) {
    EditorBench b;
    b.editor.EditorDevConfig = {1, 2, 3};
    b.editor.EditorDevConfigSize = 3;
    b.line.devConfig = Bytes(10);
    b.line.getDevConfigResults = {LINEERR_NODEVICE};
    ReadDevConfig(b.tapi, 1, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(b.line.log.size(), 1u);
    EXPECT_EQ(b.logLines().front(), "LINEERR_NODEVICE [80000042] - lineGetDevConfig");

    // The second pass fails: the block is the array's bytes, of the first pass's size.
    b.line.getDevConfigResults = {0, LINEERR_OPERATIONFAILED};
    ReadDevConfig(b.tapi, 1, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, std::vector<std::uint8_t>(10, 0));
    EXPECT_EQ(b.editor.EditorDevConfigSize, 10u);
    EXPECT_EQ(b.logLines()[0], "LINEERR_OPERATIONFAILED [80000048] - lineGetDevConfig");
    EXPECT_EQ(b.logLines()[1], "Success! - lineGetDevConfig");
}

TEST(EditDevConfig, ReplacesTheBlockOnlyWhenTheDialogSucceeds) {
    EditorBench b;
    ListControl cbo;
    cbo.rows = {"Simulated modem", "Acme modem"};
    b.editor.EditorDevConfig = Bytes(40);  // not a block the dialog knows: kept as it is
    b.editor.EditorDevConfigSize = 40;

    EditDevConfig(b.tapi, cbo, 0, b.editor);  // nothing selected: no call at all
    EXPECT_TRUE(b.line.log.empty());

    cbo.select(1);
    b.line.configDialogEditResult = LINEERR_OPERATIONFAILED;
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_EQ(b.line.log, (std::vector<std::string>{"config dialog edit 1 1024"}));
    EXPECT_EQ(b.line.editInput, Bytes(40));
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(40));
    EXPECT_EQ(b.logLines().front(), "LINEERR_OPERATIONFAILED [80000048] - lineGetDevConfigEdit");

    b.line.configDialogEditResult = 0;
    b.line.editedDevConfig = Bytes(12);
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(12));
    EXPECT_EQ(b.editor.EditorDevConfigSize, 12u);
    EXPECT_EQ(b.logLines().front(), "Success! - lineGetDevConfigEdit");

    // The output has one size: a block that does not fit comes back empty, as TAPI's would.
    b.line.editedDevConfig = Bytes(1001);
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_TRUE(b.editor.EditorDevConfig.empty());
}

}  // namespace
}  // namespace parlane
