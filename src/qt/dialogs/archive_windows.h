#pragma once
// The sent-message archive as Qt views: the folder browser (frmFolders with frmFolderAdd and
// frmMove) and the viewer (frmOpen), printing through the system's print dialogue.

#include <string>

class QWidget;

namespace parlane {

class frmMain;

// mnuLog and toolbar icon 3: modal, returns when the browser has closed.
void ShowFoldersWindow(QWidget* owner, frmMain& main);
// The viewer on one file's content.
void ShowOpenMessageWindow(QWidget* owner, frmMain& main, const std::string& content);

}  // namespace parlane
