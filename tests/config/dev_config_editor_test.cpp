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
    // The newest log line, without its number.
    std::string newest() const {
        const auto& t = log.text();
        const auto start = t.find(": ") + 2;
        return t.substr(start, t.find("\r\n") - start);
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
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(2000));
    EXPECT_EQ(b.editor.EditorDevConfigSize, 2000u);
    EXPECT_EQ(b.log.lineNumber(), 2);
    EXPECT_EQ(b.newest(), "Success! - lineGetDevConfig");
}

TEST(ReadDevConfig, FailuresOfEitherPass) {
    EditorBench b;
    b.editor.EditorDevConfig = {1, 2, 3};
    b.line.devConfig = Bytes(10);
    b.line.getDevConfigResults = {LINEERR_NODEVICE};
    ReadDevConfig(b.tapi, 1, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(b.line.log.size(), 1u);
    EXPECT_EQ(b.newest(), "LINEERR_NODEVICE [80000042] - lineGetDevConfig");

    // The second pass fails: the block is the array's bytes, of the first pass's size.
    b.line.getDevConfigResults = {0, LINEERR_OPERATIONFAILED};
    ReadDevConfig(b.tapi, 1, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, std::vector<std::uint8_t>(10, 0));
    EXPECT_EQ(b.editor.EditorDevConfigSize, 10u);
    EXPECT_EQ(b.newest(), "LINEERR_OPERATIONFAILED [80000048] - lineGetDevConfig");
}

TEST(EditDevConfig, ReplacesTheBlockOnlyWhenTheDialogSucceeds) {
    EditorBench b;
    ListControl cbo;
    cbo.rows = {"Simulated modem", "Acme modem"};
    b.editor.EditorDevConfig = Bytes(40);
    EditDevConfig(b.tapi, cbo, 0, b.editor);  // no device chosen: no call at all
    EXPECT_TRUE(b.line.log.empty());

    cbo.select(1);
    b.line.configDialogEditResult = LINEERR_OPERATIONFAILED;
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_EQ(b.line.log, (std::vector<std::string>{"config dialog edit 1 1024"}));
    EXPECT_EQ(b.line.editInput, Bytes(40));
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(40));
    EXPECT_EQ(b.newest(), "LINEERR_OPERATIONFAILED [80000048] - lineGetDevConfigEdit");

    b.line.configDialogEditResult = 0;
    b.line.editedDevConfig = Bytes(12);
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_EQ(b.editor.EditorDevConfig, Bytes(12));
    EXPECT_EQ(b.editor.EditorDevConfigSize, 12u);
    EXPECT_EQ(b.newest(), "Success! - lineGetDevConfigEdit");
    // One output size only: a block too big for it comes back empty, as from the service.
    b.line.editedDevConfig = Bytes(1001);
    EditDevConfig(b.tapi, cbo, 0, b.editor);
    EXPECT_TRUE(b.editor.EditorDevConfig.empty());
}

}  // namespace
}  // namespace parlane
