// Queuing, the queue file's life and the hand-over of the queue to a run.
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <map>

#include "archive/message_file.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr const char* kQueueFile = "queue.dat";
constexpr const char* kJournalFile = "queue.journal";

std::string QueueRowText(const QueuedMessage& m) {
    return m.ProviderName + " " + m.CountryCode + " " + m.AreaCode + " " + m.Number;
}

// A message of `table` equal to `m`, from element 1 on.
bool Holds(const MessageTable& table, const QueuedMessage& m) {
    return std::find(table.begin() + 1, table.end(), m) != table.end();
}

}  // namespace

bool frmMain::CheckComposePanel() {
    // A centre without a number is no centre to queue for (a name not in the table is
    // LookupCenter's to report).
    const int centre = FindCenterByPrefix(Providers, Services.Text);
    const bool unusable =
        centre >= 0 && !IsUsableCentre(Providers[static_cast<std::size_t>(centre)]);
    const std::string centreUsable = unusable ? std::string() : Services.Text;
    struct Check {
        const std::string* text;
        int message;
        const char* focus;
    };
    const Check checks[] = {
        {&txtMessage.Text, sid::PleaseEnterText, "txtMessage"},
        {&centreUsable, sid::PleaseSetUpSmsc, "txtMessage"},
        {&txtCountryCode.Text, sid::PleaseEnterCountryCode, "txtCountryCode"},
        {&txtAreaCode.Text, sid::PleaseEnterAreaCode, "txtAreaCode"},
        {&txtNumber.Text, sid::PleaseEnterNumber, "txtNumber"},
    };
    for (const auto& check : checks) {
        if (check.text->empty()) {
            ShowMessageBox(LoadResString(check.message), MbInformation);
            focusedControl = check.focus;
            return false;
        }
    }
    return true;
}

void frmMain::mnuQueue_Click() {
    if (!CheckComposePanel()) return;

    BusyCursor busy(*this);
    QueuedMessage record;
    record.CountryCode = txtCountryCode.Text;
    record.AreaCode = txtAreaCode.Text;
    record.Number = txtNumber.Text;
    record.Text = txtMessage.Text;
    record.ProviderName = Services.Text;

    if (LookupCenter(record.ProviderName) == -1) {
        ShowStatus(LoadResString(sid::SmscDetailsNotFound));
        record.ProviderIndex = -1;
        record.MessageNumber = 0;
        SaveToOutbox(LoadResString(sid::SmscDetailsNotFound), record);
        return;
    }

    AddQueueRow(record);
    MessageQueue.ListIndex = MessageQueue.ListCount() - 1;
    txtMessageQueue.Text = record.Text;

    const int n = UpperBound(QueueBuffer);
    setStatusRaw(std::to_string(n + 1) + " " +
                 LoadResString(n == 0 ? sid::MessageInQueue : sid::MessagesInQueue));

    record.MessageNumber = ++state.counters.NextMessageNumber;
    QueueBuffer.push_back(std::move(record));
    // The message is queued only once the journal holds it: a kill must not lose what the
    // window says is in the queue. When it cannot be kept, it stays in the panel.
    if (!JournalQueue()) {
        ++queueRefusals_;
        txtMessage.Text = QueueBuffer.back().Text;
        QueueBuffer.pop_back();
        --state.counters.NextMessageNumber;
        MessageQueue.RemoveItem(MessageQueue.ListCount() - 1);
        MessageQueue.ListIndex = -1;
        txtMessageQueue.Text.clear();
        ShowStatus(FailureStatus(journalError_, LoadResString(sid::SavingMessageQueue)));
        changed();
        return;
    }
    txtMessage.Text.clear();
    changed();
}

int frmMain::LookupCenter(const std::string& name) {
    const int index = FindCenterByPrefix(Providers, name);
    if (index == -1) ShowStatus(LoadResString(sid::UnknownSmsc));
    return index;
}

bool frmMain::ResetQueueBuffer() {
    QueueBuffer = EmptyMessageTable();
    queueChanged();
    return true;
}

void frmMain::AddQueueRow(const QueuedMessage& message) {
    MessageQueue.AddItem(QueueRowText(message));
}

void frmMain::RemoveQueuedMessageRow(int row) {
    RemoveQueuedMessage(QueueBuffer, row + 1);
    MessageQueue.RemoveItem(row);
    queueChanged();
    changed();
}

bool frmMain::WriteQueueFile(const MessageTable& table, const std::string& statusText) {
    BusyCursor busy(*this);
    ShowStatus(statusText + " ...");
    progress.Visible = true;
    progress.Value = 0;
    std::string error;
    std::string bytes;
    RecordWriter writer;
    const int n = UpperBound(table);
    bool ok = true;
    for (int i = 0; i <= n && ok; ++i) {
        ok = WriteQueuedMessage(writer, table[static_cast<std::size_t>(i)]);
        if (i > 0) progress.Value = static_cast<int>(std::lround(100.0 / n * i));
    }
    if (ok) ok = WriteFileAtomically(homePath(kQueueFile), writer.bytes()).empty();
    progress.Visible = false;
    setStatusRaw("");
    return ok;
}

