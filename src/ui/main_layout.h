#pragma once
// Where the main window's frames stand, in twips (15 to a pixel at 96 dots per inch). The queue
// panel adds 1770 twips of height under the compose frames, the group panel 3190 twips of width
// at their right; the status line always sits at the bottom.

namespace parlane {

struct TwipRect {
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int Right() const { return Left + Width; }
    int Bottom() const { return Top + Height; }
    bool operator==(const TwipRect&) const = default;
};

inline constexpr int kQueuePanelHeight = 1770;
inline constexpr int kGroupPanelWidth = 3190;

struct MainLayout {
    int Width = 0, Height = 0;  // the window's client area
    TwipRect toolbar, fraLogo, fraMobile, fraDirectory, fraGroup, fraQueue, lblInfo;
    // The queue list and its text box inside fraQueue: the frame's width less 300 twips.
    int MessageQueueWidth = 0;
    int MessageQueueColumns = 2;
    bool operator==(const MainLayout&) const = default;
};

MainLayout MainWindowLayout(bool queueShown, bool groupShown);

}  // namespace parlane
