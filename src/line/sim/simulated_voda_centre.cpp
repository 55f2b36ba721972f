#include "line/sim/simulated_voda_centre.h"

namespace parlane {
namespace {

NumberTextScreens VodaScreens(bool mixedCase) {
    if (mixedCase)
        return {"\r\nVodafone Paging Service\r\n",
                "\r\nEnter number: ",
                "\r\nType message, end with Return: ",
                "\r\nMessage accepted\r\n",
                "\r\nSorry, message not sent\r\n",
                "\r\nInvalid number\r\n",
                "\r\nGoodbye\r\n"};
    return {"\r\nVODAFONE PAGING SERVICE\r\n",
            "\r\nENTER NUMBER: ",
            "\r\nTYPE MESSAGE, END WITH RETURN: ",
            "\r\nMESSAGE ACCEPTED\r\n",
            "\r\nSORRY, MESSAGE NOT SENT\r\n",
            "\r\nINVALID NUMBER\r\n",
            "\r\nGOODBYE\r\n"};
}

// Dutch throughout: a number that is not one gets no English word a caller could react to.
NumberTextScreens LibertelScreens() {
    return {"\r\nLibertel Semafoondienst\r\n",
            "\r\nVoer het telefoonnummer in: ",
            "\r\nTyp uw bericht en druk op Enter: ",
            "\r\nUw bericht is geaccepteerd.\r\n",
            "\r\nSorry, uw bericht is niet verzonden.\r\n",
            "\r\nOngeldig nummer.\r\n",
            "\r\nTot ziens.\r\n"};
}

// How long the result stays on screen before the number prompt comes back.
constexpr Milliseconds kResultShown{1500};

}  // namespace

SimulatedVodaCentre::SimulatedVodaCentre(VodaCentreOptions options)
    : SimulatedVodaCentre(VodaScreens(options.mixedCase), options.refuse) {}

SimulatedLibertelCentre::SimulatedLibertelCentre(RefusalRule refuse)
    : SimulatedVodaCentre(LibertelScreens(), refuse) {}

void SimulatedVodaCentre::greet() {
    state_ = State::Number;
    sayAfter(Milliseconds(1000), screens_.welcome + screens_.numberPrompt);
}

void SimulatedVodaCentre::received(std::string_view bytes) {
    for (char c : bytes) {
        if (closing()) return;
        if (auto typed = this->typed(c)) line(*typed);
    }
}

void SimulatedVodaCentre::line(const std::string& typed) {
    switch (state_) {
        case State::Number:
            // Stray CRs at a prompt are let pass.
            if (!typed.empty()) number(typed);
            break;
        case State::Text:
            if (typed.empty()) break;
            state_ = State::AfterResult;
            if (refuse_.refuses(++messages_)) {
                say(screens_.refused);
            } else {
                record(recipient_, typed);
                say(screens_.accepted);
            }
            then(kResultShown, [this] {
                if (state_ != State::AfterResult || closing()) return;
                state_ = State::Number;
                sayAfter(Milliseconds(0), screens_.numberPrompt);
            });
            break;
        case State::AfterResult:
            if (typed.empty()) {
                say(screens_.goodbye);
                hangUpAfter(Milliseconds(500));
            } else {
                number(typed);
            }
            break;
    }
}

void SimulatedVodaCentre::number(const std::string& typed) {
    if (!PlausibleNumber(typed)) {
        state_ = State::Number;
        say(screens_.badNumber + screens_.numberPrompt);
        return;
    }
    recipient_ = typed;
    state_ = State::Text;
    say(screens_.textPrompt);
}

}  // namespace parlane
