#pragma once
// A bar of three-look icons: etched rule, grip bars, dividers, the icons of the top row and an
// optional control at the right end. The looks follow the toolbar rules of ui/toolbar.h.

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/toolbar.h"

namespace parlane {

class ToolIcon;

class ToolbarWidget : public QWidget {
    Q_OBJECT
  public:
    struct Icon {
        const char* artwork;  // a name for ParlaneIcon
        int tipId;
        std::string Tag;  // "<" or ">" for a divider before or after
    };
    using LoadString = std::function<std::string(int id)>;

    // All icons are made (objectName picToolIcons_N); the first `rowCount` stand in the bar,
    // the others are hidden children the caller may move into frames of its own.
    ToolbarWidget(LoadString loadString, std::vector<Icon> icons, int rowCount, int imageSize = 32,
                  QWidget* parent = nullptr);
    ~ToolbarWidget() override;
    // The 14 icons of the main window.
    static std::vector<Icon> MainWindowIcons();

    int iconCount() const { return static_cast<int>(icons_.size()); }
    QWidget* icon(int index) const;
    // Placed at the right end of the bar; the bar keeps it sized to its hint.
    void setRightWidget(QWidget* widget);
    // A disabled icon shows its "<artwork>_disabled" drawing when there is one.
    void setIconEnabled(int index, bool enabled);
    bool iconEnabled(int index) const;
    IconLook iconLook(int index) const;
    // Tool tips again from the string bank, after a change of language.
    void refreshTips();
    QSize sizeHint() const override;

  signals:
    void clicked(int index);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    friend class ToolIcon;
    class Rules;
    void relayout();
    void hot(int index);
    void press(int index);
    void release(bool highlighted);
    void pointerLeft();

    LoadString loadString_;
    std::vector<Icon> iconInfo_;
    int rowCount_;
    std::vector<ToolIcon*> icons_;
    std::vector<int> dividers_;
    QPointer<QWidget> right_;
    ToolbarState state_;
    std::unique_ptr<Rules> rules_;
};

}  // namespace parlane
