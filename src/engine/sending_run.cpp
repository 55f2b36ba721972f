// The sending run: Send, Send Single, Stop, the tick from call to call, the safety limit and the
// common steps of sending one message.
#include "core/settings_store.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

void frmMain::ReadyPanel() {
    ShowLocationCountryCode();
    Names.ListIndex = -1;
    Names.Text = "Names";
    cmbGroupName.ListIndex = -1;
    cmbGroupName.Text = LoadResString(sid::GroupNamesText);
    txtAreaCode.Text.clear();
    txtNumber.Text.clear();
    MessageQueue.ListIndex = -1;
    txtMessageQueue.Text.clear();
}

void frmMain::mnuSend_Click() {
    if (UpperBound(QueueBuffer) == 0) {
        mnuQueue_Click();
        if (UpperBound(QueueBuffer) == 0) return;
    }
    ReadyPanel();
    timSendMessages.setEnabled(true);
    ShowStatus(LoadResString(sid::WaitingToSend));
    changed();
}

void frmMain::mnuSendSingle_Click() {
    if (!CheckComposePanel()) return;
    if (!SaveQueueBuffer()) return;
    if (!ResetQueueBuffer()) return;
    mnuQueue_Click();
    if (UpperBound(QueueBuffer) <= 0) return;
    ReadyPanel();
    timSendMessages.setEnabled(true);
    ShowStatus(LoadResString(sid::WaitingToSend));
    timCheckSingleMessageSent.setEnabled(true);
    changed();
}

void frmMain::mnuHangUp_Click() {
    picToolIconsEnabled[2] = false;
    state.CallActive = true;
    HangUp();
    state.StopPressed = 1;
    timSendMessages.setEnabled(false);
    if (UpperBound(SendBuffer) > 1) {
        if (ShowMessageBox(LoadResString(sid::AbortSaveBackQuestion), MbQuestionYesNo) ==
            AnswerYes) {
            StopSaveBack();
        } else {
            timSendMessages.setEnabled(true);
        }
    } else {
        timSendMessages.setEnabled(true);
    }
    changed();
}

void frmMain::timSendMessages_Timer() {
    timSendMessages.setEnabled(false);
    if (state.DialPending) return;
    state.SimulatedCall = false;  // the last call's outcomes have been told
    if (PrepareNextBatch()) {
        state.DialPending = true;
        DialCenter();
    } else if (!heldBack_.empty()) {
        // Send Single's saved queue comes back first, so that the reason stays on show.
        if (timCheckSingleMessageSent.Enabled()) RestoreSingleMessageQueue();
        ShowStatus(heldBack_ + " - " + LoadResString(sid::NothingSentSeeCentres));
        EndRunTally();
    } else {
        ShowStatus(LoadResString(sid::NoMoreMessages));
        EndRunTally();
    }
}

void frmMain::timSafetyTimer_Timer() {
    ++state.counters.SafetyMinutes;
    if (state.counters.SafetyMinutes <= 2) return;
    if (UpperBound(SendBuffer) > 0)
        SaveToOutbox(LoadResString(sid::MessageSendingTimedOut), SendBuffer[1]);
    ShowStatus(LoadResString(sid::TimedOut));
    state.CallActive = true;
    HangUp();
    state.counters.SafetyMinutes = 0;
}

void frmMain::ApplyBlockRule(const QueuedMessage& head, const Provider& centre) {
    auto& n = state.counters.BlockMessagesInCall;
    if (UpperBound(SendBuffer) <= 1) return;
    if (LeadingNumber(centre.MaxMessages) - 1 > n) {
        if (SendBuffer[2].ProviderIndex == head.ProviderIndex && centre.MultiMessage == 1) {
            state.MoreInCall = true;
            ++n;
        }
    } else {
        n = 0;
    }
}

void frmMain::ShowMessageInPanel(const QueuedMessage& message) {
    txtCountryCode.Text = message.CountryCode;
    txtAreaCode.Text = message.AreaCode;
    txtNumber.Text = message.Number;
    txtMessage.Text = message.Text;
    Services.select(message.ProviderIndex);
    ShowCentreLine();
}

bool frmMain::RoomToRecord() {
    std::string failure;
    if (!WriteUnarchived())
        failure = FailureStatus(archiveError_, LoadResString(sid::SavingToOutbox));
    else if (!JournalQueue())
        failure = FailureStatus(journalError_, LoadResString(sid::SavingMessageQueue));
    if (failure.empty()) return true;
    StopRunFor(failure + " - " + LoadResString(sid::SendingStopped));
    return false;
}

void frmMain::StopRunFor(const std::string& status) {
    if (state.CallActive) HangUp();
    timSendMessages.setEnabled(false);
    state.DialPending = false;
    MessageTable back = EmptyMessageTable();
    back.insert(back.end(), SendBuffer.begin() + 1, SendBuffer.end());
    SendBuffer = EmptyMessageTable();
    MoveBatchBackToQueue(std::move(back));
    queueChanged();
    ShowStatus(status);
}

void frmMain::SendNextMessage() {
    if (UpperBound(SendBuffer) < 1) return;
    if (!RoomToRecord()) return;
    const QueuedMessage head = SendBuffer[1];
    if (head.ProviderIndex < 0 || head.ProviderIndex >= static_cast<int>(Providers.size())) return;
    const Provider centre = Providers[static_cast<std::size_t>(head.ProviderIndex)];
    auto& c = state.counters;
    if (head.MessageNumber == c.SendNumberSeen) {
        ++c.SendAttempts;
    } else {
        c.SendNumberSeen = head.MessageNumber;
        c.SendAttempts = 0;
    }
    if (c.SendAttempts > state.MaxDialAttempts - 1) {
        const std::string abort = LoadResString(sid::AbortedMaxDialAttempts);
        ShowStatus(LoadResString(sid::MessageNumberPrefix) + " " +
                   std::to_string(head.MessageNumber) + " " + abort);
        // Every removal from the run leaves its archive record.
        FinishHeadMessage(abort);
        c.SendAttempts = 0;
        HangUp();
        return;
    }
    state.MoreInCall = false;
    ShowStatus(LoadResString(c.SendAttempts == 0 ? sid::SendingMessageNumber
                                                 : sid::FailedResendingMessage) +
               std::to_string(head.MessageNumber));
    ApplyBlockRule(head, centre);
    ShowMessageInPanel(head);
    if (centre.Protocol == ProtocolUcp)
        SendUcpFrame(head, centre);
    else
        SendTapBlock(head, centre);
}

}  // namespace parlane
