#include "qt/toolbar_widget.h"

#include <qdrawutil.h>

#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QPainter>

#include "qt/artwork.h"
#include "qt/qt_text.h"

namespace parlane {

// One icon: a picture with three looks, drawn from one image. Hot is raised and lighter, down
// is sunken and moved one pixel right and down.
class ToolIcon : public QWidget {
  public:
    ToolIcon(ToolbarWidget* bar, int index, const char* artwork, int imageSize)
        : QWidget(bar), bar_(bar), index_(index) {
        setObjectName(QStringLiteral("picToolIcons_%1").arg(index));
        setMouseTracking(true);
        setFixedSize(imageSize + 4, imageSize + 4);
        normal_ = ParlanePixmap(artwork, imageSize);
        lighter_ = normal_;
        QPainter p(&lighter_);
        p.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        p.fillRect(lighter_.rect(), QColor(255, 255, 255, 56));
        p.end();
        const QString ownDisabled = ArtworkPath(QString::fromLatin1(artwork) + "_disabled");
        disabled_ = IsOwnArtwork(artwork) && QFile::exists(ownDisabled)
                        ? ArtworkIcon(QString::fromLatin1(artwork) + "_disabled")
                              .pixmap(imageSize, imageSize)
                        : QIcon(normal_).pixmap(imageSize, imageSize, QIcon::Disabled);
    }

    IconLook look = IconLook::Normal;
    void setLook(IconLook l) {
        if (look == l) return;
        look = l;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const QRect r = rect();
        const bool down = look == IconLook::Down && isEnabled();
        const bool lit = look == IconLook::Highlight && isEnabled();
        if (down || lit) qDrawShadePanel(&p, r, palette(), down, 1);
        const QPixmap& picture = !isEnabled() ? disabled_ : lit ? lighter_ : normal_;
        p.drawPixmap(down ? 3 : 2, down ? 3 : 2, picture);
    }
    void mouseMoveEvent(QMouseEvent*) override { bar_->hot(index_); }
    void mousePressEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton) bar_->press(index_);
    }
    void mouseReleaseEvent(QMouseEvent* e) override {
        if (e->button() != Qt::LeftButton) return;
        const bool over = rect().contains(e->position().toPoint());
        bar_->release(over);
        if (over && isEnabled()) emit bar_->clicked(index_);
    }
    void leaveEvent(QEvent*) override { bar_->pointerLeft(); }

  private:
    ToolbarWidget* bar_;
    int index_;
    QPixmap normal_, lighter_, disabled_;
};

// The toolbar rules' view of this bar: icons are windows, as is whatever the pointer is over.
class ToolbarWidget::Rules : public ToolbarForm {
  public:
    explicit Rules(ToolbarWidget& bar) : bar_(bar) {}
    WindowId IconWindow(int index) const override {
        return reinterpret_cast<WindowId>(bar_.icons_[static_cast<std::size_t>(index)]);
    }
    WindowId WindowUnderPointer() const override {
        return reinterpret_cast<WindowId>(QApplication::widgetAt(QCursor::pos()));
    }
    void ShowLook(int index, IconLook look) override {
        bar_.icons_[static_cast<std::size_t>(index)]->setLook(look);
    }
    // Painting the pressed icon at once is all a press needs to show before its command.
    void DoEvents() override {
        if (bar_.state_.hot >= 0) bar_.icons_[static_cast<std::size_t>(bar_.state_.hot)]->repaint();
    }

  private:
    ToolbarWidget& bar_;
};

ToolbarWidget::ToolbarWidget(LoadString loadString, std::vector<Icon> icons, int rowCount,
                             int imageSize, QWidget* parent)
    : QWidget(parent),
      loadString_(std::move(loadString)),
      iconInfo_(std::move(icons)),
      rowCount_(rowCount),
      rules_(std::make_unique<Rules>(*this)) {
    setMouseTracking(true);
    for (std::size_t i = 0; i < iconInfo_.size(); ++i) {
        auto* icon = new ToolIcon(this, static_cast<int>(i), iconInfo_[i].artwork, imageSize);
        icon->setVisible(static_cast<int>(i) < rowCount_);
        icons_.push_back(icon);
    }
    refreshTips();
    relayout();
}

ToolbarWidget::~ToolbarWidget() = default;