bool frmMain::SaveQueueBuffer() {
    // queue.dat may hold messages only it still knows of: the journal takes them first.
    if (!JournalQueue()) return false;
    if (UpperBound(QueueBuffer) == 0) return RemoveFile(homePath(kQueueFile));
    if (!WriteQueueFile(QueueBuffer, LoadResString(sid::SavingCurrentMessageQueue))) return false;
    // Kept in memory as well, so that a close or a crash before the restore loses nothing.
    stashedQueue_ = QueueBuffer;
    MessageQueue.Clear();
    txtMessageQueue.Text.clear();
    queueChanged();
    return true;
}

MessageTable frmMain::PendingMessages() const {
    MessageTable all = EmptyMessageTable();
    if (stashedQueue_) all.insert(all.end(), stashedQueue_->begin() + 1, stashedQueue_->end());
    all.insert(all.end(), SendBuffer.begin() + 1, SendBuffer.end());
    all.insert(all.end(), QueueBuffer.begin() + 1, QueueBuffer.end());
    return all;
}

void frmMain::SaveQueueAtExit() {
    WriteUnarchived();
    // The journal holds everything until queue.dat does.
    if (!JournalQueue()) return;
    // Messages of a run in progress and a stashed queue are saved too: a close loses nothing.
    const MessageTable pending = PendingMessages();
    const bool saved = UpperBound(pending) > 0
                           ? WriteQueueFile(pending, LoadResString(sid::SavingMessageQueue))
                           : RemoveFile(homePath(kQueueFile));
    if (saved) RemoveFile(homePath(kJournalFile));
}

void frmMain::ShowQueueCount() {
    const int n = UpperBound(QueueBuffer);
    if (n == 0)
        setStatusRaw("");
    else
        setStatusRaw(std::to_string(n) + " " +
                     LoadResString(n == 1 ? sid::MessageInQueue : sid::MessagesInQueue));
}

void frmMain::LoadQueueAtStart() {
    const auto path = homePath(kQueueFile);
    const auto bytes = ReadTable(path);
    if (bytes && !bytes->empty()) {
        auto table = ParseQueueFile(*bytes);
        QueueBuffer = std::move(table.records);
        QueueBuffer[0] = QueuedMessage{};
        if (table.damaged) reportDamage(path);
    }
    const bool journalFound = RecoverJournal();
    // New numbers go on above the restored ones: two messages of one number would share their
    // attempt counts, and a script would learn the other's fate.
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
        state.counters.NextMessageNumber =
            std::max(state.counters.NextMessageNumber,
                     QueueBuffer[static_cast<std::size_t>(i)].MessageNumber);
    if (!bytes && !journalFound) return;
    MessageQueue.Clear();
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
        AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
    ShowQueueCount();
    if (UpperBound(QueueBuffer) >= 1) MessageQueue.ListIndex = 0;
    // queue.dat goes only once the journal holds its messages for sure.
    if (JournalQueue() && bytes) RemoveFile(path);
}

void frmMain::timCheckSingleMessageSent_Timer() {
    if (lblInfo.Caption != LoadResString(sid::NoMoreMessages) + "  ") return;
    RestoreSingleMessageQueue();
}

void frmMain::RestoreSingleMessageQueue() {
    timCheckSingleMessageSent.setEnabled(false);
    const auto path = homePath(kQueueFile);
    if (const auto bytes = ReadTable(path)) {
        ShowStatus(LoadResString(sid::RestoringSavedQueue));
        auto table = ParseQueueFile(*bytes);
        // Messages queued during the run (by automation) stay behind the restored ones.
        MessageTable restored = std::move(table.records);
        restored.insert(restored.end(), QueueBuffer.begin() + 1, QueueBuffer.end());
        QueueBuffer = std::move(restored);
        MessageQueue.Clear();
        for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
            AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
        ShowQueueCount();
        if (UpperBound(QueueBuffer) >= 1) MessageQueue.ListIndex = 0;
    }
    stashedQueue_.reset();
    queueChanged();
}

void frmMain::MoveBatchBackToQueue(MessageTable batch) {
    batch.insert(batch.end(), QueueBuffer.begin() + 1, QueueBuffer.end());
    QueueBuffer = std::move(batch);
    MessageQueue.Clear();
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
        AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
}

bool frmMain::PrepareNextBatch() {
    // Messages for a centre with no line here are never dialled: they stay queued, and the
    // run says why once nothing else is left to send.
    heldBack_.clear();
    MessageTable held = EmptyMessageTable(), sendable = EmptyMessageTable();
    std::map<std::string, std::string> problems;  // by centre name: asked once per centre
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i) {
        auto& message = QueueBuffer[static_cast<std::size_t>(i)];
        const auto known = problems.find(message.ProviderName);
        std::string problem = known != problems.end()
                                  ? known->second
                                  : problems[message.ProviderName] = LineProblemFor(message);
        if (problem.empty()) {
            sendable.push_back(std::move(message));
            continue;
        }
        if (heldBack_.empty()) heldBack_ = std::move(problem);
        held.push_back(std::move(message));
    }
    QueueBuffer = std::move(sendable);
    const bool sending = PrepareSendable();
    if (UpperBound(held) > 0) {
        QueueBuffer.insert(QueueBuffer.begin() + 1, held.begin() + 1, held.end());
        MessageQueue.Clear();
        for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
            AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
        queueChanged();
    }
    return sending;
}

