#pragma once
// The toolbar of three-image icons shared by the main window, the folder browser and the
// standard-texts window: which image each icon shows as the pointer moves and presses, and where
// the icons of the top row stand.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace parlane {

enum class IconLook { Normal, Highlight, Down };

// Any window the pointer can be over; 0 is none.
using WindowId = std::uintptr_t;

// What the toolbar rules need of the form that carries the icons.
class ToolbarForm {
  public:
    virtual ~ToolbarForm() = default;
    virtual WindowId IconWindow(int index) const = 0;
    virtual WindowId WindowUnderPointer() const = 0;
    virtual void ShowLook(int index, IconLook look) = 0;
    // Lets pending events run, so that a press shows before its command starts.
    virtual void DoEvents() {}
};

struct ToolbarState {
    int hot = -1;  // the icon shown highlighted, -1 for none
    WindowId lastWindow = 0;
};

// Pointer movement over icon `index`.
void ToolbarHot(ToolbarState& state, ToolbarForm& form, int index);
// Button down over an icon.
void ToolbarPress(ToolbarState& state, ToolbarForm& form, int index);
// Button up (highlighted: the pointer is still over the icon), and pointer movement over the
// form or one of its frames (highlighted false).
void ToolbarRelease(ToolbarState& state, ToolbarForm& form, bool highlighted);

// ----- Layout of the top row -----

struct ToolbarIcon {
    int width = 0;
    std::string Tag;  // "<..." draws a divider before the icon, ">..." after it
};

struct ToolbarGeometry {
    std::vector<int> iconLeft;  // x of each laid-out icon
    std::vector<int> dividers;  // x of each etched divider (two pixels wide)
    int rightControlLeft = -1;  // x of the right-hand control, -1 when there is none
};

inline constexpr int kToolbarGripWidth = 12;   // the two grip bars and their margin
inline constexpr int kToolbarGap = 2;          // between neighbouring icons
inline constexpr int kToolbarDividerSlot = 6;  // the room a divider takes
inline constexpr int kToolbarRightMargin = 4;  // between the right control and the bar's end

// Places the first `count` icons from the left and the right control (width 0: none) at the
// right end of a bar `barWidth` wide.
ToolbarGeometry ToolbarLayout(const std::vector<ToolbarIcon>& icons, int count,
                              int rightControlWidth, int barWidth);

// ----- The main window's icons -----

struct ToolbarIconInfo {
    int tipId;
    const char* Tag;
};

// Icons 0 to 6 in the top row, 7 to 10 in the directory frame, 11 to 13 in the group frame.
inline constexpr int kMainToolbarCount = 14;
inline constexpr int kMainToolbarRow = 7;
extern const std::array<ToolbarIconInfo, kMainToolbarCount> kMainToolbarIcons;

}  // namespace parlane
