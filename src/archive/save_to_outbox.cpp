// SaveToOutbox: every finished or refused message leaves one file in SMS/Outbox, written whole.
#include <cstring>

#include "archive/message_file.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr std::size_t kStampLength = 13;  // "yymmdd hhmmss"

// The second file of a second gets "-2" behind the time stamp, and so on, so the 13-character
// sort key stays as it is and nothing is ever replaced.
std::string ArchiveName(const std::string& stamp, int attempt) {
    return stamp + (attempt == 1 ? std::string() : "-" + std::to_string(attempt)) + ".msg";
}

std::filesystem::path FreeArchiveName(const std::filesystem::path& folder,
                                      const std::string& stamp) {
    std::error_code ec;
    for (int attempt = 1;; ++attempt) {
        const auto name = ArchiveName(stamp, attempt);
        if (!std::filesystem::exists(std::filesystem::symlink_status(folder / name, ec)))
            return name;
    }
}

}  // namespace

FinishedMessage frmMain::BuildOutboxFile(const std::string& status, const QueuedMessage& message) {
    MessageFileFields fields;
    if (message.ProviderIndex < 0 || message.ProviderIndex >= static_cast<int>(Providers.size()))
        fields.centreName = LoadResString(sid::Unknown);
    else
        fields.centreName = Providers[static_cast<std::size_t>(message.ProviderIndex)].ProviderName;
    fields.recipient =
        FindNameByNumber(Directory, message.CountryCode, message.AreaCode, message.Number);
    if (fields.recipient.empty()) fields.recipient = RecipientNumberText(message);
    fields.status = status;
    fields.messageLabel = LoadResString(sid::MessageLabel);
    fields.text = message.Text;
    const WallClockMs now = platform_.loop.wallClock();
    fields.dateText = platform_.formats.longDate(now);
    fields.timeText = platform_.formats.longTime(now);

    const auto outbox = homePath("SMS") / "Outbox";
    return {message, FreeArchiveName(outbox, ArchiveTimeStamp(now)).string(),
            BuildMessageFile(fields)};
}

bool frmMain::WriteOutboxFile(const FinishedMessage& file) {
    const std::string stamp = file.fileName.substr(0, kStampLength);
    std::filesystem::path chosen;
    archiveError_ = WriteNewFileAtomically(
        homePath("SMS") / "Outbox",
        [&](int attempt) { return attempt == 1 ? file.fileName : ArchiveName(stamp, attempt); },
        file.content, chosen);
    if (archiveError_ == 0) return true;
    ShowStatus(FailureStatus(archiveError_, LoadResString(sid::SavingToOutbox)));
    return false;
}

bool frmMain::WriteUnarchived() {
    if (unarchived_.empty()) return true;
    std::erase_if(unarchived_,
                  [this](const FinishedMessage& file) { return WriteOutboxFile(file); });
    JournalQueue();
    return unarchived_.empty();
}

void frmMain::SaveToOutbox(const std::string& outcome, const QueuedMessage& message) {
    const std::string status = ArchiveStatus(outcome, message);
    WriteOutboxFile(BuildOutboxFile(status, message));
    TallyOutcome(status);
    if (onArchived) onArchived(status, message);
}

void frmMain::TallyOutcome(const std::string& status) {
    const bool sent = status.rfind(LoadResString(sid::MessageSentSuccessfully), 0) == 0;
    ++(sent ? runTally_.sent : runTally_.notSent);
    runTally_.simulated = runTally_.simulated || state.SimulatedCall;
}

void frmMain::EndRunTally() {
    if (runTally_.sent + runTally_.notSent > 0 && onRunEnded) onRunEnded(runTally_);
    runTally_ = {};
}

void frmMain::ArchiveFinished(const std::string& outcome, const QueuedMessage& message) {
    const std::string status = ArchiveStatus(outcome, message);
    const FinishedMessage file = BuildOutboxFile(status, message);
    JournalQueue({file});
    // A record that cannot be written now is owed: kept, journalled, written when there is room.
    if (WriteOutboxFile(file))
        JournalQueue();
    else
        unarchived_.push_back(file);
    TallyOutcome(status);
    if (onArchived) onArchived(status, message);
}

void frmMain::FinishHeadMessage(const std::string& status) {
    if (UpperBound(SendBuffer) < 1) return;
    const QueuedMessage head = SendBuffer[1];
    // Element 0 keeps the message finished last.
    RemoveSentMessage(SendBuffer);
    queueChanged();
    ArchiveFinished(status, head);
}

}  // namespace parlane
