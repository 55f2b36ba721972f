// Addressing a message by a directory name: the panel is filled from the entry, then queued
// through the one Queue command.
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

// The row of `Services` whose centre has exactly this name; -1 when none has.
int CentreRow(const std::vector<Provider>& providers, const std::string& name) {
    int row = -1;
    for (std::size_t i = 0; i < providers.size(); ++i)
        if (providers[i].ProviderName == name) row = static_cast<int>(i);
    return row;
}

}  // namespace

// A name that is not in the directory never reaches the queue; its text is kept in the archive.
void frmMain::ArchiveUnknownName(const std::string& name) {
    QueuedMessage record;
    record.Text = txtMessage.Text;
    ShowStatus(LoadResString(sid::NameNotInDirectory));
    SaveToOutbox(
        LoadResString(sid::Aborted) + " - " + name + " " + LoadResString(sid::IsNotInDirectory),
        record);
}

// Fills the panel from the directory entry of `name`, with the centre the entry names; false,
// after archiving the text, when the name is not in the directory.
bool frmMain::FillPanelForName(const std::string& name, bool defaultCentreWhenNone) {
    const int found = FindName(name);
    if (found < 0) {
        ArchiveUnknownName(name);
        return false;
    }
    const DirectoryEntry entry = Directory[static_cast<std::size_t>(found)];
    if (const int row = CentreRow(Providers, entry.ProviderName); row >= 0) {
        Services.select(row);
    } else if (defaultCentreWhenNone && entry.ProviderName.empty()) {
        if (const int def = CentreRow(Providers, DefaultCentre()); def >= 0) Services.select(def);
    }
    txtCountryCode.Text = entry.CountryCode;
    txtAreaCode.Text = entry.AreaCode;
    txtNumber.Text = entry.Number;
    return true;
}

void frmMain::QueueMessage(const std::string& name) {
    if (!FillPanelForName(name, false)) return;
    mnuQueue_Click();
    // The status line tells whether the Queue command really queued.
    if (lblInfo.Caption.find(LoadResString(sid::InQueue)) != std::string::npos) {
        timSendMessages.setEnabled(true);
        ShowStatus(LoadResString(sid::WaitingToSend));
    }
}

// A group member without a centre of its own goes to the default centre.
void frmMain::QueueGroupMessage(const std::string& name) {
    if (FillPanelForName(name, true)) mnuQueue_Click();
}

void frmMain::UsePhoneEntry() {
    const std::string defaultName = DefaultCentre();
    const int found = FindName(Names.Text);
    if (found < 0) return;
    const DirectoryEntry entry = Directory[static_cast<std::size_t>(found)];
    txtCountryCode.Text = entry.CountryCode;
    txtNumber.Text = entry.Number;
    txtAreaCode.Text = entry.AreaCode;
    Names.Text = entry.Name;
    Services.ListIndex = -1;
    int row = CentreRow(Providers, entry.ProviderName);
    if (row < 0) row = Services.FindRow(defaultName);
    if (row < 0 && Services.ListCount() > 0) row = 0;
    if (row >= 0) Services.select(row);
    changed();
}

void frmMain::RemoteQueueName(const std::string& name) {
    if (FillPanelForName(name, false)) mnuQueue_Click();
}

void frmMain::RemoteQueueGroup() {
    const std::string text = txtMessage.Text;
    if (lstGroup.ListCount() == 0) {
        setStatusRaw(LoadResString(sid::ErrorQueueingGroupByRemote));
        return;
    }
    for (const auto& member : std::vector<std::string>(lstGroup.rows)) {
        txtMessage.Text = text;
        QueueGroupMessage(member);
    }
    changed();
}

}  // namespace parlane
