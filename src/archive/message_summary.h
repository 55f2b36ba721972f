#pragma once
// The four values of a message file that the folder list shows, found by scanning for labels.

#include <string>

#include "core/regional_formats.h"

namespace parlane {

struct MessageSummary {
    std::string dateColumn;  // short date, blank, time; the date as written when unreadable
    std::string recipient;
    std::string status;
    std::string sortKey;  // first 13 characters of the file name
};

// `text` is the whole content of the file, read in one piece; any bytes at all are accepted.
// A field of a file that is not in the archive format holds whatever the scan leaves.
MessageSummary ReadMessageSummary(const std::string& text, const std::string& fileName,
                                  const RegionalFormats& formats);

}  // namespace parlane
