#pragma once
// One record as a JSON object: its fields in file order, each bound to a member of the record.

#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace parlane::data {

// Ordered, so that a shown record lists its fields in file order.
using Json = nlohmann::ordered_json;
using Bytes = std::vector<std::uint8_t>;

// Stored text is cp1252; JSON carries it as Unicode. Byte blocks are lowercase hex.
Json FieldToJson(const std::string& text);
Json FieldToJson(std::int32_t number);
Json FieldToJson(const Bytes& bytes);

// Each returns what is wrong with `value`, or an empty string once `out` holds it.
std::string FieldFromJson(const Json& value, std::string& out);
std::string FieldFromJson(const Json& value, std::int32_t& out);
std::string FieldFromJson(const Json& value, Bytes& out);

template <typename Record>
struct Field {
    std::string_view name;
    std::variant<std::string Record::*, std::int32_t Record::*, Bytes Record::*> member;
};

template <typename Record>
Json RecordToJson(const Record& record, std::span<const Field<Record>> fields) {
    Json object = Json::object();
    for (const auto& field : fields)
        std::visit([&](auto member) { object[field.name] = FieldToJson(record.*member); },
                   field.member);
    return object;
}

// Fields the object leaves out keep the value `out` already has.
template <typename Record>
std::string RecordFromJson(const Json& object, std::span<const Field<Record>> fields, Record& out) {
    if (!object.is_object()) return "a record must be a JSON object";
    for (const auto& [key, value] : object.items()) {
        const Field<Record>* field = nullptr;
        for (const auto& f : fields)
            if (f.name == key) field = &f;
        if (field == nullptr) return "unknown field \"" + key + "\"";
        std::string error;
        std::visit([&](auto member) { error = FieldFromJson(value, out.*member); }, field->member);
        if (!error.empty()) return "field \"" + key + "\": " + error;
    }
    return {};
}

}  // namespace parlane::data
