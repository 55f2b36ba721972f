#include "store/queue_journal.h"

namespace parlane {
namespace {

// An earlier journal opens with the empty placeholder message; this one with its own mark.
constexpr std::string_view kMark = "Parlane queue journal 2";

bool ReadCount(RecordReader& reader, std::size_t& count) {
    std::int32_t value = 0;
    if (!reader.readInt32(value) || value < 0) return false;
    count = static_cast<std::size_t>(value);
    return true;
}

bool ReadFinished(RecordReader& reader, FinishedMessage& out) {
    std::vector<std::uint8_t> content;
    if (!ReadQueuedMessage(reader, out.message) || !reader.readString(out.fileName) ||
        !reader.readByteArray(content))
        return false;
    out.content.assign(content.begin(), content.end());
    return true;
}

}  // namespace

std::string SerializeQueueJournal(const QueueJournal& journal, std::string& error) {
    RecordWriter writer;
    error.clear();
    writer.writeString(kMark);
    writer.writeInt32(UpperBound(journal.pending));
    for (std::size_t i = 1; i < journal.pending.size(); ++i) {
        if (!WriteQueuedMessage(writer, journal.pending[i])) {
            error = "message " + std::to_string(i) + " is longer than 65535 bytes";
            return {};
        }
    }
    writer.writeInt32(static_cast<std::int32_t>(journal.finished.size()));
    for (const auto& f : journal.finished) {
        // A finished message was stored once already, so it fits.
        WriteQueuedMessage(writer, f.message);
        writer.writeString(f.fileName);
        writer.writeByteArray(std::vector<std::uint8_t>(f.content.begin(), f.content.end()));
    }
    return writer.take();
}

QueueJournal ParseQueueJournal(std::string_view bytes) {
    QueueJournal journal;
    RecordReader reader(bytes);
    std::string mark;
    if (!reader.readString(mark) || mark != kMark) {
        auto table = ParseQueueFile(bytes);
        journal.pending = std::move(table.records);
        journal.pending[0] = QueuedMessage{};
        journal.legacy = true;
        journal.damaged = table.damaged;
        return journal;
    }
    std::size_t count = 0;
    bool ok = ReadCount(reader, count);
    for (std::size_t i = 0; ok && i < count; ++i) {
        QueuedMessage m;
        ok = ReadQueuedMessage(reader, m);
        if (ok) journal.pending.push_back(std::move(m));
    }
    ok = ok && ReadCount(reader, count);
    for (std::size_t i = 0; ok && i < count; ++i) {
        FinishedMessage f;
        ok = ReadFinished(reader, f);
        if (ok) journal.finished.push_back(std::move(f));
    }
    journal.damaged = !ok || !reader.atEnd();
    return journal;
}

}  // namespace parlane
