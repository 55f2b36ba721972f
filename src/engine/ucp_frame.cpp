#include "engine/ucp_frame.h"

#include <cstdio>

#include "core/settings_store.h"
#include "engine/tap_block.h"

namespace parlane {
namespace {

std::string HexByte(unsigned value) {
    char buf[3];
    std::snprintf(buf, sizeof buf, "%02X", value & 0xFF);
    return buf;
}

int GsmCode(unsigned char c) {
    switch (c) {
        case '@':
            return 0x00;
        case 0xA3:
            return 0x01;  // pound
        case '$':
            return 0x02;
        case 0xA5:
            return 0x03;  // yen
        case 0xE8:
            return 0x04;
        case 0xE9:
            return 0x05;
        case 0xF9:
            return 0x06;
        case 0xEC:
            return 0x07;
        case 0xF2:
            return 0x08;
        case 0xC7:
            return 0x09;
        case 0x0A:
            return 0x0A;
        case 0xD8:
            return 0x0B;
        case 0xF8:
            return 0x0C;
        case 0x0D:
            return 0x0D;
        case 0xC5:
            return 0x0E;
        case 0xE5:
            return 0x0F;
        case '_':
            return 0x11;
        case 0xC6:
            return 0x1C;
        case 0xE6:
            return 0x1D;
        case 0xDF:
            return 0x1E;
        case 0xC9:
            return 0x1F;
        case 0xA4:
            return 0x24;  // currency sign
        case 0xA1:
            return 0x40;
        case 0xC4:
            return 0x5B;
        case 0xD6:
            return 0x5C;
        case 0xD1:
            return 0x5D;
        case 0xDC:
            return 0x5E;
        case 0xA7:
            return 0x5F;
        case 0xBF:
            return 0x60;
        case 0xE4:
            return 0x7B;
        case 0xF6:
            return 0x7C;
        case 0xF1:
            return 0x7D;
        case 0xFC:
            return 0x7E;
        case 0xE0:
            return 0x7F;
        default:
            return c >= 0x20 && c <= 0x7F ? c : 0x3F;
    }
}

}  // namespace

std::string UcpChecksum(const std::string& text) {
    unsigned sum = 0;
    for (unsigned char c : text) sum += c;
    return HexByte(sum);
}

std::string UcpTextToHex(const std::string& text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (unsigned char c : text) out += HexByte(static_cast<unsigned>(GsmCode(c)));
    return out;
}

std::string BuildUcpFrame(const QueuedMessage& head, const Provider& centre,
                          const std::string& originatorId) {
    const std::string prefix = LeadingNumber(head.CountryCode) > 0 ? "00" + head.CountryCode : "0";
    const std::string adc = prefix + NationalAreaPart(head.AreaCode) + head.Number;
    const std::string msg = UcpTextToHex(head.Text);
    const std::string start = adc + "/" + originatorId + "/" + centre.Password;
    std::string body;
    if (centre.UCPOperation == "30")
        body = start + "///////" + msg + "/";
    else if (centre.UCPOperation == "51")
        body = start + "////////////////3//" + msg + "/////////////";
    else
        body = start + "/3/" + msg + "/";
    const std::string length = "000" + std::to_string(body.size() + 16);
    const std::string frame =
        "00/" + length.substr(length.size() - 5) + "/O/" + centre.UCPOperation + "/" + body;
    return STX + frame + UcpChecksum(frame) + ETX;
}

}  // namespace parlane
