// Call control: from the head of SendBuffer to a call with an open port, and back down again.
#include <cstdio>
#include <memory>

#include "core/string_ids.h"
#include "line/tapi_text.h"
#include "ui/frm_main.h"

namespace parlane {

void frmMain::SetCallingLook() {
    mnuHangUp.Enabled = true;
    mnuSend.Enabled = false;
    mnuQueue.Enabled = false;
    picToolIconsEnabled[0] = false;
    picToolIconsEnabled[1] = false;
    picToolIconsEnabled[2] = true;
}

void frmMain::SetIdleLook() {
    mnuHangUp.Enabled = false;
    mnuSend.Enabled = true;
    mnuQueue.Enabled = true;
    picToolIconsEnabled[0] = true;
    picToolIconsEnabled[1] = true;
    picToolIconsEnabled[2] = false;
}

void frmMain::DialCenter() {
    if (UpperBound(SendBuffer) < 1) return;
    if (!RoomToRecord()) return;
    // A modem slow to answer the last hang-up is waited for: dialling over its drop would spend
    // an attempt on "Line In Use" and then find the line closed under it.
    if (tapi.DropAsked() && tapi.CallPlaced()) {
        AwaitDrop(kRedialDropLimit, true);
        if (unloading_) return;
    }
    auto& c = state.counters;
    bool userStopped = false;
    if (state.StopPressed != 0) {
        userStopped = true;
        c.DialAttempts = state.MaxDialAttempts;
        state.StopPressed = 0;
    }
    const QueuedMessage head = SendBuffer[1];
    const Provider centre = Providers.at(static_cast<std::size_t>(head.ProviderIndex));
    state.UcpDialogue = centre.Protocol == ProtocolUcp;
    state.VodaDialogue = centre.Protocol == ProtocolVoda;
    state.OrangeDialogue = centre.Protocol == ProtocolOrange;
    state.TimDialogue = centre.Protocol == ProtocolTim;
    state.LibertelDialogue = centre.Protocol == ProtocolLibertel;

    state.SimulatedCall = OnSimulatedLine(centre);
    ShowStatus(LoadResString(sid::Sending));
    state.CenterPassword = centre.Password;
    ShowMessageInPanel(head);

    if (head.MessageNumber == c.DialNumberSeen) {
        ++c.DialAttempts;
    } else {
        c.DialNumberSeen = head.MessageNumber;
        c.DialAttempts = 0;
    }
    if (c.DialAttempts > state.MaxDialAttempts - 1) {
        const std::string abort =
            LoadResString(userStopped ? sid::AbortedUserPressedStop : sid::AbortedMaxDialAttempts);
        ShowStatus(LoadResString(sid::MessageNumberPrefix) + std::to_string(head.MessageNumber) +
                   " " + abort);
        FinishHeadMessage(abort);
        c.DialAttempts = 0;
        HangUp();
        return;
    }
    if (c.DialAttempts > 0)
        ShowStatus(LoadResString(sid::FailedDiallingAgain) + "  " +
                   std::to_string(c.DialAttempts + 1));
    else
        ShowStatus(LoadResString(sid::Dialling));

    state.DialDevice = static_cast<std::int16_t>(LeadingNumber(centre.TapiDevice));
    if (!tapi.OpenLine(static_cast<std::uint32_t>(state.DialDevice))) {
        FinishHeadMessage(LoadResString(sid::AbortedUnableToOpenLine));
        tapi.ShutdownTelephony();
        tapi.InitTelephony();
        ShowStatus(LoadResString(sid::UnableToOpenLineRetrying));
        c.DialAttempts = 0;
        HangUp();
        return;
    }

    for (;;) {
        // A block of another device, or none, is not forced on this line.
        if (!centre.DevConfig.empty()) {
            const auto result = tapi.lineSetDevConfig(static_cast<std::uint32_t>(state.DialDevice),
                                                      centre.DevConfig);
            if (result != 0) {
                debugLog.AppendLog(tapi.ErrorText(result) + " - lineSetDevConfig");
                // Counted like a failed dial, so that the run goes on.
                ShowStatus(LoadResString(sid::ErrorMakingCall));
                HangUp();
                return;
            }
            debugLog.AppendLog("Success! - lineSetDevConfig");
        }
        const std::string address =
            centre.CountryCode.empty()
                ? centre.Number
                : "+" + centre.CountryCode + " (" + centre.AreaCode + ") " + centre.Number;
        std::string dialable;
        const auto translated = tapi.lineTranslateAddress(
            static_cast<std::uint32_t>(state.DialDevice), address, dialable);
        if (translated != 0) {
            debugLog.AppendLog(tapi.ErrorText(translated) + " - LineTranslateAddress");
            ShowStatus(LoadResString(sid::ErrorMakingCall));
            HangUp();
            return;
        }
        debugLog.AppendLog("Success! - LineTranslateAddress");

        SetCallingLook();
        ShowStatus(LoadResString(sid::Dialling));
        const auto placed = tapi.PlaceCall(dialable, LINEMEDIAMODE_DATAMODEM);
        state.LineInUseRetry = false;
        if (placed == PlaceCallResult::Placed) {
            timSafetyTimer.setEnabled(true);
            return;
        }
        if (placed == PlaceCallResult::Failed) {
            ShowStatus(LoadResString(sid::ErrorMakingCall));
            HangUp();
            timSafetyTimer.setEnabled(true);
            return;
        }
        ShowStatus(LoadResString(sid::LineInUse));
        state.LineInUseRetry = true;
        WaitSecs(10);
        // The program ended during the wait: nothing is dialled on a line that is shut down.
        if (unloading_) return;
        // Stop ends the wait: the next tick gives the message up.
        if (state.StopPressed != 0) {
            state.LineInUseRetry = false;
            HangUp();
            return;
        }
        // The end of the call that held the line closes it: open it again before dialling.
        if (!tapi.LineOpen() && !tapi.OpenLine(static_cast<std::uint32_t>(state.DialDevice))) {
            state.LineInUseRetry = false;
            ShowStatus(LoadResString(sid::ErrorMakingCall));
            HangUp();
            return;
        }
    }
}

// The current location's country code, when telephony knows one, goes into the panel.
void frmMain::ShowLocationCountryCode() {
    std::string country;
    if (tapi.tapiGetLocationInfo(country) < 0) return;
    country = BlankNuls(country);
    const auto first = country.find_first_not_of(' ');
    txtCountryCode.Text = first == std::string::npos
                              ? std::string()
                              : country.substr(first, country.find_last_not_of(' ') - first + 1);
}

void frmMain::HangUp() {
    timSafetyTimer.setEnabled(false);
    timSendCR.setEnabled(false);
    timResponse.setEnabled(false);
    timUnloadfrmResponse.setEnabled(false);
    ShowStatus(LoadResString(sid::Disconnecting));
    // A prompt about this call's silence must not outlive the call.
    if (frmNoResponse.Visible) closeNoResponse(3);
    CloseCommPort();
    if (state.CallActive) tapi.DropCall();
    SetIdleLook();
    state.CallActive = false;
    state.ReceiveBuffer.clear();
    state.UcpReceiveBuffer.clear();
    state.ExpectedPrompt.clear();
    ShowStatus(LoadResString(sid::Disconnected));
    timCommEvent.setInterval(1);
    ShowLocationCountryCode();
    txtMessage.Text.clear();
    txtAreaCode.Text.clear();
    txtNumber.Text.clear();
    const std::string defaultName = DefaultCentre();
    Services.ListIndex = -1;
    for (int i = 0; i < Services.ListCount(); ++i)
        if (Services.rows[static_cast<std::size_t>(i)] == defaultName) Services.select(i);
    if (Services.ListIndex < 0 && Services.ListCount() > 0) Services.select(0);
    // Its limit and line too, so that the next message can be typed at once.
    Services_Click();
    if (!state.LineInUseRetry && !unloading_) {
        timSendMessages.setEnabled(false);
        state.DialPending = false;
        timSendMessages.setEnabled(true);
    }
    state.UcpDialogue = false;
}

// The provider's drop runs on the loop (DTR, guard times, the modem's answer to ATH), so the
// program must not close the port and end until it is done: a modem that ignores DTR would
// otherwise stay off-hook on a paid line. A modem that never answers holds the end up for
// kExitDropLimit at most.
void frmMain::EndCallForExit() {
    unloading_ = true;
    for (Timer* t : {&timSendMessages, &timCheckSingleMessageSent, &timSafetyTimer, &timCommEvent,
                     &timResponse, &timSendCR, &timUnloadfrmResponse, &timAnimate, &tmrCommandLine,
                     &tmrCommandCompleted, &timUnloadMe})
        t->setEnabled(false);
    if (!tapi.CallPlaced()) return;
    if (state.CallActive) HangUp();
    // Still dialling, or connected without a port: HangUp leaves such a call alone.
    if (!tapi.DropAsked()) tapi.DropCall();
    if (!tapi.DropAsked()) return;
    const auto took = AwaitDrop(kExitDropLimit, false);
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f s", static_cast<double>(took.count()) / 1000.0);
    debugLog.AppendLog(tapi.CallPlaced()
                           ? LoadResString(sid::LogLineNotIdleAfter) + " " + seconds + ", " +
                                 LoadResString(sid::LogClosingIt) + " - Exit"
                           : LoadResString(sid::LogLineDroppedIn) + " " + seconds + " - Exit");
}

Milliseconds frmMain::AwaitDrop(Milliseconds limit, bool stopEnds) {
    auto& loop = platform_.loop;
    const auto started = loop.now();
    auto limitPassed = std::make_shared<bool>(false);
    loop.singleShot(limit, [limitPassed] { *limitPassed = true; });
    loop.runUntil(
        [&] { return !tapi.CallPlaced() || *limitPassed || (stopEnds && state.StopPressed != 0); });
    return std::chrono::duration_cast<Milliseconds>(loop.now() - started);
}

void frmMain::CloseCommPort() {
    platform_.loop.doEvents();
    debugLog.AppendLog(LoadResString(platform_.serial.CloseCommunicationsPort()
                                         ? sid::LogCommPortClosed
                                         : sid::LogFailedToCloseCommPort));
}

void frmMain::OpenCommPort() {
    const auto handle = tapi.GetCommHandle();
    const bool opened = platform_.serial.OpenCommunicationsPort(handle, [this](std::int32_t code) {
        // May come from the serial reader's thread: hand the code to the loop, nothing else.
        platform_.loop.post([this, code] { OnCommEvent(code); });
    });
    if (!opened) {
        debugLog.AppendLog(LoadResString(sid::LogFailedToOpenCommPort));
        return;
    }
    debugLog.AppendLog(LoadResString(sid::LogCommPortOpen));
    timSendCR.setEnabled(!state.anyDialogueFlag());
    state.CallActive = true;
    if (state.UcpDialogue) {
        WaitSecs(2);
        SendNextMessage();
    }
}

void frmMain::setLblEvent(const std::string& text) {
    if (text == lblEvent) return;  // a repeated state acts once
    lblEvent = text;
    if (text == "256") {
        ShowStatus(LoadResString(sid::Connected));
        OpenCommPort();
    } else if (text == "1") {
        tapi.DeallocateCall();
        tapi.CloseLine();
    } else if (text == "16384") {
        state.CallActive = true;
        HangUp();
    }
}

}  // namespace parlane
