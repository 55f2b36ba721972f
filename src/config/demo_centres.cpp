#include "config/demo_centres.h"

namespace parlane {

std::vector<Provider> DemoCentres() {
    const struct {
        const char* name;
        const char* number;  // its last three digits pick the simulated centre
        Protocol protocol;
    } rows[] = {
        {"Demo TAP Centre", "100100", ProtocolTap},
        {"Demo UCP Centre", "100101", ProtocolUcp},
        {"Demo Vodafone Menu", "100102", ProtocolVoda},
        {"Demo Orange Menu", "100103", ProtocolOrange},
        {"Demo TIM Menu", "100104", ProtocolTim},
        {"Demo Libertel Menu", "100105", ProtocolLibertel},
    };
    std::vector<Provider> centres;
    for (const auto& row : rows) {
        Provider centre;
        centre.ProviderName = row.name;
        centre.TapiDevice = "0";
        centre.CountryCode = "44";
        centre.AreaCode = "0800";
        centre.Number = row.number;
        centre.MaxChars = "160";
        centre.Protocol = row.protocol;
        centre.MultiMessage = 1;
        centre.AllowASCII = "0";
        centre.MaxMessages = "3";
        centre.UCPOperation = "01";
        centres.push_back(centre);
    }
    return centres;
}

}  // namespace parlane
