#include "archive/message_file.h"

#include <cstdio>

namespace parlane {

std::string BuildMessageFile(const MessageFileFields& f) {
    const std::string crlf = "\r\n";
    return "Date: \t" + f.dateText + crlf + "Time: \t" + f.timeText + crlf + "Status: \t" +
           f.status + crlf + "Sent To: \t" + f.recipient + crlf + "Using: \t" + f.centreName +
           " SMSC" + crlf + crlf + f.messageLabel + " " + crlf + crlf + f.text + crlf;
}

std::string RecipientNumberText(const QueuedMessage& m) {
    const std::string area =
        !m.AreaCode.empty() && m.AreaCode[0] == '0' ? m.AreaCode.substr(1) : m.AreaCode;
    return "+" + m.CountryCode + area + m.Number;
}

std::string ArchiveTimeStamp(WallClockMs when) {
    const auto t = ToCivil(when);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d%02d%02d %02d%02d%02d", t.year % 100, t.month, t.day,
                  t.hour, t.minute, t.second);
    return buf;
}

}  // namespace parlane
