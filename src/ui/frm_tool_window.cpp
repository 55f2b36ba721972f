#include "ui/frm_tool_window.h"

#include <algorithm>
#include <cstdint>

#include "core/settings_store.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

constexpr int kNoteTips[frmToolWindow::kNotes] = {sid::TipNote1, sid::TipNote2, sid::TipNote3,
                                                  sid::TipNote4, sid::TipNote5, sid::TipNote6};

}  // namespace

void frmToolWindow::Form_Load() {
    Caption = main_.LoadResString(sid::TitleFrmToolWindow);
    for (int i = 0; i < kNotes; ++i) ShowNoteName(i + 1, main_.LoadResString(kNoteTips[i]));
    picToolIconsToolTipText[kSignatureIcon] = main_.LoadResString(sid::DefaultSignature);
    picToolIconsToolTipText[kTimeIcon] = main_.LoadResString(sid::TipTime);
    picToolIconsToolTipText[kDateIcon] = main_.LoadResString(sid::TipDate);
    mnuEdit.Caption = main_.LoadResString(sid::MenuSettings);
    mnuSig.Caption = main_.LoadResString(sid::MenuSig);
    for (int n = 1; n <= kNotes; ++n) {
        const std::string name = main_.settings().Get(key::TextName(n));
        if (!name.empty()) ShowNoteName(n, name);
    }
}

void frmToolWindow::ShowNoteName(int n, const std::string& name) {
    picToolIconsToolTipText[static_cast<std::size_t>(n - 1)] = name;
    mnuNote[static_cast<std::size_t>(n - 1)].Caption = name;
}

std::string frmToolWindow::IconText(int index) {
    const Settings& settings = main_.settings();
    if (index >= 0 && index < kNotes) return settings.Get(key::TextNote(index + 1));
    const WallClockMs now = main_.platform().loop.wallClock();
    switch (index) {
        case kSignatureIcon:
            return settings.Get(key::Signature, main_.LoadResString(sid::DefaultSignature));
        case kTimeIcon:
            return main_.platform().formats.shortTime(now);
        case kDateIcon:
            return main_.platform().formats.shortDate(now);
        default:
            return {};
    }
}

bool frmToolWindow::picToolIcons_Click(int index) {
    std::string text = main_.txtMessage.Text + IconText(index);
    if (text.empty()) return false;
    if (const auto limit = TotalLimit(main_.lblTotal);
        limit && *limit < static_cast<int>(text.size()))
        text.resize(static_cast<std::size_t>(std::max(*limit, 0)));
    main_.txtMessage.Text = std::move(text);
    main_.txtMessage.SelStart = static_cast<int>(main_.txtMessage.Text.size());
    main_.txtMessage.SelLength = 0;
    main_.focusedControl = "txtMessage";
    main_.changed();
    return true;
}

void frmToolWindow::mnuSig_Click() {
    auto& settings = main_.settings();
    const std::string answer = main_.platform().dialogues.inputBox(
        main_.LoadResString(sid::EnterSignature), main_.globals().strings.ProductName(),
        settings.Get(key::Signature, main_.LoadResString(sid::DefaultSignature)));
    if (!answer.empty()) settings.Save(key::Signature, answer);
}

void frmToolWindow::mnuNote_Click(int n) {
    if (n < 1 || n > kNotes) return;
    auto& settings = main_.settings();
    auto& dialogues = main_.platform().dialogues;
    const std::string title = main_.globals().strings.ProductName();
    const std::string number = " " + std::to_string(n);
    const std::string text = dialogues.inputBox(main_.LoadResString(sid::EnterNoteText) + number,
                                                title, settings.Get(key::TextNote(n)));
    if (text.empty()) return;
    settings.Save(key::TextNote(n), text);
    const std::string name = dialogues.inputBox(main_.LoadResString(sid::EnterNoteName) + number,
                                                title, settings.Get(key::TextName(n)));
    if (name.empty()) return;
    settings.Save(key::TextName(n), name);
    ShowNoteName(n, name);
}

ScreenPoint ToolWindowTopLeft(const ScreenRect& main, const ScreenRect& screen, int toolWidth) {
    const int x =
        main.right() + toolWidth <= screen.right() ? main.right() : screen.right() - toolWidth;
    return {x, main.top};
}

}  // namespace parlane
