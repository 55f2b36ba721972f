#include "line/sim/simulated_tim_centre.h"

namespace parlane {
namespace {

// The form, one prompt per field. Only the first names the recipient: a caller that waits for
// that word must not see it again before the form is sent.
const char* const kFields[] = {
    "Destinatario: ",    "Mittente [TIM]: ", "Notifica [no]: ",    "Priorita' [normale]: ",
    "Validita' [24h]: ", "Testo: ",          "INVIO per spedire: "};
constexpr int kRecipientField = 0, kTextField = 5, kConfirmField = 6;

const std::string kService =
    "\r\nServizio SMS\r\nINVIO: nuovo messaggio   u: indietro   q: uscita\r\n";
const std::string kKeys = "\r\n u: indietro   q: uscita\r\n";

}  // namespace

void SimulatedTimCentre::greet() {
    static const char* const headings[] = {"pTIM", "CMenu", "CScr", "CServizio"};
    page_ = Page::Main;
    sayAfter(Milliseconds(1200), std::string("\r\n") + headings[static_cast<int>(heading_)] +
                                     "  Servizi TIM\r\n\r\n 1  Invio messaggi\r\n q  Uscita\r\n\r\n"
                                     "Scelta: ");
}

void SimulatedTimCentre::received(std::string_view bytes) {
    for (char c : bytes) {
        if (closing()) return;
        key(c);
    }
}

void SimulatedTimCentre::key(char c) {
    switch (page_) {
        case Page::Main:
            // The main menu reads a whole line; a bare CR is let pass.
            if (auto typed = this->typed(c)) {
                if (*typed == "1") {
                    page_ = Page::Service;
                    say(kService);
                } else if (*typed == "q" || *typed == "Q") {
                    leave();
                }
            }
            break;
        case Page::Service:
            if (c == '\r') {
                showForm();
            } else if (c == 'u') {
                page_ = Page::Main;
                greet();
            } else if (c == 'q') {
                leave();
            }
            break;
        case Page::Form:
            if (auto typed = this->typed(c)) formLine(*typed);
            break;
        case Page::Result:
        case Page::Summary:
            // Pages with keys only; CRs and anything else are let pass.
            if (c == 'q') {
                leave();
            } else if (c == 'u' && page_ == Page::Result) {
                page_ = Page::Summary;
                say("\r\nRiepilogo: " + std::to_string(messages_) + " messaggi in questa sessione" +
                    kKeys);
            } else if (c == 'u') {
                page_ = Page::Service;
                say(kService);
            }
            break;
    }
}

void SimulatedTimCentre::showForm() {
    page_ = Page::Form;
    field_ = kRecipientField;
    recipient_.clear();
    text_.clear();
    say(std::string("\r\nNuovo messaggio\r\n") + kFields[kRecipientField]);
}

void SimulatedTimCentre::formLine(const std::string& typed) {
    // The recipient and the text cannot be left empty: a bare CR there is let pass.
    if (typed.empty() && (field_ == kRecipientField || field_ == kTextField)) return;
    if (field_ == kRecipientField) recipient_ = typed;
    if (field_ == kTextField) text_ = typed;
    if (field_ == kConfirmField) return submit();
    ++field_;
    say(std::string("\r\n") + kFields[field_]);
}

void SimulatedTimCentre::submit() {
    page_ = Page::Result;
    // The number is only checked when the form goes off, as the gateway does.
    if (refuse_.refuses(++messages_) || !PlausibleNumber(recipient_)) {
        say("\r\nIL MESSAGGIO NON PUO' ESSERE INVIATO\r\n" + kKeys);
        return;
    }
    record(recipient_, text_);
    say("\r\nMESSAGGIO INVIATO\r\n" + kKeys);
}

void SimulatedTimCentre::leave() {
    say("\r\nArrivederci\r\n");
    hangUpAfter(Milliseconds(500));
}

}  // namespace parlane
