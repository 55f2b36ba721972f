// The UCP dialogue: one operation frame a message, positive or negative replies.
#include <cctype>

#include "core/string_ids.h"
#include "engine/ucp_frame.h"
#include "ui/frm_main.h"

namespace parlane {

void frmMain::SendUcpFrame(const QueuedMessage& head, const Provider& centre) {
    ShowStatus(LoadResString(sid::SendingMessage));
    state.UcpDialogue = true;
    SendText(BuildUcpFrame(head, centre, state.OriginatorId));
}

void frmMain::HandleUcpText(const std::string& text) {
    state.UcpReceiveBuffer += text;
    const Provider* centre = headCentre();
    if (!centre) return;
    // The operation is compared as it would read in the upper-cased reply.
    std::string op = centre->UCPOperation;
    for (auto& c : op) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto& buffer = state.UcpReceiveBuffer;
    const bool positive = buffer.contains("/R/" + op + "/A/", TextBuffer::Case::Upper);
    if (!positive && !buffer.contains("/R/" + op + "/N/", TextBuffer::Case::Upper)) return;

    const std::string status =
        OutcomeText(positive ? sid::MessageSentSuccessfully : sid::MessageRejectedBySmsc);
    ShowStatus(status);
    // A refusal keeps the two blanks of its status line in the archive.
    FinishHeadMessage(positive ? status : status + "  ");
    state.UcpReceiveBuffer.clear();
    if (state.MoreInCall) {
        platform_.loop.doEvents();
        WaitSecs(2);
        state.MoreInCall = false;
        SendNextMessage();
    } else {
        HangUp();
    }
}

}  // namespace parlane