std::vector<ToolbarWidget::Icon> ToolbarWidget::MainWindowIcons() {
    std::vector<Icon> icons;
    for (int i = 0; i < kMainToolbarCount; ++i) {
        const auto& info = kMainToolbarIcons[static_cast<std::size_t>(i)];
        icons.push_back({kMainToolbarArtwork[static_cast<std::size_t>(i)], info.tipId, info.Tag});
    }
    return icons;
}

QWidget* ToolbarWidget::icon(int index) const {
    return index >= 0 && index < iconCount() ? icons_[static_cast<std::size_t>(index)] : nullptr;
}

void ToolbarWidget::setRightWidget(QWidget* widget) {
    right_ = widget;
    if (widget) {
        widget->setParent(this);
        widget->show();
    }
    relayout();
}

void ToolbarWidget::setIconEnabled(int index, bool enabled) {
    if (QWidget* w = icon(index)) {
        w->setEnabled(enabled);
        if (!enabled) icons_[static_cast<std::size_t>(index)]->setLook(IconLook::Normal);
    }
}

bool ToolbarWidget::iconEnabled(int index) const {
    const QWidget* w = icon(index);
    return w && w->isEnabled();
}

IconLook ToolbarWidget::iconLook(int index) const {
    return icons_.at(static_cast<std::size_t>(index))->look;
}

void ToolbarWidget::refreshTips() {
    for (std::size_t i = 0; i < icons_.size(); ++i)
        icons_[i]->setToolTip(ToQt(loadString_(iconInfo_[i].tipId)));
}

QSize ToolbarWidget::sizeHint() const {
    std::vector<ToolbarIcon> row;
    for (std::size_t i = 0; i < icons_.size(); ++i)
        row.push_back({icons_[i]->width(), iconInfo_[i].Tag});
    const ToolbarGeometry g = ToolbarLayout(row, rowCount_, 0, 0);
    int width = g.iconLeft.empty() ? kToolbarGripWidth
                                   : g.iconLeft.back() + icons_[g.iconLeft.size() - 1]->width();
    int height = icons_.empty() ? 24 : icons_.front()->height();
    if (right_) {
        width += 4 * kToolbarGap + right_->sizeHint().width();
        height = std::max(height, right_->sizeHint().height());
    }
    return {width + kToolbarRightMargin, height + 8};
}

void ToolbarWidget::relayout() {
    std::vector<ToolbarIcon> row;
    for (std::size_t i = 0; i < icons_.size(); ++i)
        row.push_back({icons_[i]->width(), iconInfo_[i].Tag});
    const int rightWidth = right_ ? right_->sizeHint().width() : 0;
    const ToolbarGeometry g = ToolbarLayout(row, rowCount_, rightWidth, width());
    for (std::size_t i = 0; i < g.iconLeft.size(); ++i)
        icons_[i]->move(g.iconLeft[i], (height() - icons_[i]->height()) / 2);
    dividers_ = g.dividers;
    if (right_) {
        const int h = right_->sizeHint().height();
        right_->setGeometry(g.rightControlLeft, (height() - h) / 2, rightWidth, h);
    }
    update();
}

void ToolbarWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QPalette& pal = palette();
    // The etched rule under the menu bar and around the bar.
    qDrawShadeRect(&p, rect(), pal, true, 1);
    const int top = 4, length = height() - 8;
    for (int x : {4, 8}) qDrawShadePanel(&p, x, top, 3, length, pal, false, 1);
    for (int x : dividers_) qDrawShadeLine(&p, x + 1, top, x + 1, top + length, pal, true, 1, 0);
}

void ToolbarWidget::resizeEvent(QResizeEvent*) {
    relayout();
}

void ToolbarWidget::mouseMoveEvent(QMouseEvent*) {
    release(false);
}

void ToolbarWidget::leaveEvent(QEvent*) {
    pointerLeft();
}

// Leaving for another icon is left to that icon's own movement: counting it as the pointer's
// last window now would keep the icon from lighting up.
void ToolbarWidget::pointerLeft() {
    const QWidget* under = QApplication::widgetAt(QCursor::pos());
    for (const ToolIcon* icon : icons_)
        if (icon == under && icon->isEnabled()) return;
    release(false);
}

void ToolbarWidget::hot(int index) {
    ToolbarHot(state_, *rules_, index);
}

void ToolbarWidget::press(int index) {
    ToolbarPress(state_, *rules_, index);
}

void ToolbarWidget::release(bool highlighted) {
    ToolbarRelease(state_, *rules_, highlighted);
}

}  // namespace parlane
