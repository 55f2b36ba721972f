#include "line/at/location_form.h"

#include <cctype>

#include "core/string_ids.h"

namespace parlane {
namespace {

// Country codes have one to three digits.
bool ValidCountry(const std::string& t) {
    return SomeDigits(t) && t.size() <= 3;
}
bool ValidOutsideLine(const std::string& t) {
    for (char c : t)
        if (c != ',' && !std::isdigit(static_cast<unsigned char>(c))) return false;
    return true;
}
char OutsideLineKey(char typed) {
    return typed == ',' ? typed : DigitKey(typed);
}
bool ValidDialMode(const std::string& t) {
    return t == "T" || t == "P";
}

}  // namespace

LocationForm::LocationForm(const DiallingLocation& from) : FieldForm(sid::MenuDialLocation) {
    txtCountryCode.Text = from.countryCode;
    txtAreaCode.Text = from.areaCode;
    txtOutsideLine.Text = from.outsideLine;
    txtNationalPrefix.Text = from.nationalPrefix;
    txtInternationalPrefix.Text = from.internationalPrefix;
    // One char, not a literal: GCC 12 at -O2 warns falsely (-Wrestrict) on assigning "T" or "P".
    txtDialMode.Text = std::string(1, from.tone ? 'T' : 'P');
    add({"txtCountryCode", sid::TipCountryCode, &txtCountryCode, ValidCountry, DigitKey});
    add({"txtAreaCode", sid::TipAreaCode, &txtAreaCode, AllDigits, DigitKey});
    add({"txtOutsideLine", sid::LabelOutsideLine, &txtOutsideLine, ValidOutsideLine,
         OutsideLineKey});
    // Some countries dial other areas with no prefix at all.
    add({"txtNationalPrefix", sid::LabelNationalPrefix, &txtNationalPrefix, AllDigits, DigitKey});
    add({"txtInternationalPrefix", sid::LabelInternationalPrefix, &txtInternationalPrefix,
         SomeDigits, DigitKey});
    add({"txtDialMode", sid::LabelDialMode, &txtDialMode, ValidDialMode,
         [](char c) { return LetterKey(c, "TP"); }});
}

std::optional<DiallingLocation> LocationForm::Result() const {
    if (FirstFault()) return std::nullopt;
    DiallingLocation l;
    l.countryCode = txtCountryCode.Text;
    l.areaCode = txtAreaCode.Text;
    l.outsideLine = txtOutsideLine.Text;
    l.nationalPrefix = txtNationalPrefix.Text;
    l.internationalPrefix = txtInternationalPrefix.Text;
    l.tone = txtDialMode.Text == "T";
    return l;
}

}  // namespace parlane
