#pragma once
// Plain fields that a window's view mirrors: the view model side of each control.

#include <string>
#include <vector>

namespace parlane {

struct TextBox {
    std::string Text;
    bool Enabled = true;
};

struct Label {
    std::string Caption;
    bool Visible = true;
};

// A list or combo box: rows, the selected row (-1 none) and, for a combo, its edit text.
struct ListControl {
    std::vector<std::string> rows;
    int ListIndex = -1;
    std::string Text;
    bool Enabled = true;

    int ListCount() const { return static_cast<int>(rows.size()); }
    void AddItem(std::string row) { rows.push_back(std::move(row)); }
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

struct MenuItem {
    bool Enabled = true;
    bool Checked = false;
    bool Visible = true;
};

struct ProgressBar {
    bool Visible = false;
    int Value = 0;  // 0 to 100
};

}  // namespace parlane
