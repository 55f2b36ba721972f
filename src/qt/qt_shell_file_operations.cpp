#include "qt/qt_shell_file_operations.h"

#include <QFile>

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

namespace {

// "a.msg, b.msg, c.msg, ..." for a question.
std::string NamesOf(const std::vector<std::filesystem::path>& paths) {
    std::string names;
    for (std::size_t i = 0; i < paths.size() && i < 3; ++i)
        names += (i ? ", " : "") + paths[i].filename().string();
    if (paths.size() > 3) names += ", ...";
    return names;
}

}  // namespace

std::string QtShellFileOperations::Delete(const std::vector<std::filesystem::path>& sources) {
    // Asked first, as the desktop's own file manager asks.
    if (sources.empty() ||
        main_.ShowMessageBox(main_.LoadResString(sid::MoveToTrash) + " " + NamesOf(sources) + "?",
                             MbQuestionYesNo) != AnswerYes)
        return {};
    std::vector<std::filesystem::path> noTrash;
    for (const auto& source : sources)
        if (!QFile::moveToTrash(QString::fromStdString(source.string()))) noTrash.push_back(source);
    if (noTrash.empty()) return {};
    // Nowhere to put them back from: they go for good only when the user says so.
    if (main_.ShowMessageBox(
            main_.LoadResString(sid::AreYouCertainDelete) + " " + NamesOf(noTrash) + "?",
            MbQuestionYesNo) != AnswerYes)
        return {};
    for (const auto& source : noTrash) {
        std::error_code ec;
        std::filesystem::remove_all(source, ec);
        if (ec) return ec.message();
    }
    return {};
}

}  // namespace parlane
