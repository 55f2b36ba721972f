// Queuing, the queue file's life and the hand-over of the queue to a run.
#include <algorithm>
#include <cmath>
#include <filesystem>

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

bool FileExists(const std::filesystem::path& path) {
    std::error_code ec;
    return std::filesystem::exists(path, ec);
}

void RemoveFile(const std::filesystem::path& path) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
}

}  // namespace

bool frmMain::CheckComposePanel() {
    struct Check {
        const std::string* text;
        int message;
        const char* focus;
    };
    const Check checks[] = {
        {&txtMessage.Text, sid::PleaseEnterText, "txtMessage"},
        {&Services.Text, sid::PleaseSetUpSmsc, "txtMessage"},
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
    queueChanged();
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
    RemoveFile(homePath(kQueueFile));
    if (UpperBound(QueueBuffer) == 0) return true;
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
    RemoveFile(homePath(kQueueFile));
    // Messages of a run in progress and a stashed queue are saved too: a close loses nothing.
    const MessageTable pending = PendingMessages();
    if (UpperBound(pending) > 0) {
        if (!WriteQueueFile(pending, LoadResString(sid::SavingMessageQueue)))
            return;  // journal stays
    }
    RemoveFile(homePath(kJournalFile));
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
    if (!FileExists(path)) return;
    const auto bytes = ReadWholeFile(path).value_or(std::string());
    bool damaged = false;
    if (!bytes.empty()) {
        auto table = ParseQueueFile(bytes);
        damaged = table.damaged;
        QueueBuffer = std::move(table.records);
        for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
            AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
    }
    ShowQueueCount();
    if (UpperBound(QueueBuffer) >= 1) MessageQueue.ListIndex = 0;
    if (damaged) reportDamage(path);
    RemoveFile(path);
    queueChanged();
}

void frmMain::timCheckSingleMessageSent_Timer() {
    if (lblInfo.Caption != LoadResString(sid::NoMoreMessages) + "  ") return;
    timCheckSingleMessageSent.setEnabled(false);
    const auto path = homePath(kQueueFile);
    if (FileExists(path)) {
        ShowStatus(LoadResString(sid::RestoringSavedQueue));
        auto table = ParseQueueFile(ReadWholeFile(path).value_or(std::string()));
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
            SaveToOutbox(LoadResString(sid::UnknownSmsc), slot);
            MessageTable back = EmptyMessageTable();
            back.insert(back.end(), SendBuffer.begin() + 1, SendBuffer.begin() + i + m);
            QueueBuffer.erase(QueueBuffer.begin() + 1, QueueBuffer.begin() + i + 1);
            SendBuffer = EmptyMessageTable();
            MoveBatchBackToQueue(std::move(back));
            ShowStatus(LoadResString(sid::UnknownSmsc));
            queueChanged();
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
    SaveToOutbox(LoadResString(sid::AbortedUserPressedStop), SendBuffer[1]);
    // Messages queued meanwhile (by automation) stay behind the ones brought back.
    MessageTable back = EmptyMessageTable();
    back.insert(back.end(), SendBuffer.begin() + 2, SendBuffer.end());
    SendBuffer = EmptyMessageTable();
    MoveBatchBackToQueue(std::move(back));
    ShowQueueCount();
    if (UpperBound(QueueBuffer) >= 1) {
        MessageQueue.ListIndex = 0;
        txtMessageQueue.Text = QueueBuffer[1].Text;
    }
    queueChanged();
}

void frmMain::RemoveSentMessageFromRun() {
    RemoveSentMessage(SendBuffer);
    queueChanged();
}

void frmMain::JournalQueue() {
    const auto path = homePath(kJournalFile);
    const MessageTable pending = PendingMessages();
    if (UpperBound(pending) == 0) {
        RemoveFile(path);
        return;
    }
    std::string error;
    const std::string bytes = SerializeQueueFile(pending, error);
    if (error.empty()) WriteFileAtomically(path, bytes);
}

void frmMain::RecoverJournal() {
    const auto path = homePath(kJournalFile);
    if (!FileExists(path)) return;
    auto table = ParseQueueFile(ReadWholeFile(path).value_or(std::string()));
    if (table.damaged) KeepDamagedCopy(path);
    // The journal holds everything that was pending; queue.dat may repeat part of it.
    MessageTable recovered = std::move(table.records);
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i) {
        const auto& m = QueueBuffer[static_cast<std::size_t>(i)];
        bool known = false;
        for (std::size_t k = 1; k < recovered.size() && !known; ++k) known = recovered[k] == m;
        if (!known) recovered.push_back(m);
    }
    recovered[0] = QueuedMessage{};
    QueueBuffer = std::move(recovered);
    MessageQueue.Clear();
    for (int i = 1; i <= UpperBound(QueueBuffer); ++i)
        AddQueueRow(QueueBuffer[static_cast<std::size_t>(i)]);
    ShowQueueCount();
    if (UpperBound(QueueBuffer) >= 1) MessageQueue.ListIndex = 0;
    queueChanged();
}

}  // namespace parlane
