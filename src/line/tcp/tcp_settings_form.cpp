#include "line/tcp/tcp_settings_form.h"

#include <algorithm>

#include "core/string_ids.h"

namespace parlane {
namespace {

// Letters, digits and the signs of host names and IPv4 or IPv6 addresses.
bool HostChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '-' || c == ':' || c == '_' || c == '%';
}
bool ValidHost(const std::string& t) {
    return !t.empty() && t.size() <= 253 && std::all_of(t.begin(), t.end(), HostChar);
}
char HostKey(char c) {
    return HostChar(c) ? c : 0;
}
bool InRange(const std::string& t, unsigned long low, unsigned long high) {
    if (!SomeDigits(t) || t.size() > 5) return false;
    const auto v = std::stoul(t);
    return v >= low && v <= high;
}
bool ValidPort(const std::string& t) {
    return InRange(t, 1, 65535);
}
// The safety limit ends a call after two to three minutes whatever this says.
bool ValidTimeout(const std::string& t) {
    return InRange(t, 1, 300);
}
bool ValidYesNo(const std::string& t) {
    return t == "Y" || t == "N";
}
char YesNoKey(char c) {
    return LetterKey(c, "YN");
}

}  // namespace

TcpSettingsForm::TcpSettingsForm(const TcpConfig& from) : FieldForm(sid::TitleTcpSettings) {
    txtHost.Text = from.host;
    txtPort.Text = from.port ? std::to_string(from.port) : std::string();
    txtTimeout.Text = std::to_string(from.connectTimeoutSecs);
    txtTls.Text = std::string(1, from.tls ? 'Y' : 'N');
    txtVerify.Text = std::string(1, from.verifyCertificate ? 'Y' : 'N');
    add({"txtHost", sid::LabelTcpHost, &txtHost, ValidHost, HostKey});
    add({"txtPort", sid::LabelTcpPort, &txtPort, ValidPort, DigitKey});
    add({"txtTimeout", sid::LabelConnectTimeout, &txtTimeout, ValidTimeout, DigitKey});
    add({"txtTls", sid::LabelUseTls, &txtTls, ValidYesNo, YesNoKey});
    add({"txtVerify", sid::LabelCheckCertificate, &txtVerify, ValidYesNo, YesNoKey});
    addChoices("txtTls", {{"N", sid::ChoiceOff}, {"Y", sid::ChoiceOn}});
    addChoices("txtVerify", {{"Y", sid::ChoiceOn}, {"N", sid::ChoiceOff}});
}

std::optional<TcpConfig> TcpSettingsForm::Result() const {
    if (FirstFault()) return std::nullopt;
    TcpConfig c;
    c.host = txtHost.Text;
    c.port = static_cast<std::uint16_t>(std::stoul(txtPort.Text));
    c.connectTimeoutSecs = static_cast<std::uint16_t>(std::stoul(txtTimeout.Text));
    c.tls = txtTls.Text == "Y";
    c.verifyCertificate = txtVerify.Text == "Y";
    return c;
}

}  // namespace parlane
