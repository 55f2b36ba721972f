#include "engine/tap_block.h"

#include <limits>

namespace parlane {

std::string BuildTapBlock(const std::string& fields) {
    std::string block = STX + fields + ETX;
    long sum = 0;
    for (unsigned char b : block) sum += b;
    if (sum > std::numeric_limits<std::int16_t>::max()) return {};
    for (int shift : {8, 4, 0}) block += static_cast<char>(0x30 + ((sum >> shift) & 0x0F));
    block += CR;
    return block;
}

std::int16_t SubstituteCharacter(std::int16_t code, bool allowExtendedAscii) {
    if (code >= 0 && code <= 31) return 32;
    switch (code) {
        case 91:
        case 123:
            return 40;
        case 92:
        case 124:
            return 47;
        case 93:
        case 125:
            return 41;
        case 94:
        case 96:
            return 39;
        case 95:
        case 127:
            return 45;
        case 0xA3:
            return 1;  // pound sign
        case 0xA5:
            return 3;  // yen sign
        default:
            break;
    }
    if (allowExtendedAscii) {
        // The accented letters that have a code of their own in the GSM alphabet.
        switch (code) {
            case 0xE8:
                return 4;
            case 0xE9:
                return 5;
            case 0xF9:
                return 6;
            case 0xEC:
                return 7;
            case 0xF2:
                return 8;
            case 0xC7:
                return 9;
            case 0xC5:
                return 14;
            case 0xE5:
                return 15;
            case 0xC6:
                return 28;
            case 0xE6:
                return 29;
            case 0xDF:
                return 30;
            case 0xC4:
                return 91;
            case 0xD6:
                return 92;
            case 0xD1:
                return 93;
            case 0xDC:
                return 94;
            case 0xBF:
                return 96;
            case 0xE4:
                return 123;
            case 0xF6:
                return 124;
            case 0xF1:
                return 125;
            case 0xFC:
                return 126;
            case 0xE0:
                return 127;
            default:
                break;
        }
    }
    const std::int16_t low = static_cast<std::int16_t>(code & 0x7F);
    return low < 32 ? 32 : low;
}

void FindAsciiCharacter(std::string& text, bool allowExtendedAscii) {
    for (auto& c : text)
        c = static_cast<char>(
            SubstituteCharacter(static_cast<unsigned char>(c), allowExtendedAscii));
}

std::string NationalAreaPart(const std::string& areaCode) {
    return !areaCode.empty() && areaCode[0] == '0' ? areaCode.substr(1) : areaCode;
}

}  // namespace parlane
