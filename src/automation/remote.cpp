#include "automation/remote.h"

#include "ui/frm_main.h"

namespace parlane {
namespace {

// A list takes only a row it has, or -1 for none; the index is narrowed as a list index is.
bool SelectRow(ListControl& list, std::int32_t index) {
    const int row = static_cast<std::int16_t>(index);
    if (row < -1 || row >= list.ListCount()) return false;
    list.select(row);
    if (row < 0) list.Text.clear();
    return true;
}

}  // namespace

bool Remote::ParlaneQueueGroup(const std::string& message, std::int32_t groupIndex) {
    form_.txtMessage.Text = message;
    if (!SelectRow(form_.cmbGroupName, groupIndex)) return false;
    form_.cmbGroupName_Click();
    form_.RemoteQueueGroup();
    form_.changed();
    return true;
}

void Remote::ParlaneQueueByName(const std::string& message, const std::string& name) {
    form_.txtMessage.Text = message;
    form_.RemoteQueueName(name);
    form_.changed();
}

bool Remote::ParlaneQueueMessage(const std::string& country, const std::string& area,
                                 const std::string& number, std::int32_t providerIndex,
                                 const std::string& message) {
    form_.txtMessage.Text = message;
    form_.txtCountryCode.Text = country;
    form_.txtAreaCode.Text = area;
    form_.txtNumber.Text = number;
    if (!SelectRow(form_.Services, providerIndex)) {
        form_.changed();
        return false;
    }
    form_.RemoteQueue();
    form_.changed();
    return true;
}

void Remote::ParlaneSendMessages() {
    form_.RemoteSend();
}

void Remote::ParlaneClose() {
    form_.RemoteClose();
}

void Remote::ParlaneShow() {
    form_.RemoteShow();
}

}  // namespace parlane
