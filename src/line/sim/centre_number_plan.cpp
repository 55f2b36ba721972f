// Which simulated centre answers a number: see docs/simulated-centres.md. The last three digits
// pick the centre, the digit before them a fault of the line or the centre, the digit before
// that a variant of the centre's manners.

#include <string>

#include "line/sim/simulated_centre.h"
#include "line/sim/simulated_orange_centre.h"
#include "line/sim/simulated_tap_centre.h"
#include "line/sim/simulated_tim_centre.h"
#include "line/sim/simulated_ucp_centre.h"
#include "line/sim/simulated_voda_centre.h"

namespace parlane {
namespace {

enum Kind { kTap = 100, kUcp = 101, kVoda = 102, kOrange = 103, kTim = 104, kLibertel = 105 };

enum Fault {
    kNoFault,
    kBusy,
    kNoAnswer,
    kSilence,
    kDrop,
    kNoise,
    kSplit,
    kBurst,
    kRefuseSecond,
    kPassword
};

std::unique_ptr<SimulatedCentre> MakeTap(int fault, int variant, std::string& description) {
    TapCentreOptions o;
    description = "TAP centre";
    if (fault == kRefuseSecond) {
        o.refuse.nth = 2;
        o.refuseByRs = variant == 5;
        if (o.refuseByRs) description += ", refuses by RS";
    }
    if (fault == kPassword) {
        o.password = "secret";
        o.passwordRefusedByNak = variant == 6;
        description += o.passwordRefusedByNak ? ", password secret, else NAK" : ", password secret";
    }
    switch (variant) {
        case 1:
            o.ackWithCr = false;
            o.signOffWithEsc = false;
            description += ", bare ACK and EOT";
            break;
        case 2:
        case 3:
            o.finishAfter = 1;
            o.finishLong = variant == 3;
            description +=
                variant == 3 ? ", ends with ACK CR CR ESC EOT" : ", ends with ACK CR ESC EOT";
            break;
        case 4:
            o.afterGoAhead = "\x06\r";
            description += ", ACK with the go-ahead";
            break;
        default:
            break;
    }
    return std::make_unique<SimulatedTapCentre>(std::move(o));
}

std::unique_ptr<SimulatedCentre> MakeUcp(int fault, int variant, std::string& description) {
    UcpCentreOptions o;
    description = "UCP centre";
    if (fault == kRefuseSecond) o.refuse.nth = 2;
    if (fault == kPassword) {
        o.password = "secret";
        description += ", password secret";
    }
    if (variant == 1) o.lowerCase = true, description += ", lower case";
    if (variant == 2) o.answerPieces = 3, description += ", answers in pieces";
    if (variant == 3) o.answerBadFrames = false, description += ", ignores bad frames";
    return std::make_unique<SimulatedUcpCentre>(std::move(o));
}

std::unique_ptr<SimulatedCentre> MakeMenu(Kind kind, int fault, int variant,
                                          std::string& description) {
    // Menus have no password; their fault 9 turns every message down.
    RefusalRule refuse;
    if (fault == kRefuseSecond) refuse.nth = 2;
    if (fault == kPassword) refuse.every = true, description = ", refuses every message";
    switch (kind) {
        case kVoda:
            description =
                (variant == 1 ? "Vodafone menu, mixed case" : "Vodafone menu") + description;
            return std::make_unique<SimulatedVodaCentre>(VodaCentreOptions{variant == 1, refuse});
        case kOrange:
            description = "Orange menu" + description;
            return std::make_unique<SimulatedOrangeCentre>(refuse);
        case kLibertel:
            description = "Libertel menu" + description;
            return std::make_unique<SimulatedLibertelCentre>(refuse);
        default: {
            static const char* const names[] = {"pTIM", "CMenu", "CScr", "CServizio"};
            const int heading = variant >= 0 && variant <= 3 ? variant : 0;
            description = std::string("TIM menu, first screen ") + names[heading] + description;
            return std::make_unique<SimulatedTimCentre>(
                static_cast<SimulatedTimCentre::Heading>(heading), refuse);
        }
    }
}

}  // namespace

CentreChoice CentreForNumber(const std::string& dialable, int attemptForThisNumber) {
    std::string digits;
    for (char c : dialable)
        if (c >= '0' && c <= '9') digits += c;
    // Counted from the end: 1 is the last digit. Missing digits read as 0.
    const auto digitFromEnd = [&](std::size_t n) {
        return digits.size() >= n ? digits[digits.size() - n] - '0' : 0;
    };
    int kind = digits.size() >= 3 ? std::stoi(digits.substr(digits.size() - 3)) : 0;
    int fault = digitFromEnd(4), variant = digitFromEnd(5);
    if (kind < kTap || kind > kLibertel) kind = kTap, fault = kNoFault, variant = 0;

    CentreChoice choice;
    std::string description;
    if (kind == kTap)
        choice.centre = MakeTap(fault, variant, description);
    else if (kind == kUcp)
        choice.centre = MakeUcp(fault, variant, description);
    else
        choice.centre = MakeMenu(static_cast<Kind>(kind), fault, variant, description);

    LineBehaviour& line = choice.line;
    switch (fault) {
        case kBusy:
            line.busyAttempts = 2;
            // Attempts count from 0, as the modem counts them.
            description +=
                attemptForThisNumber < line.busyAttempts ? ", line busy" : ", through after 2 busy";
            break;
        case kNoAnswer:
            line.noAnswer = true;
            description += ", no answer";
            break;
        case kSilence:
            choice.centre.reset();
            description += ", silent after connecting";
            break;
        case kDrop:
            line.dropAfterMs = 20000;
            description += ", drops after 20 s";
            break;
        case kNoise:
            line.noise = true;
            description += ", noisy line";
            break;
        case kSplit:
            line.splitChunks = true;
            description += ", text in small pieces";
            break;
        case kBurst:
            line.burstBytes = 1500;
            description += ", 1500 bytes of junk first";
            break;
        case kRefuseSecond:
            description += ", refuses the 2nd message";
            break;
        default:
            break;
    }
    choice.description = description;
    return choice;
}

}  // namespace parlane
