#pragma once
// The automation class other programs call. It keeps no state: each method fills the compose
// panel of the one main window and runs the command a user would.

#include <cstdint>
#include <string>

namespace parlane {

class frmMain;

// How a queueing method took its request. Refused requests change nothing.
enum class RemoteAnswer {
    Taken,      // handed to the window, which queues it or says why not, as for a user
    NoSuchRow,  // the index names no row of its list
    TooLong,    // a text longer than the window would take
    NotKept,    // the queue could not be written to disk: a message was not queued
};

class Remote {
  public:
    explicit Remote(frmMain& form) : form_(form) {}

    // A number field or a name longer than this is no number or name of the window's.
    static constexpr std::size_t kFieldLimit = 64;

    // Texts are cp1252. A message may be as long as the limit of the centre it goes to (for a
    // group or a name of no known centre: the largest limit of any centre).
    RemoteAnswer ParlaneQueueGroup(const std::string& message, std::int32_t groupIndex);
    RemoteAnswer ParlaneQueueByName(const std::string& message, const std::string& name);
    RemoteAnswer ParlaneQueueMessage(const std::string& country, const std::string& area,
                                     const std::string& number, std::int32_t providerIndex,
                                     const std::string& message);
    void ParlaneSendMessages();
    void ParlaneClose();
    void ParlaneShow();

    // The window's status line, which says why a message was not kept.
    std::string StatusLine() const;

  private:
    // Taken, unless a message of this request could not be kept since `refusalsBefore`.
    RemoteAnswer Kept(int refusalsBefore) const;
    // The message limit of centre `index`, or the largest of all centres when it is -1.
    std::size_t MessageLimit(int index) const;

    frmMain& form_;
};

}  // namespace parlane
