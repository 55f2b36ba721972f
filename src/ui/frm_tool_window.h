#pragma once
// frmToolWindow, "Standard Texts": nine icons that add a stored note, the signature, the time or
// the date to the end of the message, and a menu to edit the notes and the signature.

#include <array>
#include <string>

#include "ui/controls.h"

namespace parlane {

class frmMain;

class frmToolWindow {
  public:
    static constexpr int kIcons = 9;
    static constexpr int kNotes = 6;
    // Icons 0 to 5 are the notes, then these.
    static constexpr int kSignatureIcon = 6, kTimeIcon = 7, kDateIcon = 8;

    explicit frmToolWindow(frmMain& main) : main_(main) {}

    // Captions, then each note's name where the user gave one.
    void Form_Load();
    // Adds the icon's text to the end of txtMessage, cut at the limit of lblTotal. True when the
    // focus went to txtMessage (nothing happens when the message would stay empty).
    bool picToolIcons_Click(int index);
    void mnuSig_Click();
    // Note n, 1 to 6: its text, then its name, through input boxes.
    void mnuNote_Click(int n);
    void mnu1_Click() { mnuNote_Click(1); }
    void mnu2_Click() { mnuNote_Click(2); }
    void mnu3_Click() { mnuNote_Click(3); }
    void mnu4_Click() { mnuNote_Click(4); }
    void mnu5_Click() { mnuNote_Click(5); }
    void mnu6_Click() { mnuNote_Click(6); }

    std::string Caption;
    std::array<std::string, kIcons> picToolIconsToolTipText;
    MenuItem mnuEdit, mnuSig;
    std::array<MenuItem, kNotes> mnuNote;  // mnu1 to mnu6

  private:
    std::string IconText(int index);
    void ShowNoteName(int n, const std::string& name);

    frmMain& main_;
};

struct ScreenRect {
    int left = 0, top = 0, width = 0, height = 0;
    int right() const { return left + width; }
};
struct ScreenPoint {
    int x = 0, y = 0;
};

// Where the tool window goes: top level with the main window, directly to its right when the
// screen has room there, otherwise against the screen's right edge.
ScreenPoint ToolWindowTopLeft(const ScreenRect& main, const ScreenRect& screen, int toolWidth);

}  // namespace parlane
