#include "line/sim/simulated_orange_centre.h"

namespace parlane {
namespace {

const std::string kMenu =
    "\r\nOrange Messaging\r\n\r\n  s   Send a message\r\n  q   Quit\r\n\r\nChoice: ";

}  // namespace

void SimulatedOrangeCentre::greet() {
    state_ = State::Menu;
    sayAfter(Milliseconds(1000), kMenu);
}

void SimulatedOrangeCentre::received(std::string_view bytes) {
    for (char c : bytes) {
        if (closing()) return;
        if (state_ == State::Menu) {
            menuKey(c);
        } else if (auto typed = this->typed(c)) {
            line(*typed);
        }
    }
}

void SimulatedOrangeCentre::menuKey(char c) {
    if (c == 's' || c == 'S') {
        state_ = State::Number;
        say("s\r\nPager number: ");
    } else if (c == 'q' || c == 'Q') {
        goodbye();
    } else if (c == '\r' && messages_ > 0) {
        // Return at the menu after a message is how callers leave.
        goodbye();
    }
}

void SimulatedOrangeCentre::line(const std::string& typed) {
    if (typed.empty()) return;  // stray CRs while a line is wanted
    if (state_ == State::Number) {
        if (!PlausibleNumber(typed)) {
            state_ = State::Menu;
            say("\r\nInvalid pager number\r\n" + kMenu);
            return;
        }
        recipient_ = typed;
        state_ = State::Text;
        say("\r\nType the message to send, end with Return:\r\n");
        return;
    }
    state_ = State::Menu;
    if (refuse_.refuses(++messages_)) {
        say("\r\nSorry, your message could not be delivered.\r\n");
    } else {
        record(recipient_, typed);
        say("\r\nMessage accepted.\r\n");
    }
    sayAfter(Milliseconds(1000), kMenu);
}

void SimulatedOrangeCentre::goodbye() {
    say("\r\nThank you for using Orange Messaging. Goodbye.\r\n");
    hangUpAfter(Milliseconds(500));
}

}  // namespace parlane
