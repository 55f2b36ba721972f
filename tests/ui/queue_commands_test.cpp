// Looking at, taking back and removing waiting messages.
#include "ui/panel_fixture.h"

namespace parlane {
namespace {

struct QueueCommands : PanelFixture {
    void SetUp() override {
        PanelFixture::SetUp();
        for (const char* text : {"one", "two", "three"})
            testing::QueueTexts(*f, {text}, "44", "07", text);
        ASSERT_EQ(f->MessageQueue.ListCount(), 3);
    }
};

TEST_F(QueueCommands, RemovingShowsTheCountLeft) {
    f->MessageQueue.ListIndex = 1;
    f->MessageQueue_Click();
    EXPECT_EQ(f->txtMessageQueue.Text, "two");
    const char* expected[] = {"2 Messages in Queue", "1 Message in Queue", ""};
    for (const char* status : expected) {
        f->MessageQueue.ListIndex = 0;
        f->mnuRemove_Click();
        EXPECT_EQ(f->lblInfo.Caption, status);
        EXPECT_EQ(f->txtMessageQueue.Text, "");
    }
    EXPECT_EQ(UpperBound(f->QueueBuffer), 0);
    f->MessageQueue_MouseUp();
    EXPECT_FALSE(f->mnuEdit.Enabled || f->mnuRemove.Enabled || f->mnuClear.Enabled);
}

TEST_F(QueueCommands, EditTakesTheMessageBackAndKeepsAnUnlistedCentre) {
    f->QueueBuffer[2].ProviderName = "Gone";
    pick(f->Services, "Short");
    f->MessageQueue.ListIndex = 1;
    f->MessageQueue_DblClick();
    EXPECT_EQ(f->txtMessage.Text, "two");
    EXPECT_EQ(f->txtNumber.Text, "two");
    EXPECT_EQ(f->Services.Text, "Short");
    EXPECT_EQ(f->lblTextCounter.Caption, "3");
    ASSERT_EQ(UpperBound(f->QueueBuffer), 2);
    EXPECT_EQ(f->QueueBuffer[2].Text, "three");
    EXPECT_EQ(f->lblInfo.Caption, "2 Messages in Queue");

    f->MessageQueue.ListIndex = 0;
    f->mnuEdit_Click();
    EXPECT_EQ(f->Services.Text, "Alpha");
}

TEST_F(QueueCommands, ContextMenuAndClearAll) {
    f->MessageQueue.ListIndex = -1;
    f->mnuEdit.Enabled = f->mnuRemove.Enabled = false;
    f->MessageQueue_MouseUp();
    EXPECT_FALSE(f->mnuEdit.Enabled || f->mnuRemove.Enabled);  // kept as they were
    EXPECT_TRUE(f->mnuClear.Enabled);
    f->MessageQueue.ListIndex = 0;
    f->MessageQueue_MouseUp();
    EXPECT_TRUE(f->mnuEdit.Enabled && f->mnuSeparator12.Enabled && f->mnuRemove.Enabled);

    f->mnuClear_Click();  // No
    EXPECT_EQ(lastBox().prompt,
              "Are you certain you want to delete all messages waiting in the Message Queue?");
    EXPECT_EQ(UpperBound(f->QueueBuffer), 3);
    EXPECT_EQ(f->MessageQueue.ListCount(), 3);
    p.dialogues.answers = {AnswerYes};
    f->mnuClear_Click();
    EXPECT_EQ(UpperBound(f->QueueBuffer), 0);
    EXPECT_EQ(f->MessageQueue.ListCount(), 0);
    EXPECT_EQ(f->lblInfo.Caption, "");
}

}  // namespace
}  // namespace parlane
