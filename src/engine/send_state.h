#pragma once
// The engine's state for the life of the main window; never stored.

#include <cstdint>
#include <string>

#include "engine/text_buffer.h"

namespace parlane {

struct SendCounters {
    std::int32_t DialNumberSeen = 0;
    std::int32_t DialAttempts = 0;
    std::int32_t SendNumberSeen = 0;
    std::int32_t SendAttempts = 0;
    std::int32_t BlockMessagesInCall = 0;
    std::int32_t MenuMessagesInCall = 0;
    std::int32_t NextMessageNumber = 0;
    std::int32_t SafetyMinutes = 0;
};

struct SendState {
    bool CallActive = false;
    bool DialPending = false;
    bool MoreInCall = false;
    std::string CenterPassword;
    std::string ExpectedPrompt;
    TextBuffer ReceiveBuffer;
    TextBuffer UcpReceiveBuffer;
    bool LineInUseRetry = false;
    std::int16_t StopPressed = 0;
    std::int16_t MaxDialAttempts = 3;
    bool AllowExtendedAscii = false;
    std::string OriginatorId = "12345";
    // Which dialogue the call speaks; none set means TAP.
    bool OrangeDialogue = false;
    bool VodaDialogue = false;
    bool LibertelDialogue = false;
    bool TimDialogue = false;
    bool UcpDialogue = false;
    std::int16_t DialDevice = 0;
    // The call in progress is on the simulated modem: its outcomes say "(simulated)".
    bool SimulatedCall = false;
    SendCounters counters;

    bool anyDialogueFlag() const {
        return OrangeDialogue || VodaDialogue || LibertelDialogue || TimDialogue || UcpDialogue;
    }
};

}  // namespace parlane
