#pragma once
// The internet line's settings dialog: one centre's host, port, connect time-out and TLS.

#include <optional>

#include "line/field_form.h"
#include "line/tcp/tcp_config.h"

namespace parlane {

class TcpSettingsForm : public FieldForm {
  public:
    explicit TcpSettingsForm(const TcpConfig& from);

    TextBox txtHost;
    TextBox txtPort;
    TextBox txtTimeout;  // seconds, 1 to 300
    TextBox txtTls;      // Y or N
    TextBox txtVerify;   // Y or N

    // The settings the fields hold; nullopt while a field breaks its rule.
    std::optional<TcpConfig> Result() const;
};

}  // namespace parlane