bool frmMain::PrepareSendable() {
    const int n = UpperBound(QueueBuffer);
    const int m = UpperBound(SendBuffer);
    if (n + m == 0) return false;
    SendBuffer.resize(static_cast<std::size_t>(n + m + 1));
    for (int i = 1; i <= n; ++i) {
        auto& slot = SendBuffer[static_cast<std::size_t>(i + m)];
        slot = QueueBuffer[static_cast<std::size_t>(i)];
        slot.ProviderIndex = LookupCenter(slot.ProviderName);
        if (slot.ProviderIndex == -1) {
            // The message without a centre leaves its archive record; all the others go back to
            // the queue, so the run ends with no gap in SendBuffer and nothing lost.
            const QueuedMessage orphan = slot;
            MessageTable back = EmptyMessageTable();
            back.insert(back.end(), SendBuffer.begin() + 1, SendBuffer.begin() + i + m);
            QueueBuffer.erase(QueueBuffer.begin() + 1, QueueBuffer.begin() + i + 1);
            SendBuffer = EmptyMessageTable();
            MoveBatchBackToQueue(std::move(back));
            queueChanged();
            ArchiveFinished(LoadResString(sid::UnknownSmsc), orphan);
            ShowStatus(LoadResString(sid::UnknownSmsc));
            return false;
        }
    }
    // The rows of the moved messages go in one step rather than one at a time.
    MessageQueue.rows.erase(MessageQueue.rows.begin(),
                            MessageQueue.rows.begin() + std::min(n, MessageQueue.ListCount()));
    MessageQueue.ListIndex = -1;
    QueueBuffer = EmptyMessageTable();
    SendBuffer[0].ProviderIndex = 0;
    SendBuffer[0].Text = LoadResString(sid::NeverSeenMarker);
    int lo = 0, hi = 0;
    SortSendBuffer(SendBuffer, lo, hi);
    queueChanged();
    if (SendBuffer[0].Text != LoadResString(sid::NeverSeenMarker)) {
        ShowStatus(LoadResString(sid::QueueSortError));
        return false;
    }
    return true;
}

void frmMain::StopSaveBack() {
    FinishHeadMessage(LoadResString(sid::AbortedUserPressedStop));
    // Messages queued meanwhile (by automation) stay behind the ones brought back.
    MessageTable back = EmptyMessageTable();
    back.insert(back.end(), SendBuffer.begin() + 1, SendBuffer.end());
    SendBuffer = EmptyMessageTable();
    MoveBatchBackToQueue(std::move(back));
    ShowQueueCount();
    if (UpperBound(QueueBuffer) >= 1) {
        MessageQueue.ListIndex = 0;
        txtMessageQueue.Text = QueueBuffer[1].Text;
    }
    queueChanged();
}

bool frmMain::JournalQueue(const std::vector<FinishedMessage>& finishing) {
    std::vector<FinishedMessage> finished = unarchived_;
    finished.insert(finished.end(), finishing.begin(), finishing.end());
    QueueJournal journal{PendingMessages(), std::move(finished)};
    std::string error;
    const std::string bytes = SerializeQueueJournal(journal, error);
    // A record too long for its file counts as EOVERFLOW, as for the other tables.
    journalError_ = error.empty() ? ReplaceFile(homePath(kJournalFile), bytes) : EOVERFLOW;
    if (journalError_ != 0) return false;
    if (finishing.empty()) queueDirty_ = false;
    return true;
}

bool frmMain::RecoverJournal() {
    const auto path = homePath(kJournalFile);
    const auto bytes = ReadTable(path);
    if (!bytes) return false;
    auto journal = ParseQueueJournal(*bytes);
    if (journal.damaged) reportDamage(path);
    // Files promised before a kill: written now unless they made it to disk.
    const auto outbox = homePath("SMS") / "Outbox";
    for (auto& file : journal.finished) {
        // A damaged journal must not send the file anywhere but into the Outbox.
        if (file.fileName.size() < 17 || file.fileName.find('/') != std::string::npos ||
            file.fileName.front() == '.')
            file.fileName = ArchiveTimeStamp(platform_.loop.wallClock()) + ".msg";
        if (ReadWholeFile(outbox / file.fileName) != file.content) WriteOutboxFile(file);
    }
    if (!journal.legacy) {
        // The journal was written before queue.dat was touched: it is the whole truth, and a
        // message only queue.dat still lists has been sent or deleted since.
        QueueBuffer = std::move(journal.pending);
        return true;
    }
    // An earlier version's journal, merged with queue.dat without repeating a message.
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i) {
        const auto& m = QueueBuffer[static_cast<std::size_t>(i)];
        if (!Holds(journal.pending, m)) journal.pending.push_back(m);
    }
    QueueBuffer = std::move(journal.pending);
    return true;
}

}  // namespace parlane
