#pragma once
// frmDebug, "Monitor SMSC": the telephony log and the bytes to and from the centre, collected
// from start-up whether the window shows or not, and saved to a text file on demand. These
// texts are their only store; nothing goes to disk until the user saves.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace parlane {

class frmMain;

// A text box written only by inserting at its caret. A view mirrors it by making the same
// inserts, so a long call never sets the whole text again.
class CaretTextBox {
  public:
    const std::string& Text() const { return text_; }
    std::size_t SelStart() const { return selStart_; }
    // The user put the caret elsewhere; past the end means the end.
    void SetSelStart(std::size_t position);
    // Inserts at the caret and leaves the caret behind what was inserted.
    void InsertAtCaret(const std::string& text);
    void Clear();

    // The view: each insert with its place, and each emptying.
    std::function<void(std::size_t at, const std::string& text)> inserted;
    std::function<void()> cleared;

  private:
    std::string text_;
    std::size_t selStart_ = 0;
};

// "Parlane 1.02.33": the minor version always has two digits.
std::string DebugVersionLine(const std::string& product, int major, int minor, int revision);
// What Save writes: the three texts under their fixed English headings, then the version line.
std::string DebugFileText(const std::string& log, const std::string& sent,
                          const std::string& received, const std::string& versionLine);
// The first system-information program found in the folders of `searchPath` (a PATH value);
// empty when there is none.
std::filesystem::path FindSystemInfoTool(const std::string& searchPath);

class frmDebug {
  public:
    // Past this many characters in FromServer both line panes are emptied.
    static constexpr std::size_t kLinePaneLimit = 30000;

    explicit frmDebug(frmMain& main);
    void LoadFormCaptions();
    std::string Caption;
    // The panes' captions (by pane name) and the buttons' tool tips (by button name).
    std::map<std::string, std::string> Captions, ToolTips;

    // Text1, the telephony log, is the main window's debug log.
    const std::string& Text1() const;
    CaretTextBox ToServer, FromServer;

    // Text sent to the centre, with as many dots in FromServer, so the panes read in step.
    void Sent(const std::string& text);
    // What the centre sent, as shown: control bytes already written as "<n>".
    void Received(const std::string& echo);
    // Both line panes go when FromServer has grown past its limit.
    void BoundLinePanes();

    bool Visible = false;
    void Show();
    void cmdExit_Click();
    void cmdSave_Click();
    void cmdSystem_Click();

    // The view: shown or hidden, or captions changed; a line added to the log.
    std::function<void()> changed;
    std::function<void()> logChanged;
    // Starts a program without waiting for it; false when it could not be started.
    std::function<bool(const std::filesystem::path& program)> startProgram;
    // Where the system-information program is looked for; $PATH unless a test sets it.
    std::string systemInfoSearchPath;

  private:
    frmMain& main_;
};

}  // namespace parlane
