// The queue panel's commands: look at a waiting message, take it back, remove one or all.
// They change QueueBuffer and the list only; the queue file is not written here.
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

// The selected row of the queue list, when it stands for a message of the table; -1 otherwise.
int SelectedQueueRow(const ListControl& list, const MessageTable& queue) {
    const int row = list.ListIndex;
    if (list.ListCount() == 0 || row < 0 || row + 1 > UpperBound(queue)) return -1;
    return row;
}

}  // namespace

void frmMain::MessageQueue_Click() {
    const int row = SelectedQueueRow(MessageQueue, QueueBuffer);
    if (row < 0) return;
    txtMessageQueue.Text = QueueBuffer[static_cast<std::size_t>(row + 1)].Text;
    changed();
}

// Also MessageQueue_DblClick. The message leaves the queue for the compose panel; it gets a new
// number when it is queued again.
void frmMain::mnuEdit_Click() {
    const int row = SelectedQueueRow(MessageQueue, QueueBuffer);
    if (row < 0) return;
    const QueuedMessage message = QueueBuffer[static_cast<std::size_t>(row + 1)];
    txtMessage.Text = message.Text;
    txtMessage_Change();
    txtCountryCode.Text = message.CountryCode;
    txtAreaCode.Text = message.AreaCode;
    txtNumber.Text = message.Number;
    // A centre no longer listed leaves the selection as it was.
    SelectCentreByName(message.ProviderName);
    mnuRemove_Click();
}

void frmMain::mnuRemove_Click() {
    const int row = SelectedQueueRow(MessageQueue, QueueBuffer);
    if (row < 0) return;
    RemoveQueuedMessageRow(row);
    txtMessageQueue.Text.clear();
    ShowQueueCount();
    changed();
}

void frmMain::mnuClear_Click() {
    if (ShowMessageBox(LoadResString(sid::DeleteAllQueuedQuestion), MbQuestionYesNo) != AnswerYes)
        return;
    MessageQueue.Clear();
    ResetQueueBuffer();
    setStatusRaw("");
    txtMessageQueue.Text.clear();
    changed();
}

void frmMain::MessageQueue_MouseUp() {
    if (MessageQueue.ListCount() == 0) {
        mnuEdit.Enabled = mnuSeparator12.Enabled = mnuRemove.Enabled = mnuClear.Enabled = false;
        return;
    }
    // With no selection, Edit and Remove keep the state they had.
    if (MessageQueue.ListIndex >= 0)
        mnuEdit.Enabled = mnuSeparator12.Enabled = mnuRemove.Enabled = true;
    mnuClear.Enabled = true;
}

}  // namespace parlane
