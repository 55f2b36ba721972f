// Every byte from a centre comes in here and every byte to a centre leaves by SendText.
#include <algorithm>
#include <cctype>

#include "core/cp1252.h"
#include "core/string_ids.h"
#include "engine/tap_block.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

void frmMain::OnCommEvent(std::int32_t code) {
    CommEventCode = code;
    timCommEvent.setEnabled(true);
}

void frmMain::timCommEvent_Timer() {
    // The long interval keeps this handler from being entered again while a dialogue waits.
    timCommEvent.setInterval(10000);
    timCommEvent.setEnabled(false);
    if (!state.CallActive) {
        timCommEvent.setInterval(1);
        return;
    }
    if (CommEventCode != 1) {
        ShowStatus(LoadResString(sid::UnknownCommPortError));
        timCommEvent.setInterval(1);
        return;
    }
    const int n = std::min<int>(platform_.serial.GetRxCharacters(RxBuffer),
                                static_cast<int>(RxBuffer.size()));
    if (n <= 0) ShowStatus(LoadResString(sid::ErrorReceiving));
    std::string text, echo;
    text.reserve(static_cast<std::size_t>(std::max(n, 0)));
    for (int i = 0; i < n; ++i) {
        const std::uint8_t b = RxBuffer[static_cast<std::size_t>(i)];
        if (b >= 0x80) continue;
        if (b < 0x20) {
            // A UCP call loses its control bytes here; the others keep them.
            if (state.UcpDialogue) continue;
            text += static_cast<char>(b);
            echo += "<" + std::to_string(b) + ">";
        } else {
            text += static_cast<char>(b);
            echo += static_cast<char>(b);
        }
    }
    // Before the dialogue answers, so that its dots come after what it answers.
    DebugForm.Received(echo);
    if (state.UcpDialogue)
        HandleUcpText(text);
    else
        HandleCenterText(text);
    DebugForm.BoundLinePanes();
    timCommEvent.setInterval(1);
}

void frmMain::SendText(const std::string& text) {
    if (globals_.NtTransmit)
        platform_.serial.TxChars(text);
    else
        platform_.serial.TxCharacters(text);
    DebugForm.Sent(text);
    ResponseSeconds = 0;
    ShowStatus(LoadResString(sid::WaitingForAcknowledgement));
}

void frmMain::timSendCR_Timer() {
    SendText(std::string(1, CR));
}

void frmMain::HangUpDialogue() {
    state.ExpectedPrompt.clear();
    state.ReceiveBuffer.clear();
    HangUp();
}

void frmMain::EndMessage(int statusId) {
    if (UpperBound(SendBuffer) < 1) return;  // no message left to end
    FinishHeadMessage(LoadResString(statusId));
}

void frmMain::RejectAndHangUp() {
    EndMessage(sid::MessageRejectedBySmsc);
    HangUpDialogue();
    ShowStatus(OutcomeText(sid::MessageRejectedBySmsc));
}

// The checks that hold in every dialogue but UCP. Those that hang up empty the buffer, so that
// nothing after them fires. Returns false when the call has ended.
bool frmMain::RunCommonChecks() {
    using C = TextBuffer::Case;
    const auto& buffer = state.ReceiveBuffer;
    if (buffer.contains(TapDoneShort) || buffer.contains(TapDoneLong)) {
        EndMessage(sid::MessageSentSuccessfully);
        HangUpDialogue();
        ShowStatus(OutcomeText(sid::MessageSentSuccessfully));
    }
    if (buffer.contains(std::string(1, EOT))) HangUpDialogue();
    if (buffer.contains(TapRefused)) TapRefusedCheck();
    if (buffer.contains("BAD PASSWORD")) {
        ShowStatus(LoadResString(sid::UnrecognisedPassword));
        HangUpDialogue();
    }
    if (buffer.contains("PASSWORD INVALID", C::Upper)) {
        ShowStatus(LoadResString(sid::InvalidPassword));
        HangUpDialogue();
    }
    if (buffer.contains("sorry", C::Lower)) RejectAndHangUp();
    if (buffer.contains("unavailable", C::Lower)) RejectAndHangUp();
    if (buffer.contains("invalid", C::Lower)) RejectAndHangUp();
    if (buffer.contains("ERROR", C::Upper)) RejectAndHangUp();
    if (buffer.contains("ESSERE INVIATO", C::Upper)) TimRefusal();
    if (buffer.contains("GOODBYE", C::Upper)) HangUpDialogue();
    if (buffer.contains(std::string(1, RS))) {
        EndMessage(sid::MessageRejectedBySmsc);
        HangUpDialogue();
    }
    return true;
}

