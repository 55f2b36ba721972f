#include "parlane-data/table_json.h"

#include <array>

#include "parlane-data/field_json.h"
#include "store/directory.h"
#include "store/message_queue.h"
#include "store/provider.h"

namespace parlane::data {
namespace {

// group.dat and the member files hold one string a record.
struct GroupEntry {
    std::string Name;
    bool operator==(const GroupEntry&) const = default;
};
bool ReadGroupEntry(RecordReader& reader, GroupEntry& out) {
    return reader.readString(out.Name);
}
bool WriteGroupEntry(RecordWriter& writer, const GroupEntry& entry) {
    return writer.writeString(entry.Name);
}

template <typename Record>
struct RecordCodec {
    std::span<const Field<Record>> fields;
    bool (*read)(RecordReader&, Record&);
    bool (*write)(RecordWriter&, const Record&);
    // The file's first record is an empty placeholder the program skips (queue.dat).
    bool placeholderFirst = false;
};

constexpr std::array<Field<Provider>, 13> kProviderFields = {{
    {"ProviderName", &Provider::ProviderName},
    {"Password", &Provider::Password},
    {"TapiDevice", &Provider::TapiDevice},
    {"CountryCode", &Provider::CountryCode},
    {"AreaCode", &Provider::AreaCode},
    {"Number", &Provider::Number},
    {"MaxChars", &Provider::MaxChars},
    {"Protocol", &Provider::Protocol},
    {"MultiMessage", &Provider::MultiMessage},
    {"AllowASCII", &Provider::AllowASCII},
    {"DevConfig", &Provider::DevConfig},
    {"MaxMessages", &Provider::MaxMessages},
    {"UCPOperation", &Provider::UCPOperation},
}};

constexpr std::array<Field<QueuedMessage>, 7> kQueueFields = {{
    {"CountryCode", &QueuedMessage::CountryCode},
    {"AreaCode", &QueuedMessage::AreaCode},
    {"Number", &QueuedMessage::Number},
    {"Text", &QueuedMessage::Text},
    {"MessageNumber", &QueuedMessage::MessageNumber},
    {"ProviderIndex", &QueuedMessage::ProviderIndex},
    {"ProviderName", &QueuedMessage::ProviderName},
}};

constexpr std::array<Field<DirectoryEntry>, 5> kDirectoryFields = {{
    {"Name", &DirectoryEntry::Name},
    {"CountryCode", &DirectoryEntry::CountryCode},
    {"AreaCode", &DirectoryEntry::AreaCode},
    {"Number", &DirectoryEntry::Number},
    {"ProviderName", &DirectoryEntry::ProviderName},
}};

constexpr std::array<Field<GroupEntry>, 1> kGroupNameFields = {{{"GroupName", &GroupEntry::Name}}};
constexpr std::array<Field<GroupEntry>, 1> kGroupMemberFields = {
    {{"GroupMember", &GroupEntry::Name}}};

// A reader of our own rather than ReadRecordTable: the damage message needs the byte offset.
template <typename Record>
ShownTable Show(std::string_view bytes, const RecordCodec<Record>& codec) {
    ShownTable shown;
    RecordReader reader(bytes);
    while (!reader.atEnd()) {
        const std::size_t start = reader.position();
        Record record{};
        if (!codec.read(reader, record)) {
            shown.damaged = true;
            shown.damageOffset = start;
            break;
        }
        if (codec.placeholderFirst && shown.lines.empty() && !(record == Record{}))
            shown.messageFirst = true;
        shown.lines.push_back(RecordToJson(record, codec.fields).dump());
        RecordWriter again;
        if (!codec.write(again, record) ||
            again.bytes() != bytes.substr(start, reader.position() - start))
            shown.inexact.push_back(shown.lines.size());
    }
    return shown;
}

// The library's messages begin with an id such as "[json.exception.parse_error.101] ".
std::string WithoutExceptionId(std::string_view message) {
    const auto end = message.find("] ");
    return std::string(end == std::string_view::npos ? message : message.substr(end + 2));
}

BuiltTable Failure(int lineNumber, const std::string& problem) {
    return {{}, "line " + std::to_string(lineNumber) + ": " + problem, {}};
}

template <typename Record>
BuiltTable Build(std::istream& in, const RecordCodec<Record>& codec) {
    RecordWriter writer;
    std::string line, note;
    int lineNumber = 0;
    while (std::getline(in, line)) {
        ++lineNumber;
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        Json value;
        try {
            value = Json::parse(line);
        } catch (const Json::exception& e) {
            return Failure(lineNumber, "not valid JSON: " + WithoutExceptionId(e.what()));
        }
        Record record{};
        if (auto problem = RecordFromJson(value, codec.fields, record); !problem.empty())
            return Failure(lineNumber, problem);
        // A first record that is a message would be skipped as the placeholder: one goes in
        // front of it instead.
        if (codec.placeholderFirst && writer.bytes().empty() && !(record == Record{})) {
            codec.write(writer, Record{});
            note = "line " + std::to_string(lineNumber) +
                   " is a message, not the empty first record the program skips: an empty "
                   "record was put in front of it";
        }
        if (!codec.write(writer, record))
            return Failure(lineNumber, "a field is longer than 65535 bytes");
    }
    if (in.bad()) return {{}, "the input could not be read", {}};
    return {writer.take(), {}, note};
}

template <typename Visitor>
auto WithCodec(TableKind kind, Visitor&& visit) {
    switch (kind) {
        case TableKind::Provider:
            return visit(RecordCodec<Provider>{kProviderFields, ReadProvider, WriteProvider});
        case TableKind::Queue:
            return visit(RecordCodec<QueuedMessage>{kQueueFields, ReadQueuedMessage,
                                                    WriteQueuedMessage, true});
        case TableKind::Directory:
            return visit(RecordCodec<DirectoryEntry>{kDirectoryFields, ReadDirectoryEntry,
                                                     WriteDirectoryEntry});
        case TableKind::GroupNames:
            return visit(
                RecordCodec<GroupEntry>{kGroupNameFields, ReadGroupEntry, WriteGroupEntry});
        case TableKind::GroupMembers:
            break;
    }
    return visit(RecordCodec<GroupEntry>{kGroupMemberFields, ReadGroupEntry, WriteGroupEntry});
}

}  // namespace

ShownTable ShowTable(TableKind kind, std::string_view bytes) {
    return WithCodec(kind, [&](const auto& codec) { return Show(bytes, codec); });
}

BuiltTable BuildTable(TableKind kind, std::istream& lines) {
    return WithCodec(kind, [&](const auto& codec) { return Build(lines, codec); });
}

}  // namespace parlane::data
