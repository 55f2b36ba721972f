#pragma once
// queue.journal: what the program holds while it runs, so that a kill at any instant loses no
// message and sends none twice. It lists every pending message, and the messages that have just
// finished with the archive file each is to leave, written before that file is.

#include <string>
#include <string_view>
#include <vector>

#include "store/message_queue.h"

namespace parlane {

struct FinishedMessage {
    QueuedMessage message;
    std::string fileName;  // in SMS/Outbox
    std::string content;   // the whole archive file

    bool operator==(const FinishedMessage&) const = default;
};

struct QueueJournal {
    MessageTable pending = EmptyMessageTable();
    std::vector<FinishedMessage> finished;
    // Written by an earlier version: pending messages only, merged with queue.dat at start.
    bool legacy = false;
    bool damaged = false;
};

// Empty on success; `error` names a message that cannot be stored.
std::string SerializeQueueJournal(const QueueJournal& journal, std::string& error);
// Reads what it can: a damaged journal keeps the messages before the damage.
QueueJournal ParseQueueJournal(std::string_view bytes);

}  // namespace parlane
