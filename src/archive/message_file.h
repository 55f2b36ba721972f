#pragma once
// The archive copy of a finished message: its text and its file name.

#include <string>

#include "core/event_loop.h"
#include "core/regional_formats.h"
#include "store/message_queue.h"

namespace parlane {

struct MessageFileFields {
    std::string dateText;
    std::string timeText;
    std::string status;
    std::string recipient;
    std::string centreName;
    std::string messageLabel;  // "Message:" of the bank in use
    std::string text;
};

// The whole content, CR LF line ends, ready to be written in one piece.
std::string BuildMessageFile(const MessageFileFields& fields);

// "+", country code, area code less one leading "0", number.
std::string RecipientNumberText(const QueuedMessage& message);

// "yymmdd hhmmss" of a local time; the first 13 characters of every archive file name.
std::string ArchiveTimeStamp(WallClockMs when);

}  // namespace parlane
