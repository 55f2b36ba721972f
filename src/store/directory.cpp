#include "store/directory.h"

#include <array>

#include "core/cp1252.h"
#include "core/string_ids.h"

namespace parlane {
namespace {

constexpr CountryDialling kCountries[] = {
    {"United States of America", "1"},
    {"Anguilla", "1"},
    {"Antigua", "1"},
    {"Bahamas", "1"},
    {"Barbados", "1"},
    {"Bermuda", "1"},
    {"British Virgin Islands", "1"},
    {"Canada", "1"},
    {"Cayman Islands", "1"},
    {"Dominica", "1"},
    {"Dominican Republic", "1"},
    {"Grenada", "1"},
    {"Jamaica", "1"},
    {"Montserrat", "1"},
    {"Nevis", "1"},
    {"St. Kitts", "1"},
    {"St. Vincent and the Grenadines", "1"},
    {"Trinidad and Tobago", "1"},
    {"Turks and Caicos Islands", "1"},
    {"Barbuda", "1"},
    {"Puerto Rico", "1"},
    {"Saint Lucia", "1"},
    {"United States Virgin Islands", "1"},
    {"Guam", "1"},
    {"Egypt", "20"},
    {"Morocco", "212"},
    {"Algeria", "213"},
    {"Tunisia", "216"},
    {"Libya", "218"},
    {"Gambia", "220"},
    {"Senegal Republic", "221"},
    {"Mauritania", "222"},
    {"Mali", "223"},
    {"Guinea", "224"},
    {"Ivory Coast", "225"},
    {"Burkina Faso", "226"},
    {"Niger", "227"},
    {"Togo", "228"},
    {"Benin", "229"},
    {"Mauritius", "230"},
    {"Liberia", "231"},
    {"Sierra Leone", "232"},
    {"Ghana", "233"},
    {"Nigeria", "234"},
    {"Chad", "235"},
    {"Central African Republic", "236"},
    {"Cameroon", "237"},
    {"Cape Verde Islands", "238"},
    {"Sao Tome and Principe", "239"},
    {"Equatorial Guinea", "240"},
    {"Gabon", "241"},
    {"Congo", "242"},
    {"Congo, Democratic Republic of the", "243"},
    {"Angola", "244"},
    {"Guinea-Bissau", "245"},
    {"Diego Garcia", "246"},
    {"Ascension Island", "247"},
    {"Seychelle Islands", "248"},
    {"Sudan", "249"},
    {"Rwanda", "250"},
    {"Ethiopia", "251"},
    {"Somalia", "252"},
    {"Djibouti", "253"},
    {"Kenya", "254"},
    {"Tanzania", "255"},
    {"Uganda", "256"},
    {"Burundi", "257"},
    {"Mozambique", "258"},
    {"Zambia", "260"},
    {"Madagascar", "261"},
    {"Reunion Island", "262"},
    {"Zimbabwe", "263"},
    {"Namibia", "264"},
    {"Malawi", "265"},
    {"Lesotho", "266"},
    {"Botswana", "267"},
    {"Swaziland", "268"},
    {"Mayotte Island", "269"},
    {"Comoros", "269"},
    {"South Africa", "27"},
    {"St. Helena", "290"},
    {"Eritrea", "291"},
    {"Aruba", "297"},
    {"Faroe Islands", "298"},
    {"Greenland", "299"},
    {"Greece", "30"},
    {"Netherlands", "31"},
    {"Belgium", "32"},
    {"France", "33"},
    {"Spain", "34"},
    {"Gibraltar", "350"},
    {"Portugal", "351"},
    {"Luxembourg", "352"},
    {"Ireland", "353"},
    {"Iceland", "354"},
    {"Albania", "355"},
    {"Malta", "356"},
    {"Cyprus", "357"},
    {"Finland", "358"},
    {"Bulgaria", "359"},
    {"Hungary", "36"},
    {"Lithuania", "370"},
    {"Latvia", "371"},
    {"Estonia", "372"},
    {"Moldova", "373"},
    {"Armenia", "374"},
    {"Belarus", "375"},
    {"Andorra", "376"},
    {"Monaco", "377"},
    {"San Marino", "378"},
    {"Vatican City", "39"},
    {"Italy", "39"},
    {"Ukraine", "380"},
    {"Yugoslavia", "381"},
    {"Croatia", "385"},
    {"Slovenia", "386"},
    {"Bosnia and Herzegovina", "387"},
    {"F.Y.R.O.M. (Former Yugoslav Republic of Macedonia)", "389"},
    {"Romania", "40"},
    {"Switzerland", "41"},
    {"Liechtenstein", "41"},
    {"Czech Republic", "420"},
    {"Slovak Republic", "421"},
    {"Austria", "43"},
    {"United Kingdom", "44"},
    {"Denmark", "45"},
    {"Sweden", "46"},
    {"Norway", "47"},
    {"Poland", "48"},
    {"Germany", "49"},
    {"Falkland Islands", "500"},
    {"Belize", "501"},
    {"Guatemala", "502"},
    {"El Salvador", "503"},
    {"Honduras", "504"},
    {"Nicaragua", "505"},
    {"Costa Rica", "506"},
    {"Panama", "507"},
    {"St. Pierre and Miquelon", "508"},
    {"Haiti", "509"},
    {"Peru", "51"},
    {"Mexico", "52"},
    {"Cuba", "53"},
    {"Guantanamo Bay", "53"},
    {"Argentina", "54"},
    {"Brazil", "55"},
    {"Chile", "56"},
    {"Colombia", "57"},
    {"Venezuela", "58"},
    {"Guadeloupe", "590"},
    {"French Antilles", "590"},
    {"Bolivia", "591"},
    {"Guyana", "592"},
    {"Ecuador", "593"},
    {"French Guiana", "594"},
    {"Paraguay", "595"},
    {"Martinique", "596"},
    {"Suriname", "597"},
    {"Uruguay", "598"},
    {"Netherlands Antilles", "599"},
    {"Malaysia", "60"},
    {"Australia", "61"},
    {"Cocos-Keeling Islands", "61"},
    {"Indonesia", "62"},
    {"Philippines", "63"},
    {"New Zealand", "64"},
    {"Singapore", "65"},
    {"Thailand", "66"},
    {"Saipan Island", "670"},
    {"Rota Island", "670"},
    {"Tinian Island", "670"},
    {"Christmas Island", "672"},
    {"Australian Antarctic Territory", "672"},
    {"Norfolk Island", "672"},
    {"Brunei", "673"},
    {"Nauru", "674"},
    {"Papua New Guinea", "675"},
    {"Tonga", "676"},
    {"Solomon Islands", "677"},
    {"Vanuatu", "678"},
    {"Fiji Islands", "679"},
    {"Palau", "680"},
    {"Wallis and Futuna Islands", "681"},
    {"Cook Islands", "682"},
    {"Niue", "683"},
    {"American Samoa", "684"},
    {"Western Samoa", "685"},
    {"Kiribati Republic", "686"},
    {"New Caledonia", "687"},
    {"Tuvalu", "688"},
    {"French Polynesia", "689"},
    {"Tokelau", "690"},
    {"Micronesia, Federated States of", "691"},
    {"Marshall Islands", "692"},
    {"Russia", "7"},
    {"Kazakhstan", "7"},
    {"Kyrgyz Republic", "7"},
    {"Tajikistan", "7"},
    {"Uzbekistan", "7"},
    {"International Freephone Service", "800"},
    {"Japan", "81"},
    {"Korea (Republic of)", "82"},
    {"Vietnam", "84"},
    {"Korea (North)", "850"},
    {"Hong Kong SAR, PRC", "852"},
    {"Macau", "853"},
    {"Cambodia", "855"},
    {"Lao P.D.R. (Lao People's Democratic Republic)", "856"},
    {"China", "86"},
    {"INMARSAT", "870"},
    {"INMARSAT (Atlantic-East)", "871"},
    {"INMARSAT (Pacific)", "872"},
    {"INMARSAT (Indian)", "873"},
    {"INMARSAT (Atlantic-West)", "874"},
    {"Bangladesh", "880"},
    {"Taiwan", "886"},
    {"Turkey", "90"},
    {"India", "91"},
    {"Pakistan", "92"},
    {"Afghanistan", "93"},
    {"Sri Lanka", "94"},
    {"Myanmar", "95"},
    {"Maldives", "960"},
    {"Lebanon", "961"},
    {"Jordan", "962"},
    {"Syria", "963"},
    {"Iraq", "964"},
    {"Kuwait", "965"},
    {"Saudi Arabia", "966"},
    {"Yemen", "967"},
    {"Oman", "968"},
    {"United Arab Emirates", "971"},
    {"Israel", "972"},
    {"Bahrain", "973"},
    {"Qatar", "974"},
    {"Bhutan", "975"},
    {"Mongolia", "976"},
    {"Nepal", "977"},
    {"Iran", "98"},
    {"Turkmenistan", "993"},
    {"Azerbaijan", "994"},
    {"Georgia", "995"},
};

bool ReadOneString(RecordReader& reader, std::string& out) {
    return reader.readString(out);
}

}  // namespace

bool ReadDirectoryEntry(RecordReader& r, DirectoryEntry& e) {
    DirectoryEntry v;
    const bool ok = r.readString(v.Name) && r.readString(v.CountryCode) &&
                    r.readString(v.AreaCode) && r.readString(v.Number) &&
                    r.readString(v.ProviderName);
    if (ok) e = std::move(v);
    return ok;
}

bool WriteDirectoryEntry(RecordWriter& w, const DirectoryEntry& e) {
    return w.writeString(e.Name) && w.writeString(e.CountryCode) && w.writeString(e.AreaCode) &&
           w.writeString(e.Number) && w.writeString(e.ProviderName);
}

RecordTable<DirectoryEntry> ParseDirectoryFile(std::string_view bytes) {
    return ReadRecordTable<DirectoryEntry>(bytes, ReadDirectoryEntry);
}

std::string SerializeDirectoryFile(const std::vector<DirectoryEntry>& entries, std::string& error) {
    RecordWriter writer;
    error.clear();
    for (const auto& e : entries) {
        if (!WriteDirectoryEntry(writer, e)) {
            error = "the entry \"" + e.Name + "\" has a field longer than 65535 bytes";
            return {};
        }
    }
    return writer.take();
}

int FindName(const std::vector<DirectoryEntry>& directory, std::string_view name) {
    const std::string wanted = Cp1252LowerCase(name);
    for (std::size_t i = 0; i < directory.size(); ++i)
        if (directory[i].Name.size() == wanted.size() &&
            Cp1252LowerCase(directory[i].Name) == wanted)
            return static_cast<int>(i);
    return -1;
}

std::string FindNameByNumber(const std::vector<DirectoryEntry>& directory, std::string_view country,
                             std::string_view area, std::string_view number) {
    for (const auto& e : directory)
        if (e.CountryCode == country && e.AreaCode == area && e.Number == number) return e.Name;
    return {};
}

std::span<const CountryDialling> CountryTable() {
    return kCountries;
}

std::string CountryDialCode(std::string_view country) {
    for (const auto& c : kCountries)
        if (c.country == country) return std::string(c.code);
    return {};
}

RecordTable<std::string> ParseNameListFile(std::string_view bytes) {
    return ReadRecordTable<std::string>(bytes, ReadOneString);
}

std::string SerializeNameListFile(const std::vector<std::string>& names, std::string& error) {
    RecordWriter writer;
    error.clear();
    for (const auto& n : names) {
        if (!writer.writeString(n)) {
            error = "a name longer than 65535 bytes";
            return {};
        }
    }
    return writer.take();
}

int GroupNameProblem(std::string_view name) {
    // A group's name becomes its file name beside group.dat, and a backup puts the group files
    // in one folder with the tables: none of those names may be taken, in any case.
    static constexpr std::string_view kTaken[] = {"group", "smsc", "phones", "queue"};
    const std::string lower = Cp1252LowerCase(name);
    for (auto taken : kTaken)
        if (lower == taken) return sid::GroupNameNotAllowed;
    if (name == "." || name == ".." || name.size() > 200) return sid::GroupNameNotAllowed;
    for (unsigned char c : name)
        if (c < 0x20 || c == 0x7F || c == '/' || c == '\\') return sid::GroupNameNotAllowed;
    return 0;
}

}  // namespace parlane
