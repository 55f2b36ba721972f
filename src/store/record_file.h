#pragma once
// The record encoding of every .dat table: strings as a 2-byte little-endian byte count and the
// bytes, numbers as 4 bytes little-endian, byte arrays as a dimension count (0 or 1) and, for 1,
// an element count, a lower bound and the bytes. No header, no count, no padding.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace parlane {

inline constexpr std::size_t kMaxRecordString = 65535;

class RecordReader {
  public:
    explicit RecordReader(std::string_view bytes) : bytes_(bytes) {}

    // Each read fails (returns false and marks the reader damaged) when the bytes run out or a
    // length is impossible; the output is then left as it was.
    bool readString(std::string& out);
    bool readInt32(std::int32_t& out);
    bool readByteArray(std::vector<std::uint8_t>& out);

    bool atEnd() const { return pos_ >= bytes_.size(); }
    std::size_t position() const { return pos_; }
    bool damaged() const { return damaged_; }
    std::size_t size() const { return bytes_.size(); }

  private:
    bool fail();
    std::string_view bytes_;
    std::size_t pos_ = 0;
    bool damaged_ = false;
};

class RecordWriter {
  public:
    // False when the text is longer than a record string can hold; nothing is written then.
    bool writeString(std::string_view text);
    void writeInt32(std::int32_t value);
    bool writeByteArray(const std::vector<std::uint8_t>& bytes);
    const std::string& bytes() const { return bytes_; }
    std::string take() { return std::move(bytes_); }

  private:
    std::string bytes_;
};

// Reads records one after the other until the read position reaches the end. A record that
// cannot be read whole ends the reading and sets `damaged`; the records before it are kept.
template <typename Record>
struct RecordTable {
    std::vector<Record> records;
    bool damaged = false;
};

template <typename Record>
RecordTable<Record> ReadRecordTable(std::string_view bytes,
                                    const std::function<bool(RecordReader&, Record&)>& readOne) {
    RecordTable<Record> table;
    RecordReader reader(bytes);
    while (!reader.atEnd()) {
        Record record{};
        if (!readOne(reader, record)) {
            table.damaged = true;
            break;
        }
        table.records.push_back(std::move(record));
    }
    return table;
}

}  // namespace parlane
