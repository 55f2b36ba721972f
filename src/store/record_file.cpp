#include "store/record_file.h"

namespace parlane {
namespace {

std::uint32_t Le(std::string_view bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = width - 1; i >= 0; --i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

void PutLe(std::string& out, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) out += static_cast<char>((value >> (8 * i)) & 0xFF);
}

}  // namespace

bool RecordReader::fail() {
    damaged_ = true;
    pos_ = bytes_.size();
    return false;
}

bool RecordReader::readString(std::string& out) {
    if (bytes_.size() - pos_ < 2) return fail();
    const std::size_t length = Le(bytes_, pos_, 2);
    if (bytes_.size() - pos_ - 2 < length) return fail();
    out.assign(bytes_.substr(pos_ + 2, length));
    pos_ += 2 + length;
    return true;
}

bool RecordReader::readInt32(std::int32_t& out) {
    if (bytes_.size() - pos_ < 4) return fail();
    out = static_cast<std::int32_t>(Le(bytes_, pos_, 4));
    pos_ += 4;
    return true;
}

bool RecordReader::readByteArray(std::vector<std::uint8_t>& out) {
    if (bytes_.size() - pos_ < 2) return fail();
    const std::uint32_t dimensions = Le(bytes_, pos_, 2);
    if (dimensions == 0) {
        out.clear();
        pos_ += 2;
        return true;
    }
    if (dimensions != 1 || bytes_.size() - pos_ < 10) return fail();
    const std::size_t count = Le(bytes_, pos_ + 2, 4);
    if (bytes_.size() - pos_ - 10 < count) return fail();
    out.assign(bytes_.begin() + static_cast<std::ptrdiff_t>(pos_ + 10),
               bytes_.begin() + static_cast<std::ptrdiff_t>(pos_ + 10 + count));
    pos_ += 10 + count;
    return true;
}

bool RecordWriter::writeString(std::string_view text) {
    if (text.size() > kMaxRecordString) return false;
    PutLe(bytes_, static_cast<std::uint32_t>(text.size()), 2);
    bytes_.append(text);
    return true;
}

void RecordWriter::writeInt32(std::int32_t value) {
    PutLe(bytes_, static_cast<std::uint32_t>(value), 4);
}

bool RecordWriter::writeByteArray(const std::vector<std::uint8_t>& bytes) {
    if (bytes.size() > 0xFFFFFFFFu) return false;
    if (bytes.empty()) {
        PutLe(bytes_, 0, 2);
        return true;
    }
    PutLe(bytes_, 1, 2);
    PutLe(bytes_, static_cast<std::uint32_t>(bytes.size()), 4);
    PutLe(bytes_, 0, 4);
    bytes_.append(bytes.begin(), bytes.end());
    return true;
}

}  // namespace parlane
