#pragma once
// UCP operation frames: 01, 30 and 51.

#include <string>

#include "store/message_queue.h"
#include "store/provider.h"

namespace parlane {

// The low eight bits of the byte sum, two upper-case hexadecimal digits.
std::string UcpChecksum(const std::string& text);
// Two upper-case hexadecimal digits a character, in the GSM alphabet's codes.
std::string UcpTextToHex(const std::string& text);
// STX, the frame, its checksum and ETX, for the head message and its centre.
std::string BuildUcpFrame(const QueuedMessage& head, const Provider& centre,
                          const std::string& originatorId);

}  // namespace parlane
