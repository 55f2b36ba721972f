#include "qt/qt_shell_file_operations.h"

#include <QFile>

#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {

std::string QtShellFileOperations::Delete(const std::vector<std::filesystem::path>& sources) {
    std::vector<std::filesystem::path> noTrash;
    for (const auto& source : sources)
        if (!QFile::moveToTrash(QString::fromStdString(source.string()))) noTrash.push_back(source);
    if (noTrash.empty()) return {};
    // Nowhere to put them back from: they go for good only when the user says so.
    std::string names;
    for (std::size_t i = 0; i < noTrash.size() && i < 3; ++i)
        names += (i ? ", " : "") + noTrash[i].filename().string();
    if (noTrash.size() > 3) names += ", ...";
    if (main_.ShowMessageBox(main_.LoadResString(sid::AreYouCertainDelete) + " " + names + "?",
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
