#pragma once
// Waiting messages: the record QueuedMessage, the tables QueueBuffer and SendBuffer (element 0
// is never a message; the upper bound is the count) and the file queue.dat.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/provider.h"
#include "store/record_file.h"

namespace parlane {

struct QueuedMessage {
    std::string CountryCode;
    std::string AreaCode;
    std::string Number;
    std::string Text;
    std::int32_t MessageNumber = 0;
    std::int32_t ProviderIndex = 0;
    std::string ProviderName;

    bool operator==(const QueuedMessage&) const = default;
};

// A table with element 0 in place; count() is the upper bound.
using MessageTable = std::vector<QueuedMessage>;
inline MessageTable EmptyMessageTable() {
    return MessageTable(1);
}
inline int UpperBound(const MessageTable& table) {
    return static_cast<int>(table.size()) - 1;
}

bool ReadQueuedMessage(RecordReader& reader, QueuedMessage& out);
bool WriteQueuedMessage(RecordWriter& writer, const QueuedMessage& message);

// queue.dat: element 0 first, then the messages. An empty file gives an empty table.
RecordTable<QueuedMessage> ParseQueueFile(std::string_view bytes);
// The bytes of elements 0..n; `error` names a record that cannot be stored.
std::string SerializeQueueFile(const MessageTable& table, std::string& error);

// Drops element `index`; the elements above move down.
void RemoveQueuedMessage(MessageTable& table, int index);
// Moves every element one place down, over element 0, and shrinks the table by one.
void RemoveSentMessage(MessageTable& sendBuffer);

int CompareByProviderIndex(const QueuedMessage& a, const QueuedMessage& b);
// Sorts by ProviderIndex; lo and hi both 0 mean the whole table.
void SortSendBuffer(MessageTable& table, int& lo, int& hi);

// The index of the first centre whose name is a prefix of `name` (exact as to case); -1 when
// none is. A centre with an empty name matches nothing.
int FindCenterByPrefix(const std::vector<Provider>& providers, std::string_view name);

}  // namespace parlane
