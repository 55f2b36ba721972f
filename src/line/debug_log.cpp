#include "line/debug_log.h"

#include <cstdio>

namespace parlane {

void DebugLog::AppendLog(const std::string& message) {
    // Past 5000 characters the older middle goes: positions 2499 to 4998.
    if (text_.size() > 5000) text_.erase(2499, 2500);
    ++lineNumber_;
    char number[32];
    std::snprintf(number, sizeof number, "%03lld", static_cast<long long>(lineNumber_));
    text_ = std::string(number) + ": " + message + "\r\n" + text_;
    if (changed) changed();
}

}  // namespace parlane
