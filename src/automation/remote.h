#pragma once
// The automation class other programs call. It keeps no state: each method fills the compose
// panel of the one main window and runs the command a user would.

#include <cstdint>
#include <string>

namespace parlane {

class frmMain;

class Remote {
  public:
    explicit Remote(frmMain& form) : form_(form) {}

    // The queueing methods answer false when the index names no row of its list: the selection
    // is refused and nothing is queued. Texts are cp1252.
    bool ParlaneQueueGroup(const std::string& message, std::int32_t groupIndex);
    void ParlaneQueueByName(const std::string& message, const std::string& name);
    bool ParlaneQueueMessage(const std::string& country, const std::string& area,
                             const std::string& number, std::int32_t providerIndex,
                             const std::string& message);
    void ParlaneSendMessages();
    void ParlaneClose();
    void ParlaneShow();

  private:
    frmMain& form_;
};

}  // namespace parlane
