#include "store/provider.h"

#include <algorithm>

#include "core/cp1252.h"
#include "store/quicksort.h"

namespace parlane {

bool ReadProvider(RecordReader& r, Provider& p) {
    Provider v;
    const bool ok =
        r.readString(v.ProviderName) && r.readString(v.Password) && r.readString(v.TapiDevice) &&
        r.readString(v.CountryCode) && r.readString(v.AreaCode) && r.readString(v.Number) &&
        r.readString(v.MaxChars) && r.readInt32(v.Protocol) && r.readInt32(v.MultiMessage) &&
        r.readString(v.AllowASCII) && r.readByteArray(v.DevConfig) && r.readString(v.MaxMessages) &&
        r.readString(v.UCPOperation);
    if (ok) p = std::move(v);
    return ok;
}

bool WriteProvider(RecordWriter& w, const Provider& p) {
    bool ok = w.writeString(p.ProviderName) && w.writeString(p.Password) &&
              w.writeString(p.TapiDevice) && w.writeString(p.CountryCode) &&
              w.writeString(p.AreaCode) && w.writeString(p.Number) && w.writeString(p.MaxChars);
    if (!ok) return false;
    w.writeInt32(p.Protocol);
    w.writeInt32(p.MultiMessage);
    return w.writeString(p.AllowASCII) && w.writeByteArray(p.DevConfig) &&
           w.writeString(p.MaxMessages) && w.writeString(p.UCPOperation);
}

RecordTable<Provider> ParseProviderFile(std::string_view bytes) {
    auto table = ReadRecordTable<Provider>(bytes, ReadProvider);
    if (table.records.empty()) table.records.emplace_back();
    return table;
}

std::string SerializeProviderFile(const std::vector<Provider>& providers, std::string& error) {
    RecordWriter writer;
    error.clear();
    for (const auto& p : providers) {
        if (!WriteProvider(writer, p)) {
            error = "the centre \"" + p.ProviderName + "\" has a field longer than 65535 bytes";
            return {};
        }
    }
    return writer.take();
}

int CompareProviders(const Provider& a, const Provider& b) {
    const std::string x = Cp1252LowerCase(a.ProviderName), y = Cp1252LowerCase(b.ProviderName);
    return x < y ? -1 : (x == y ? 0 : 1);
}

void SortProviders(std::vector<Provider>& providers) {
    int lo = 0, hi = 0;
    QuickSortByRule(providers, lo, hi, CompareProviders);
}

void DefModem(std::vector<Provider>& providers, int index) {
    for (auto& p : providers) p.TapiDevice = std::to_string(index);
}

bool IsUsableCentre(const Provider& centre) {
    return !centre.ProviderName.empty() && !centre.Number.empty();
}

std::string DefaultCentreName(bool editionItaly, bool editionAustralia) {
    if (editionAustralia) return "Telstra Australia";
    if (editionItaly) return "TIM Italy";
    return "BT Cellnet UK";
}

}  // namespace parlane
