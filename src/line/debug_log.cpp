#include "line/debug_log.h"

#include <cstdio>

namespace parlane {

void DebugLog::AppendLog(const std::string& message) {
    ++lineNumber_;
    char number[32];
    std::snprintf(number, sizeof number, "%03lld", static_cast<long long>(lineNumber_));
    text_ = std::string(number) + ": " + message + "\r\n" + text_;
    constexpr std::size_t kLimit = 5000;
    if (text_.size() > kLimit) {
        // Cut at a line end so that no half line stays at the bottom.
        const auto cut = text_.rfind("\r\n", kLimit);
        text_.resize(cut == std::string::npos ? kLimit : cut + 2);
    }
}

}  // namespace parlane
