// The plain-text menus of four networks: Vodafone and Libertel, Orange, TIM.
#include "core/settings_store.h"
#include "core/string_ids.h"
#include "engine/tap_block.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {
const std::string kCr(1, CR);
}

void frmMain::MenuBlockStep() {
    auto& n = state.counters.MenuMessagesInCall;
    if (UpperBound(SendBuffer) <= 1) return;
    const Provider* centre = headCentre();
    if (!centre) return;
    if (LeadingNumber(centre->MaxMessages) - 1 > n) {
        if (SendBuffer[2].ProviderIndex == SendBuffer[1].ProviderIndex &&
            centre->MultiMessage == 1) {
            state.MoreInCall = true;
            ++n;
        }
    } else {
        state.MoreInCall = false;
        n = 0;
    }
}

std::string frmMain::MenuRecipient(bool tim) const {
    const auto& head = SendBuffer[1];
    const std::string national = NationalAreaPart(head.AreaCode) + head.Number;
    if (!tim) return head.CountryCode + national;
    return head.CountryCode == "0" ? "0" + national : "00" + head.CountryCode + national;
}

// The row that sends the recipient decides whether another message follows in this call.
void frmMain::SendMenuRecipient(const std::string& nextPrompt) {
    MenuBlockStep();
    ShowMessageInPanel(SendBuffer[1]);
    ShowStatus(LoadResString(sid::SendingMobileNumber));
    WaitSecs(2);
    SendText(MenuRecipient(false) + kCr);
    state.ExpectedPrompt = nextPrompt;
}

// The last message is done: the menu's goodbye keys, then the call ends.
void frmMain::LeaveMenu(const std::string& goodbye) {
    state.ExpectedPrompt.clear();
    state.ReceiveBuffer.clear();
    SendText(goodbye);
    HangUp();
}

void frmMain::VodaLibertelRow() {
    if (UpperBound(SendBuffer) < 1) return;
    const bool voda = state.VodaDialogue;
    const std::string prompt = state.ExpectedPrompt;
    if (prompt == "NUMBER" || prompt == "telefoonnummer") {
        SendMenuRecipient(voda ? "TYPE" : "bericht");
    } else if (prompt == "TYPE" || prompt == "bericht") {
        WaitSecs(1);
        ShowStatus(LoadResString(sid::SendingMessageText));
        SendText(SendBuffer[1].Text + kCr);
        state.ExpectedPrompt = voda ? "ACCEPTED" : "geaccepteerd";
    } else if (state.MoreInCall) {
        EndMessage(sid::MessageSentSuccessfully);
        state.ReceiveBuffer.clear();
        WaitSecs(2);
        state.MoreInCall = false;
        // The centre shows its number prompt again by itself.
        state.ExpectedPrompt = voda ? "NUMBER" : "telefoonnummer";
    } else {
        EndMessage(sid::MessageSentSuccessfully);
        LeaveMenu(kCr);
    }
}

void frmMain::OrangeRow() {
    const std::string prompt = state.ExpectedPrompt;
    if (prompt == "Send a message") {
        WaitSecs(2);
        SendText("s");
        state.ExpectedPrompt = "Pager number";
        return;
    }
    if (UpperBound(SendBuffer) < 1) return;
    if (prompt == "Pager number") {
        SendMenuRecipient("to send");
    } else if (prompt == "to send") {
        ShowStatus(LoadResString(sid::SendingMessageText));
        WaitSecs(2);
        SendText(SendBuffer[1].Text + kCr);
        state.ExpectedPrompt = "accepted";
    } else if (state.MoreInCall) {
        EndMessage(sid::MessageSentSuccessfully);
        state.MoreInCall = false;
        state.ReceiveBuffer.clear();
        WaitSecs(3);
        SendText("s");
        state.ExpectedPrompt = "Pager number";
    } else {
        EndMessage(sid::MessageSentSuccessfully);
        LeaveMenu(kCr);
    }
}

void frmMain::TimRow() {
    const std::string prompt = state.ExpectedPrompt;
    if (prompt == "pTIM") {
        ShowStatus(LoadResString(sid::LoggingOn));
        SendText("1" + kCr);
        for (int i = 0; i < 3; ++i) {
            WaitSecs(2);
            SendText(kCr);
        }
        state.ExpectedPrompt = "Destinatario";
        return;
    }
    if (UpperBound(SendBuffer) < 1) return;
    if (prompt == "Destinatario") {
        MenuBlockStep();
        ShowStatus(LoadResString(sid::SendingMobileNumber));
        SendText(MenuRecipient(true) + kCr);
        for (int i = 0; i < 4; ++i) {
            WaitSecs(2);
            SendText(kCr);
        }
        WaitSecs(2);
        ShowStatus(LoadResString(sid::SendingMessageText));
        // The message may have ended meanwhile (a chunk handled during the waits).
        if (UpperBound(SendBuffer) >= 1) SendText(SendBuffer[1].Text + kCr);
        WaitSecs(1);
        SendText(kCr);
        state.ExpectedPrompt = "MESSAGGIO INVIATO";
        ShowStatus(LoadResString(sid::WaitingForAcknowledgement));
    } else if (state.MoreInCall) {
        EndMessage(sid::MessageSentSuccessfully);
        ShowStatus(OutcomeText(sid::MessageSentSuccessfully));
        WalkBack();
    } else {
        EndMessage(sid::MessageSentSuccessfully);
        ShowStatus(OutcomeText(sid::MessageSentSuccessfully));
        LeaveMenu("q" + kCr + kCr);
    }
}

void frmMain::WalkBack() {
    state.ReceiveBuffer.clear();
    state.ExpectedPrompt = "gapfiller";
    state.MoreInCall = false;
    WaitSecs(2);
    SendText("u");
    WaitSecs(2);
    SendText("u");
    WaitSecs(2);
    SendText(kCr);
    state.ExpectedPrompt = "Destinatario";
}

void frmMain::TimRefusal() {
    if (state.MoreInCall) {
        EndMessage(sid::MessageRejectedBySmsc);
        ShowStatus(OutcomeText(sid::MessageRejectedBySmsc));
        WalkBack();
    } else {
        EndMessage(sid::MessageRejectedBySmsc);
        LeaveMenu("q" + kCr + kCr);
        ShowStatus(OutcomeText(sid::MessageRejectedBySmsc));
    }
}

}  // namespace parlane
