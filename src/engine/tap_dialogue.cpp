// The TAP dialogue: logon, one block a message, acknowledgements, sign-off.
#include "core/string_ids.h"
#include "engine/tap_block.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {
const std::string kAck(1, ACK);
const std::string kEot(1, EOT);
}  // namespace

void frmMain::SendTapBlock(const QueuedMessage& head, const Provider& centre) {
    state.AllowExtendedAscii = centre.AllowASCII == "1";
    std::string text = head.Text;
    FindAsciiCharacter(text, state.AllowExtendedAscii);
    const std::string fields =
        head.CountryCode + NationalAreaPart(head.AreaCode) + head.Number + CR + text + CR;
    const std::string block = BuildTapBlock(fields);
    if (block.empty()) return;  // the checksum overflowed: no block goes out
    SendText(block);
}

void frmMain::TapRow() {
    const std::string prompt = state.ExpectedPrompt;
    if (prompt == "ID=") {
        timSendCR.setEnabled(false);
        ShowStatus(LoadResString(sid::LoggingOn));
        SendText(ESC + std::string("PG1") + state.CenterPassword + CR);
        state.ExpectedPrompt = TapGoAhead;
        WaitSecs(1);
    } else if (prompt == TapGoAhead) {
        state.ExpectedPrompt = kAck;
        SendNextMessage();
    } else if (prompt == kAck) {
        TapBlockAnswered(sid::MessageSentSuccessfully);
    }
    // EOT: the common checks have ended the call already.
}

// A block was acknowledged or refused: the next block follows, or the sign-off.
void frmMain::TapBlockAnswered(int statusId) {
    const bool more = state.MoreInCall;
    EndMessage(statusId);
    if (more) {
        WaitSecs(2);
        SendNextMessage();
        return;
    }
    ShowStatus(OutcomeText(statusId));
    WaitSecs(2);
    state.ExpectedPrompt = kEot;
    SendText(std::string(1, EOT) + CR);
}

void frmMain::TapRefusedCheck() {
    if (state.ExpectedPrompt == kAck) {
        TapBlockAnswered(sid::MessageRejectedBySmsc);
        return;
    }
    ShowStatus(LoadResString(sid::FailedLoggingOnAgain));
    SendText(ESC + std::string("PG1") + state.CenterPassword + CR);
}

}  // namespace parlane
