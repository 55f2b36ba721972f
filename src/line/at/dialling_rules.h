#pragma once
// Turns a canonical address ("+44 (0973) 100123") into what the modem dials from where the user
// is, and keeps that location in the settings.

#include <string>

#include "core/settings_store.h"

namespace parlane {

struct DiallingLocation {
    std::string countryCode = "44";
    std::string areaCode;     // "0973" and "973" mean the same
    std::string outsideLine;  // e.g. "9," to get out of a switchboard
    std::string nationalPrefix = "0";
    std::string internationalPrefix = "00";
    bool tone = true;  // the caller picks ATDT or ATDP; the dial string carries no mode

    bool operator==(const DiallingLocation&) const = default;
};

// Local, national or international dial string, behind the outside-line prefix when there is one.
// Text without a leading "+" is dialled as given, cleaned to digits and "," "W" "*" "#".
std::string TranslateCanonicalAddress(const std::string& canonical, const DiallingLocation& here);

// Section "Location"; keys missing or unreadable keep the defaults' values.
DiallingLocation LoadDiallingLocation(const Settings& settings, const DiallingLocation& defaults);
void SaveDiallingLocation(Settings& settings, const DiallingLocation& location);

// Codes and prefixes for an ISO country ("GB", "us"); unknown countries get the struct defaults.
DiallingLocation DefaultDiallingLocation(const std::string& localeCountry);

}  // namespace parlane
