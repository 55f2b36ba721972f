#pragma once
// One service centre, the table Providers and its file smsc.dat.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/record_file.h"

namespace parlane {

enum Protocol : std::int32_t {
    ProtocolTap = 0,
    ProtocolUcp = 1,
    ProtocolVoda = 2,
    ProtocolOrange = 3,
    ProtocolTim = 4,
    ProtocolLibertel = 5,
};

struct Provider {
    std::string ProviderName;
    std::string Password;
    std::string TapiDevice;
    std::string CountryCode;
    std::string AreaCode;
    std::string Number;
    std::string MaxChars;
    std::int32_t Protocol = 0;
    std::int32_t MultiMessage = 0;
    std::string AllowASCII;
    std::vector<std::uint8_t> DevConfig;
    std::string MaxMessages;
    std::string UCPOperation;

    bool operator==(const Provider&) const = default;
};

bool ReadProvider(RecordReader& reader, Provider& out);
// False when a field is too long to be stored.
bool WriteProvider(RecordWriter& writer, const Provider& provider);

// smsc.dat: the first read happens whatever the file's length, so an empty file gives one empty
// record. `damaged` tells that the bytes ended inside a record.
RecordTable<Provider> ParseProviderFile(std::string_view bytes);
// The file's bytes; an empty string in `error` on success.
std::string SerializeProviderFile(const std::vector<Provider>& providers, std::string& error);

// Case-insensitive order of names: -1, 0 or 1.
int CompareProviders(const Provider& a, const Provider& b);
// The table sort after an edit: the queue's quicksort over the whole table.
void SortProviders(std::vector<Provider>& providers);

// Stores the device row in every centre (the caller writes the file).
void DefModem(std::vector<Provider>& providers, int index);

// A centre that can be dialled: it has a name and a number. The empty record of a missing
// smsc.dat is not one.
bool IsUsableCentre(const Provider& centre);

// The name fixed for the edition when SMSC\Default was never set.
std::string DefaultCentreName(bool editionItaly, bool editionAustralia);

}  // namespace parlane
