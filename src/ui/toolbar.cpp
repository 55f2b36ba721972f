#include "ui/toolbar.h"

#include <algorithm>

#include "core/string_ids.h"

namespace parlane {

void ToolbarHot(ToolbarState& state, ToolbarForm& form, int index) {
    const WindowId under = form.WindowUnderPointer();
    if (under == state.lastWindow) return;
    state.lastWindow = under;
    if (state.hot >= 0) form.ShowLook(state.hot, IconLook::Normal);
    if (under == form.IconWindow(index)) {
        state.hot = index;
        form.ShowLook(index, IconLook::Highlight);
    }
}

void ToolbarPress(ToolbarState& state, ToolbarForm& form, int /*index*/) {
    if (state.hot < 0) return;
    state.lastWindow = form.IconWindow(state.hot);
    form.ShowLook(state.hot, IconLook::Down);
    form.DoEvents();
}

void ToolbarRelease(ToolbarState& state, ToolbarForm& form, bool highlighted) {
    if (state.hot < 0) return;
    if (highlighted) {
        form.ShowLook(state.hot, IconLook::Highlight);
        return;
    }
    form.ShowLook(state.hot, IconLook::Normal);
    const WindowId under = form.WindowUnderPointer();
    if (under != form.IconWindow(state.hot)) {
        state.lastWindow = under;
        state.hot = -1;
    }
}

ToolbarGeometry ToolbarLayout(const std::vector<ToolbarIcon>& icons, int count,
                              int rightControlWidth, int barWidth) {
    ToolbarGeometry g;
    count = std::clamp(count, 0, static_cast<int>(icons.size()));
    int x = kToolbarGripWidth;
    // The icon before ends a gap before x: the divider's two pixels stand 3 px from either icon.
    auto divider = [&] {
        g.dividers.push_back(x + 1);
        x += kToolbarDividerSlot;
    };
    for (int i = 0; i < count; ++i) {
        const ToolbarIcon& icon = icons[static_cast<std::size_t>(i)];
        if (icon.Tag.starts_with('<')) divider();
        g.iconLeft.push_back(x);
        x += icon.width + kToolbarGap;
        if (icon.Tag.starts_with('>')) divider();
    }
    if (rightControlWidth > 0)
        g.rightControlLeft = barWidth - kToolbarRightMargin - rightControlWidth;
    return g;
}

const std::array<ToolbarIconInfo, kMainToolbarCount> kMainToolbarIcons{{
    {sid::TipSendMessages, ""},
    {sid::TipQueueMessage, ""},
    {sid::TipStop, ""},
    {sid::TipSentMessages, "<"},
    {sid::TipHelp, "<"},
    {sid::TipWhatsThis, ""},
    {sid::TipExit, "<"},
    {sid::TipAddNewEntry, ""},
    {sid::TipEditCurrentEntry, ""},
    {sid::TipDeleteCurrentEntry, ""},
    {sid::TipAddToGroupList, ""},
    {sid::TipUseThisGroupList, ""},
    {sid::TipAddNewGroup, ""},
    {sid::TipDeleteCurrentGroup, ""},
}};

}  // namespace parlane
