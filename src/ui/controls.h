#pragma once
// Plain fields that a window's view mirrors: the view model side of each control.

#include <algorithm>
#include <string>
#include <vector>

#include "core/cp1252.h"

namespace parlane {

struct TextBox {
    std::string Text;
    bool Enabled = true;
    // The caret and selection, in bytes of Text.
    int SelStart = 0;
    int SelLength = 0;
};

struct Label {
    std::string Caption;
    bool Visible = true;
    bool Enabled = true;
};

// A list or combo box: rows, the selected row (-1 none) and, for a combo, its edit text.
struct ListControl {
    std::vector<std::string> rows;
    int ListIndex = -1;
    std::string Text;
    bool Enabled = true;
    // The caret and selection in the edit text of an editable combo box.
    int SelStart = 0;
    int SelLength = 0;
    // A sorted list keeps its rows in alphabetical order without regard to case.
    bool Sorted = false;

    int ListCount() const { return static_cast<int>(rows.size()); }
    // Returns the row the new item took.
    int AddItem(std::string row);
    // Replaces all rows at once (sorted once for a sorted list); nothing is selected.
    void SetItems(std::vector<std::string> items);
    // The first row equal to `text`, exact as to case; -1 when none is.
    int FindRow(const std::string& text) const;
    void Clear() {
        rows.clear();
        ListIndex = -1;
        Text.clear();
    }
    // Selecting a row shows its text, as a combo box does.
    void select(int index) {
        ListIndex = index;
        if (index >= 0 && index < ListCount()) Text = rows[static_cast<std::size_t>(index)];
    }
    void RemoveItem(int index) {
        if (index < 0 || index >= ListCount()) return;
        rows.erase(rows.begin() + index);
        if (ListIndex == index)
            ListIndex = -1;
        else if (ListIndex > index)
            --ListIndex;
    }
};

inline int ListControl::AddItem(std::string row) {
    auto at = rows.end();
    if (Sorted) {
        const std::string key = Cp1252LowerCase(row);
        at = std::upper_bound(
            rows.begin(), rows.end(), key,
            [](const std::string& k, const std::string& r) { return k < Cp1252LowerCase(r); });
    }
    const int index = static_cast<int>(at - rows.begin());
    rows.insert(at, std::move(row));
    if (ListIndex >= index) ++ListIndex;
    return index;
}

inline void ListControl::SetItems(std::vector<std::string> items) {
    if (Sorted) {
        // Each row is lowered once, not at every comparison.
        std::vector<std::pair<std::string, std::string>> keyed;
        keyed.reserve(items.size());
        for (auto& item : items) keyed.emplace_back(Cp1252LowerCase(item), std::move(item));
        std::stable_sort(keyed.begin(), keyed.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (std::size_t i = 0; i < keyed.size(); ++i) items[i] = std::move(keyed[i].second);
    }
    rows = std::move(items);
    ListIndex = -1;
}

inline int ListControl::FindRow(const std::string& text) const {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i] == text) return static_cast<int>(i);
    return -1;
}

struct CheckBox {
    std::string Caption;
    bool Value = false;
    bool Enabled = true;
};

struct MenuItem {
    std::string Caption;
    bool Enabled = true;
    bool Checked = false;
    bool Visible = true;
};

struct ProgressBar {
    bool Visible = false;
    int Value = 0;  // 0 to 100
};

}  // namespace parlane
