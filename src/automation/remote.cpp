#include "automation/remote.h"

#include <algorithm>

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

std::size_t Remote::MessageLimit(int index) const {
    const auto limit = [](const Provider& centre) {
        return static_cast<std::size_t>(std::clamp(LeadingNumber(centre.MaxChars), 0.0, 32767.0));
    };
    const auto& centres = form_.Providers;
    if (index >= 0 && index < static_cast<int>(centres.size()))
        return limit(centres[static_cast<std::size_t>(index)]);
    std::size_t largest = 0;
    for (const auto& centre : centres) largest = std::max(largest, limit(centre));
    return largest;
}

RemoteAnswer Remote::Kept(int refusalsBefore) const {
    return form_.QueueRefusals() == refusalsBefore ? RemoteAnswer::Taken : RemoteAnswer::NotKept;
}

std::string Remote::StatusLine() const {
    const auto& text = form_.lblInfo.Caption;
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

RemoteAnswer Remote::ParlaneQueueGroup(const std::string& message, std::int32_t groupIndex) {
    if (message.size() > MessageLimit(-1)) return RemoteAnswer::TooLong;
    form_.txtMessage.Text = message;
    if (!SelectRow(form_.cmbGroupName, groupIndex)) return RemoteAnswer::NoSuchRow;
    const int refusals = form_.QueueRefusals();
    form_.cmbGroupName_Click();
    form_.RemoteQueueGroup();
    form_.changed();
    return Kept(refusals);
}

RemoteAnswer Remote::ParlaneQueueByName(const std::string& message, const std::string& name) {
    if (name.size() > kFieldLimit) return RemoteAnswer::TooLong;
    const int entry = form_.FindName(name);
    const int centre =
        entry < 0
            ? -1
            : FindCenterByPrefix(form_.Providers,
                                 form_.Directory[static_cast<std::size_t>(entry)].ProviderName);
    if (message.size() > MessageLimit(centre)) return RemoteAnswer::TooLong;
    const int refusals = form_.QueueRefusals();
    form_.txtMessage.Text = message;
    form_.RemoteQueueName(name);
    form_.changed();
    return Kept(refusals);
}

RemoteAnswer Remote::ParlaneQueueMessage(const std::string& country, const std::string& area,
                                         const std::string& number, std::int32_t providerIndex,
                                         const std::string& message) {
    for (const auto* field : {&country, &area, &number})
        if (field->size() > kFieldLimit) return RemoteAnswer::TooLong;
    const int row = static_cast<std::int16_t>(providerIndex);
    if (row >= 0 && message.size() > MessageLimit(row)) return RemoteAnswer::TooLong;
    form_.txtMessage.Text = message;
    form_.txtCountryCode.Text = country;
    form_.txtAreaCode.Text = area;
    form_.txtNumber.Text = number;
    if (!SelectRow(form_.Services, providerIndex)) {
        form_.changed();
        return RemoteAnswer::NoSuchRow;
    }
    const int refusals = form_.QueueRefusals();
    form_.RemoteQueue();
    form_.changed();
    return Kept(refusals);
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
