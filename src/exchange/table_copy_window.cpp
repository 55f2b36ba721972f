#include "exchange/table_copy_window.h"

#include <cerrno>

#include "core/string_ids.h"

namespace parlane {

TableCopyWindow::TableCopyWindow(int titleId, std::filesystem::path home,
                                 std::filesystem::path startFolder, const Strings& strings,
                                 DialogueHost& dialogues, FolderChooser& chooser)
    : home_(std::move(home)),
      titleId_(titleId),
      startFolder_(std::move(startFolder)),
      strings_(strings),
      dialogues_(dialogues),
      chooser_(chooser) {}

int TableCopyWindow::Box(const std::string& prompt, int flags) {
    return dialogues_.messageBox(prompt, flags, strings_.ProductName());
}

void TableCopyWindow::Form_Load() {
    Caption = Load(titleId_);
    cmdOK.Caption = "OK";
    cmdCancel.Caption = Load(sid::ButtonCancel);
    cmdBrowse.Caption = "...";
    Dir1 = startFolder_;
    busy = false;
}

void TableCopyWindow::cmdBrowse_Click() {
    if (auto chosen = chooser_.chooseFolder(Caption, Dir1)) Dir1 = std::move(*chosen);
}

bool TableCopyWindow::FolderReachable() {
    // Retry looks again (a medium put in, a share mounted); Cancel goes back to the start.
    for (;;) {
        std::error_code ec;
        if (!Dir1.empty() && std::filesystem::is_directory(Dir1, ec)) return true;
        if (Box(PathText(Dir1) + " " + Load(sid::IsNotAccessible) + "\r\n\r\n" +
                    Load(sid::DeviceNotReady),
                MbRetryCancelCritical) != AnswerRetry)
            break;
    }
    Dir1 = startFolder_;
    return false;
}

void TableCopyWindow::CopyFailed(const std::filesystem::path& source, const FileError& error) {
    busy = false;
    if (error.number == ENOENT)
        Box(PathText(source) + " " + Load(sid::NotFoundContinue), MbExclamation);
    else
        Box(Load(sid::ErrorWord) + " " + std::to_string(error.number) + ":  " +
                FileErrorText(error, strings_),
            MbExclamation);
    busy = true;
}

void TableCopyWindow::CopyTable(const std::filesystem::path& from, const std::filesystem::path& to,
                                TableFormat format) {
    const auto copy = CopyTableFile(from, to, format);
    if (copy.outcome == TableCopy::KeptTarget)
        NotCopied(from, Load(sid::NotCopiedDamaged));
    else if (copy.outcome != TableCopy::Copied)
        CopyFailed(from, copy.error);
}

void TableCopyWindow::CopyMemberFile(const std::filesystem::path& from,
                                     const std::filesystem::path& to) {
    const auto copy = CopyTableFile(from, to, TableFormat::NameList);
    if (copy.outcome == TableCopy::KeptTarget)
        NotCopied(from, Load(sid::NotCopiedDamaged));
    else if (copy.outcome != TableCopy::Copied)
        NotCopied(from, FileErrorText(copy.error, strings_));
}

void TableCopyWindow::NotCopied(const std::filesystem::path& file, const std::string& reason) {
    notCopied_.push_back(PathText(file) + ": " + reason);
}

void TableCopyWindow::Finish(int completedId) {
    if (!notCopied_.empty()) {
        std::string report = Load(sid::FilesNotCopied);
        for (const auto& line : notCopied_) report += "\r\n" + line;
        notCopied_.clear();
        Box(report, MbExclamation);
    }
    Box(Load(completedId), MbInformation);
    busy = false;
    closed = true;
}

}  // namespace parlane