void frmMain::HandleCenterText(const std::string& text) {
    if (state.ExpectedPrompt.empty()) {
        if (state.OrangeDialogue) {
            state.ExpectedPrompt = "Send a message";
            timSendCR.setEnabled(false);
        } else if (state.VodaDialogue) {
            state.ExpectedPrompt = "NUMBER";
            timSendCR.setEnabled(false);
        } else if (state.LibertelDialogue) {
            state.ExpectedPrompt = "telefoonnummer";
            timSendCR.setEnabled(false);
        } else if (state.TimDialogue) {
            state.ExpectedPrompt = "pTIM";
            timSendCR.setEnabled(false);
        } else {
            state.ExpectedPrompt = "ID=";
        }
        timResponse.setEnabled(true);
    }
    if (state.OrangeDialogue || state.VodaDialogue || state.LibertelDialogue)
        state.ReceiveBuffer += text;
    else
        state.ReceiveBuffer = text;

    RunCommonChecks();

    const auto& prompt = state.ExpectedPrompt;
    const auto& buffer = state.ReceiveBuffer;
    bool match;
    if (state.VodaDialogue)
        match = buffer.contains(prompt, TextBuffer::Case::Upper);
    else
        match = buffer.contains(prompt) ||
                (prompt == "pTIM" && (buffer.contains("CScr") || buffer.contains("CMenu") ||
                                      buffer.contains("CServizio")));
    // An emptied prompt (the call ended) matches anything; nothing is left to run then.
    if (!match || prompt.empty()) return;
    RunPromptRow();
}

void frmMain::RunPromptRow() {
    const std::string prompt = state.ExpectedPrompt;
    if (prompt == "ID=" || prompt == TapGoAhead || prompt == std::string(1, ACK) ||
        prompt == std::string(1, EOT))
        TapRow();
    else if (prompt == "NUMBER" || prompt == "TYPE" || prompt == "ACCEPTED" ||
             prompt == "telefoonnummer" || prompt == "bericht" || prompt == "geaccepteerd")
        VodaLibertelRow();
    else if (prompt == "Send a message" || prompt == "Pager number" || prompt == "to send" ||
             prompt == "accepted")
        OrangeRow();
    else if (prompt == "pTIM" || prompt == "Destinatario" || prompt == "MESSAGGIO INVIATO")
        TimRow();
    else
        ShowStatus(LoadResString(sid::UnknownErrorInReceiving));
}

const Provider* frmMain::headCentre() const {
    if (UpperBound(SendBuffer) < 1) return nullptr;
    const int index = SendBuffer[1].ProviderIndex;
    if (index < 0 || index >= static_cast<int>(Providers.size())) return nullptr;
    return &Providers[static_cast<std::size_t>(index)];
}

// The no-response prompt.
void frmMain::timResponse_Timer() {
    // Never a second prompt on top of the first.
    if (frmNoResponse.Visible) return;
    setStatusRaw(lblInfo.Caption + ".");
    ++ResponseSeconds;
    if (ResponseSeconds < ResponseTimeoutSecs) return;
    timUnloadfrmResponse.setEnabled(true);
    frmNoResponse.Label1 = LoadResString(sid::NoResponseFor) + " " +
                           std::to_string(ResponseTimeoutSecs) + " " +
                           LoadResString(sid::SecondsWord);
    frmNoResponse.Label2 = LoadResString(sid::WaitQuestion);
    frmNoResponse.unloadCount = 0;  // a fresh count at every showing
    frmNoResponse.Visible = true;
    timUnloadMe.setEnabled(true);
    changed();
    platform_.loop.runUntil([this] { return !frmNoResponse.Visible; });
    switch (NoResponseAnswer) {
        case 0:
            ResponseSeconds = 0;
            timResponse.setEnabled(false);
            HangUp();
            break;
        case 1:
            ShowStatus(LoadResString(sid::WaitingForAcknowledgement));
            NoResponseAnswer = 0;
            ResponseSeconds = 0;
            timUnloadfrmResponse.setEnabled(false);
            break;
        default:
            ResponseSeconds = 0;
            timUnloadfrmResponse.setEnabled(false);
            break;
    }
}

void frmMain::closeNoResponse(std::int16_t answer) {
    NoResponseAnswer = answer;
    frmNoResponse.Visible = false;
    timUnloadMe.setEnabled(false);
    changed();
}

void frmMain::cmdYes_Click() {
    closeNoResponse(1);
}
void frmMain::cmdNo_Click() {
    closeNoResponse(0);
}

void frmMain::timUnloadMe_Timer() {
    if (++frmNoResponse.unloadCount > 60) closeNoResponse(0);
}

void frmMain::timUnloadfrmResponse_Timer() {
    if (!Contains(lblInfo.Caption, LoadResString(sid::WaitingForAcknowledgement)) &&
        frmNoResponse.Visible) {
        timUnloadfrmResponse.setEnabled(false);
        closeNoResponse(3);
    }
}

}  // namespace parlane
