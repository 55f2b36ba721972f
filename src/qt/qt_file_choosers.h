#pragma once
// The file-open, file-save and folder pickers as Qt's file dialogues. With no screen to show them
// on they answer as a user who cancelled, as QtDialogueHost does for its boxes.

#include <QString>
#include <QWidget>

#include "exchange/folder_chooser.h"
#include "exchange/open_file_chooser.h"

namespace parlane {

// Paths are native (UTF-8) on both sides, unlike the program's texts.
QString PathToQt(const std::filesystem::path& path);
std::filesystem::path PathFromQt(const QString& path);

// A filter of the program's form, "Text shown|*.ext" (pairs may follow, joined by "|"), as Qt
// writes it: "Text shown (*.ext)", pairs joined by ";;".
QString QtFileFilter(const std::string& filter);

class QtOpenFileChooser : public OpenFileChooser {
  public:
    void setOwner(QWidget* owner) { owner_ = owner; }
    std::optional<std::filesystem::path> chooseOpenFile(const std::string& title,
                                                        const std::filesystem::path& startFolder,
                                                        const std::string& defaultName,
                                                        const std::string& filter) override;
    std::optional<std::filesystem::path> chooseSaveFile(const std::string& title,
                                                        const std::filesystem::path& startFolder,
                                                        const std::string& defaultName,
                                                        const std::string& defaultExtension,
                                                        const std::string& filter) override;

  private:
    QWidget* owner_ = nullptr;
};

class QtFolderChooser : public FolderChooser {
  public:
    void setOwner(QWidget* owner) { owner_ = owner; }
    std::optional<std::filesystem::path> chooseFolder(const std::string& title,
                                                      const std::filesystem::path& start) override;

  private:
    QWidget* owner_ = nullptr;
};

}  // namespace parlane
