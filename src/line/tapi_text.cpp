#include "line/tapi_text.h"

#include <array>
#include <cstdio>

#include "core/string_ids.h"
#include "core/strings.h"

namespace parlane {
namespace {

// 0x80000001 on; empty names have no constant.
constexpr std::array<const char*, 92> kLineErrors = {"ALLOCATED",
                                                     "BADDEVICEID",
                                                     "BEARERMODEUNAVAIL",
                                                     "",
                                                     "CALLUNAVAIL",
                                                     "COMPLETIONOVERRUN",
                                                     "CONFERENCEFULL",
                                                     "DIALBILLING",
                                                     "DIALDIALTONE",
                                                     "DIALPROMPT",
                                                     "DIALQUIET",
                                                     "INCOMPATIBLEAPIVERSION",
                                                     "INCOMPATIBLEEXTVERSION",
                                                     "INIFILECORRUPT",
                                                     "INUSE",
                                                     "INVALADDRESS",
                                                     "INVALADDRESSID",
                                                     "INVALADDRESSMODE",
                                                     "INVALADDRESSSTATE",
                                                     "INVALAPPHANDLE",
                                                     "INVALAPPNAME",
                                                     "INVALBEARERMODE",
                                                     "INVALCALLCOMPLMODE",
                                                     "INVALCALLHANDLE",
                                                     "INVALCALLPARAMS",
                                                     "INVALCALLPRIVILEGE",
                                                     "INVALCALLSELECT",
                                                     "INVALCALLSTATE",
                                                     "INVALCALLSTATELIST",
                                                     "INVALCARD",
                                                     "INVALCOMPLETIONID",
                                                     "INVALCONFCALLHANDLE",
                                                     "INVALCONSULTCALLHANDLE",
                                                     "INVALCOUNTRYCODE",
                                                     "INVALDEVICECLASS",
                                                     "INVALDEVICEHANDLE",
                                                     "INVALDIALPARAMS",
                                                     "INVALDIGITLIST",
                                                     "INVALDIGITMODE",
                                                     "INVALDIGITS",
                                                     "INVALEXTVERSION",
                                                     "INVALGROUPID",
                                                     "INVALLINEHANDLE",
                                                     "INVALLINESTATE",
                                                     "INVALLOCATION",
                                                     "INVALMEDIALIST",
                                                     "INVALMEDIAMODE",
                                                     "INVALMESSAGEID",
                                                     "",
                                                     "INVALPARAM",
                                                     "INVALPARKID",
                                                     "INVALPARKMODE",
                                                     "INVALPOINTER",
                                                     "INVALPRIVSELECT",
                                                     "INVALRATE",
                                                     "INVALREQUESTMODE",
                                                     "INVALTERMINALID",
                                                     "INVALTERMINALMODE",
                                                     "INVALTIMEOUT",
                                                     "INVALTONE",
                                                     "INVALTONELIST",
                                                     "INVALTONEMODE",
                                                     "INVALTRANSFERMODE",
                                                     "LINEMAPPERFAILED",
                                                     "NOCONFERENCE",
                                                     "NODEVICE",
                                                     "NODRIVER",
                                                     "NOMEM",
                                                     "NOREQUEST",
                                                     "NOTOWNER",
                                                     "NOTREGISTERED",
                                                     "OPERATIONFAILED",
                                                     "OPERATIONUNAVAIL",
                                                     "RATEUNAVAIL",
                                                     "RESOURCEUNAVAIL",
                                                     "REQUESTOVERRUN",
                                                     "STRUCTURETOOSMALL",
                                                     "TARGETNOTFOUND",
                                                     "TARGETSELF",
                                                     "UNINITIALIZED",
                                                     "USERUSERINFOTOOBIG",
                                                     "REINIT",
                                                     "ADDRESSBLOCKED",
                                                     "BILLINGREJECTED",
                                                     "INVALFEATURE",
                                                     "NOMULTIPLEINSTANCE",
                                                     "INVALAGENTID",
                                                     "INVALAGENTGROUP",
                                                     "INVALPASSWORD",
                                                     "INVALAGENTSTATE",
                                                     "INVALAGENTACTIVITY",
                                                     "DIALVOICEDETECT"};

// 0x90000001 on.
constexpr std::array<const char*, 35> kPhoneErrors = {"ALLOCATED",
                                                      "BADDEVICEID",
                                                      "INCOMPATIBLEAPIVERSION",
                                                      "INCOMPATIBLEEXTVERSION",
                                                      "INIFILECORRUPT",
                                                      "INUSE",
                                                      "INVALAPPHANDLE",
                                                      "INVALAPPNAME",
                                                      "INVALBUTTONLAMPID",
                                                      "INVALBUTTONMODE",
                                                      "INVALBUTTONSTATE",
                                                      "INVALDATAID",
                                                      "INVALDEVICECLASS",
                                                      "INVALEXTVERSION",
                                                      "INVALHOOKSWITCHDEV",
                                                      "INVALHOOKSWITCHMODE",
                                                      "INVALLAMPMODE",
                                                      "INVALPARAM",
                                                      "INVALPHONEHANDLE",
                                                      "INVALPHONESTATE",
                                                      "INVALPOINTER",
                                                      "INVALPRIVILEGE",
                                                      "INVALRINGMODE",
                                                      "NODEVICE",
                                                      "NODRIVER",
                                                      "NOMEM",
                                                      "NOTOWNER",
                                                      "OPERATIONFAILED",
                                                      "OPERATIONUNAVAIL",
                                                      "",
                                                      "RESOURCEUNAVAIL",
                                                      "REQUESTOVERRUN",
                                                      "STRUCTURETOOSMALL",
                                                      "UNINITIALIZED",
                                                      "REINIT"};

constexpr std::array<const char*, 20> kMessages = {
    "LINE_ADDRESSSTATE",  "LINE_CALLINFO",     "LINE_CALLSTATE",
    "LINE_CLOSE",         "LINE_DEVSPECIFIC",  "LINE_DEVSPECIFICFEATURE",
    "LINE_GATHERDIGITS",  "LINE_GENERATE",     "LINE_LINEDEVSTATE",
    "LINE_MONITORDIGITS", "LINE_MONITORMEDIA", "LINE_MONITORTONE",
    "LINE_REPLY",         "LINE_REQUEST",      "PHONE_BUTTON",
    "PHONE_CLOSE",        "PHONE_DEVSPECIFIC", "PHONE_REPLY",
    "PHONE_STATE",        "LINE_CREATE"};

constexpr std::array<const char*, 16> kCallStates = {
    "IDLE",           "OFFERING",           "ACCEPTED",     "DIALTONE",   "DIALING", "RINGBACK",
    "BUSY",           "SPECIALINFO",        "CONNECTED",    "PROCEEDING", "ONHOLD",  "CONFERENCED",
    "ONHOLDPENDCONF", "ONHOLDPENDTRANSFER", "DISCONNECTED", "UNKNOWN"};

std::string Hex(std::uint32_t value) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%X", value);
    return buf;
}

}  // namespace

