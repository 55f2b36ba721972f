#include "ui/main_layout.h"

namespace parlane {
namespace {
constexpr int kMargin = 120;
constexpr int kToolbarHeight = 600;
constexpr int kFramesTop = kToolbarHeight + 60;
constexpr int kComposeHeight = 3420;
constexpr int kStatusHeight = 360;
constexpr int kBaseWidth = 9000;
}  // namespace

MainLayout MainWindowLayout(bool queueShown, bool groupShown) {
    MainLayout l;
    l.Width = kBaseWidth + (groupShown ? kGroupPanelWidth : 0);
    l.toolbar = {0, 0, l.Width, kToolbarHeight};
    l.fraLogo = {kMargin, kFramesTop, 4440, kComposeHeight};
    l.fraMobile = {l.fraLogo.Right() + kMargin, kFramesTop, 4200, 2340};
    l.fraDirectory = {l.fraMobile.Left, l.fraMobile.Bottom() + 60, l.fraMobile.Width,
                      kComposeHeight - l.fraMobile.Height - 60};
    l.fraGroup = {l.fraMobile.Right() + kMargin, kFramesTop, kGroupPanelWidth - kMargin - 60,
                  kComposeHeight};
    const int composeBottom = l.fraLogo.Bottom() + 60;
    // The queue frame reaches the right edge of the rightmost frame shown.
    const int queueRight = groupShown ? l.fraGroup.Right() : l.fraMobile.Right();
    l.fraQueue = {kMargin, composeBottom, queueRight - kMargin, kQueuePanelHeight - 60};
    l.MessageQueueWidth = l.fraQueue.Width - 300;
    l.MessageQueueColumns = groupShown ? 3 : 2;
    const int statusTop = composeBottom + (queueShown ? kQueuePanelHeight : 0);
    l.lblInfo = {kMargin, statusTop, l.Width - 2 * kMargin, kStatusHeight};
    l.Height = l.lblInfo.Bottom() + 60;
    return l;
}

}  // namespace parlane
