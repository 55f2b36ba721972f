#include "store/message_queue.h"

#include "store/quicksort.h"

namespace parlane {

bool ReadQueuedMessage(RecordReader& r, QueuedMessage& m) {
    QueuedMessage v;
    const bool ok = r.readString(v.CountryCode) && r.readString(v.AreaCode) &&
                    r.readString(v.Number) && r.readString(v.Text) &&
                    r.readInt32(v.MessageNumber) && r.readInt32(v.ProviderIndex) &&
                    r.readString(v.ProviderName);
    if (ok) m = std::move(v);
    return ok;
}

bool WriteQueuedMessage(RecordWriter& w, const QueuedMessage& m) {
    if (!(w.writeString(m.CountryCode) && w.writeString(m.AreaCode) && w.writeString(m.Number) &&
          w.writeString(m.Text)))
        return false;
    w.writeInt32(m.MessageNumber);
    w.writeInt32(m.ProviderIndex);
    return w.writeString(m.ProviderName);
}

RecordTable<QueuedMessage> ParseQueueFile(std::string_view bytes) {
    auto table = ReadRecordTable<QueuedMessage>(bytes, ReadQueuedMessage);
    // A file damaged inside its first record still yields an empty queue with its placeholder.
    if (table.records.empty()) table.records.emplace_back();
    return table;
}

std::string SerializeQueueFile(const MessageTable& table, std::string& error) {
    RecordWriter writer;
    error.clear();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (!WriteQueuedMessage(writer, table[i])) {
            error = "message " + std::to_string(i) + " is longer than 65535 bytes";
            return {};
        }
    }
    return writer.take();
}

void RemoveQueuedMessage(MessageTable& table, int index) {
    if (index < 0 || index >= static_cast<int>(table.size())) return;
    table.erase(table.begin() + index);
}

void RemoveSentMessage(MessageTable& sendBuffer) {
    if (sendBuffer.size() < 2) return;
    // Element 0 keeps the message finished last.
    sendBuffer.erase(sendBuffer.begin());
}

int CompareByProviderIndex(const QueuedMessage& a, const QueuedMessage& b) {
    return a.ProviderIndex < b.ProviderIndex ? -1 : (a.ProviderIndex == b.ProviderIndex ? 0 : 1);
}

void SortSendBuffer(MessageTable& table, int& lo, int& hi) {
    QuickSortByRule(table, lo, hi, CompareByProviderIndex);
}

int FindCenterByPrefix(const std::vector<Provider>& providers, std::string_view name) {
    for (std::size_t i = 0; i < providers.size(); ++i) {
        const auto& centre = providers[i].ProviderName;
        // An empty name is a prefix of every name: it would take every centre's messages.
        if (centre.empty()) continue;
        if (name.substr(0, centre.size()) == centre) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace parlane
