#include "qt/qt_file_choosers.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QStringList>

#include "qt/qt_text.h"

namespace parlane {
namespace {

bool NoScreen() {
    return QGuiApplication::platformName() == "offscreen";
}

// An empty answer is a cancelled dialogue.
std::optional<std::filesystem::path> Chosen(const QString& chosen) {
    if (chosen.isEmpty()) return std::nullopt;
    return PathFromQt(chosen);
}

}  // namespace

QString PathToQt(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

std::filesystem::path PathFromQt(const QString& path) {
    return std::filesystem::path(path.toStdString());
}

QString QtFileFilter(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // Several patterns are divided by ";" in the program's filters, by blanks in Qt's.
        const QString patterns = parts[i + 1].split(';', Qt::SkipEmptyParts).join(' ');
        const QString& text = parts[i];
        filters << (text.contains('(' + patterns + ')') ? text : text + " (" + patterns + ')');
    }
    return filters.join(";;");
}

std::optional<std::filesystem::path> QtOpenFileChooser::chooseOpenFile(
    const std::string& title, const std::filesystem::path& startFolder,
    const std::string& defaultName, const std::string& filter) {
    if (NoScreen()) return std::nullopt;
    // A wildcard default is only the filter again; a real name is offered in the start folder.
    const bool wildcard = defaultName.find_first_of("*?") != std::string::npos;
    const auto start =
        wildcard || defaultName.empty() ? startFolder : startFolder / Cp1252ToUtf8(defaultName);
    return Chosen(
        QFileDialog::getOpenFileName(owner_, ToQt(title), PathToQt(start), QtFileFilter(filter)));
}

std::optional<std::filesystem::path> QtOpenFileChooser::chooseSaveFile(
    const std::string& title, const std::filesystem::path& startFolder,
    const std::string& defaultName, const std::string& defaultExtension,
    const std::string& filter) {
    if (NoScreen()) return std::nullopt;
    QFileDialog dialog(owner_, ToQt(title), PathToQt(startFolder), QtFileFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ToQt(defaultExtension));
    // The caller asks its own question about a file that is there.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.selectFile(ToQt(defaultName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return Chosen(dialog.selectedFiles().first());
}

std::optional<std::filesystem::path> QtFolderChooser::chooseFolder(
    const std::string& title, const std::filesystem::path& start) {
    if (NoScreen()) return std::nullopt;
    return Chosen(QFileDialog::getExistingDirectory(owner_, ToQt(title), PathToQt(start)));
}

}  // namespace parlane