std::string TapiErrorText(std::int32_t code, const Strings& strings) {
    const auto value = static_cast<std::uint32_t>(code);
    std::string name;
    if (value >= 0x80000001u && value < 0x80000001u + kLineErrors.size() &&
        *kLineErrors[value - 0x80000001u])
        name = std::string("LINEERR_") + kLineErrors[value - 0x80000001u];
    else if (value >= 0x90000001u && value < 0x90000001u + kPhoneErrors.size() &&
             *kPhoneErrors[value - 0x90000001u])
        name = std::string("PHONEERR_") + kPhoneErrors[value - 0x90000001u];
    else
        name = strings.LoadResString(sid::LogUnknownTapiError);
    return name + " [" + Hex(value) + "]";
}

std::string TapiMessageText(std::uint32_t message, const Strings& strings) {
    if (message >= kMessages.size()) return strings.LoadResString(sid::LogUnknownMessage);
    return std::string(kMessages[message]) + " [" + std::to_string(message) + "]";
}

std::string CallStateText(std::uint32_t state, const Strings& strings) {
    for (std::size_t bit = 0; bit < kCallStates.size(); ++bit)
        if (state == (1u << bit))
            return std::string("LINECALLSTATE_") + kCallStates[bit] + " [ " +
                   std::to_string(state) + "]";
    return strings.LoadResString(sid::LogUnknownCallState);
}

std::string DisconnectModeText(std::uint32_t mode, const Strings& strings) {
    static constexpr std::array<const char*, 12> kModes = {
        "NORMAL",   "UNKNOWN",    "REJECT",      "PICKUP",     "FORWARDED",    "BUSY",
        "NOANSWER", "BADADDRESS", "UNREACHABLE", "CONGESTION", "INCOMPATIBLE", "UNAVAIL"};
    for (std::size_t bit = 0; bit < kModes.size(); ++bit)
        if (mode == (1u << bit))
            return std::string("LINEDISCONNECTMODE_") + kModes[bit] + " [" + std::to_string(mode) +
                   "]";
    return strings.LoadResString(sid::LogUnknownDisconnectMode);
}

std::string MediaModesText(std::uint32_t mask) {
    static const std::pair<std::uint32_t, const char*> modes[] = {
        {2, "UNKNOWN"},     {4, "INTERACTIVEVOICE"}, {8, "AUTOMATEDVOICE"},
        {16, "DATAMODEM"},  {32, "G3FAX"},           {64, "TDD"},
        {128, "G4FAX"},     {256, "DIGITALDATA"},    {512, "TELETEX"},
        {1024, "VIDEOTEX"}, {2048, "TELEX"},         {4096, "MIXED"},
        {8192, "ADSI"}};
    std::string text = "LineMediaModes - \r\n";
    for (const auto& [bit, name] : modes)
        if (mask & bit) text += std::string("\t") + name + "\r\n";
    return text;
}

std::string DigitModesText(std::uint32_t mask) {
    std::string text = "LineDigitMonitorModes - \r\n";
    if (mask == 0) return text + "\tNONE\r\n";
    if (mask & 1) text += "\tPULSE\r\n";
    if (mask & 2) text += "\tDTMF\r\n";
    if (mask & 4) text += "\tDTMFEND\r\n";
    return text;
}

std::string BlankNuls(std::string text) {
    for (auto& c : text)
        if (c == '\0') c = ' ';
    return text;
}

}  // namespace parlane
