#pragma once
// The main window's menu tree: every entry with its control name, the string id of its caption,
// its parent, whether a rule stands before it, and the handler it runs. Views build their menus
// from it; MenuRefresh and LoadFormCaptions set the captions from it.

#include <span>

#include "ui/controls.h"

namespace parlane {

class frmMain;

struct MenuEntry {
    const char* name;
    int id;              // 0: no caption (the pop-ups)
    const char* parent;  // "" for the menu bar, or the name of the menu or pop-up it sits in
    bool ruleBefore;
    MenuItem frmMain::*item;
    void (frmMain::*handler)();     // null for menus and submenus
    bool keepsLoadCaption = false;  // MenuRefresh leaves it alone
    bool popup = false;             // a context menu, never in the menu bar
};

std::span<const MenuEntry> MainMenuTree();
// The entry of a control name; null when there is none.
const MenuEntry* FindMenuEntry(const char* name);

}  // namespace parlane
