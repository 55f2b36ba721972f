#include "parlane-data/phone_book_records.h"

#include <utility>

namespace parlane::data {

bool ReadDirectoryEntry(RecordReader& r, DirectoryEntry& out) {
    DirectoryEntry e;
    const bool ok = r.readString(e.Name) && r.readString(e.CountryCode) &&
                    r.readString(e.AreaCode) && r.readString(e.Number) &&
                    r.readString(e.ProviderName);
    if (ok) out = std::move(e);
    return ok;
}

bool WriteDirectoryEntry(RecordWriter& w, const DirectoryEntry& e) {
    return w.writeString(e.Name) && w.writeString(e.CountryCode) && w.writeString(e.AreaCode) &&
           w.writeString(e.Number) && w.writeString(e.ProviderName);
}

bool ReadGroupEntry(RecordReader& r, GroupEntry& out) {
    GroupEntry e;
    if (!r.readString(e.Name)) return false;
    out = std::move(e);
    return true;
}

bool WriteGroupEntry(RecordWriter& w, const GroupEntry& e) {
    return w.writeString(e.Name);
}

}  // namespace parlane::data
