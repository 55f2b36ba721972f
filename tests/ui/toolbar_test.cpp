#include "ui/toolbar.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace parlane {
namespace {

// Icon i is window 100 + i; the form background is window 1.
class FakeToolbar : public ToolbarForm {
  public:
    WindowId pointer = 1;
    std::vector<std::pair<int, IconLook>> shown;
    int eventsRun = 0;

    WindowId IconWindow(int index) const override { return 100 + static_cast<WindowId>(index); }
    WindowId WindowUnderPointer() const override { return pointer; }
    void ShowLook(int index, IconLook look) override { shown.emplace_back(index, look); }
    void DoEvents() override { ++eventsRun; }

    void overIcon(int i) { pointer = IconWindow(i); }
    std::vector<std::pair<int, IconLook>> take() { return std::exchange(shown, {}); }
};

using L = IconLook;
using Shown = std::vector<std::pair<int, IconLook>>;

TEST(Toolbar, PointerMovesHighlightFromIconToIcon) {
    FakeToolbar form;
    ToolbarState s;
    form.overIcon(1);
    ToolbarHot(s, form, 1);
    EXPECT_EQ(form.take(), (Shown{{1, L::Highlight}}));
    EXPECT_EQ(s.hot, 1);

    ToolbarHot(s, form, 1);  // more movement over the same icon repaints nothing
    EXPECT_TRUE(form.take().empty());

    form.overIcon(3);
    ToolbarHot(s, form, 3);
    EXPECT_EQ(form.take(), (Shown{{1, L::Normal}, {3, L::Highlight}}));
    EXPECT_EQ(s.hot, 3);

    // A move event for an icon the pointer is not over only puts the old one back.
    form.pointer = 1;
    ToolbarHot(s, form, 4);
    EXPECT_EQ(form.take(), (Shown{{3, L::Normal}}));
}

TEST(Toolbar, PressAndReleaseOverAndOffTheIcon) {
    FakeToolbar form;
    ToolbarState s;
    ToolbarPress(s, form, 0);  // nothing hot: nothing happens
    ToolbarRelease(s, form, true);
    EXPECT_TRUE(form.take().empty());
    EXPECT_EQ(form.eventsRun, 0);

    form.overIcon(2);
    ToolbarHot(s, form, 2);
    form.take();
    ToolbarPress(s, form, 2);
    EXPECT_EQ(form.take(), (Shown{{2, L::Down}}));
    EXPECT_EQ(form.eventsRun, 1);
    ToolbarHot(s, form, 2);  // the press keeps its look while the pointer stays
    EXPECT_TRUE(form.take().empty());

    ToolbarRelease(s, form, true);
    EXPECT_EQ(form.take(), (Shown{{2, L::Highlight}}));
    EXPECT_EQ(s.hot, 2);

    // Movement over the form while the pointer is still on the icon: normal, but it stays hot.
    ToolbarRelease(s, form, false);
    EXPECT_EQ(form.take(), (Shown{{2, L::Normal}}));
    EXPECT_EQ(s.hot, 2);

    // Pressed, then released away from the icon: normal, and nothing is hot any more.
    ToolbarPress(s, form, 2);
    form.pointer = 1;
    ToolbarRelease(s, form, false);
    EXPECT_EQ(form.take(), (Shown{{2, L::Down}, {2, L::Normal}}));
    EXPECT_EQ(s.hot, -1);
    EXPECT_EQ(s.lastWindow, WindowId{1});
    ToolbarRelease(s, form, false);
    EXPECT_TRUE(form.take().empty());

    // Coming back to the icon lights it again.
    form.overIcon(2);
    ToolbarHot(s, form, 2);
    EXPECT_EQ(form.take(), (Shown{{2, L::Highlight}}));
}

TEST(Toolbar, LayoutRunsLeftToRightWithDividersAndRightControl) {
    const std::vector<ToolbarIcon> icons{{36, ""},       {36, ">"}, {30, "<"},
                                         {36, "<after"}, {36, ""},  {99, ""}};
    const ToolbarGeometry g = ToolbarLayout(icons, 5, 120, 600);
    const int x0 = kToolbarGripWidth, step = 36 + kToolbarGap, slot = kToolbarDividerSlot;
    const int x2 = x0 + 2 * step + 2 * slot;      // icon 1's ">" and icon 2's "<"
    const int x3 = x2 + 30 + kToolbarGap + slot;  // a third divider before icon 3
    EXPECT_EQ(g.iconLeft, (std::vector<int>{x0, x0 + step, x2, x3, x3 + step}));
    ASSERT_EQ(g.dividers.size(), 3u);
    // Each divider stands clear of its neighbours, icons and dividers alike.
    EXPECT_GT(g.dividers[0], x0 + step + 36);
    EXPECT_GT(g.dividers[1], g.dividers[0] + 2);
    EXPECT_LT(g.dividers[1] + 2, x2);
    EXPECT_GT(g.dividers[2], x2 + 30);
    EXPECT_LT(g.dividers[2] + 2, x3);
    EXPECT_EQ(g.rightControlLeft, 600 - kToolbarRightMargin - 120);

    const ToolbarGeometry none = ToolbarLayout(icons, 20, 0, 600);
    EXPECT_EQ(none.iconLeft.size(), icons.size());
    EXPECT_EQ(none.rightControlLeft, -1);
    EXPECT_TRUE(ToolbarLayout(icons, 0, 0, 600).dividers.empty());
}

}  // namespace
}  // namespace parlane
