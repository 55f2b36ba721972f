// The main window's frames and controls. Frames stand where the model's layout puts them; the
// controls inside a frame follow the frame's size.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QVBoxLayout>

#include "core/string_ids.h"
#include "qt/key_rule.h"
#include "qt/main_window.h"
#include "qt/qt_text.h"

namespace parlane {
namespace {

QRect ToPixels(const TwipRect& r) {
    constexpr int t = MainWindow::kTwipsPerPixel;
    return {r.Left / t, r.Top / t, r.Width / t, r.Height / t};
}

QGroupBox* NewFrame(QWidget* parent, const char* name) {
    auto* frame = new QGroupBox(parent);
    frame->setObjectName(name);
    return frame;
}

}  // namespace

QLineEdit* MainWindow::addNumberField(QWidget* parent, const char* name, TextBox& box) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    connect(edit, &QLineEdit::textEdited, this, [this, &box](const QString& text) {
        if (!refreshing_) box.Text = FromQt(text);
    });
    new KeyRule(
        edit,
        [this](int key) {
            const int passed = form_.NumberField_KeyPress(key);
            namesTextChanged();  // a typed number is no directory entry's number
            return passed;
        },
        true);
    return edit;
}

void MainWindow::buildToolbar() {
    toolbar_ =
        new ToolbarWidget([this](int id) { return form_.LoadResString(id); },
                          ToolbarWidget::MainWindowIcons(), kMainToolbarRow, 28, centralWidget());
    toolbar_->setObjectName("picToolbar");
    connect(toolbar_, &ToolbarWidget::clicked, this,
            [this](int index) { run([this, index] { form_.picToolIcons_Click(index); }); });
    Services_ = new QComboBox(toolbar_);
    Services_->setObjectName("Services");
    // The bar sizes it to its hint: room for a centre's name.
    Services_->setMinimumContentsLength(24);
    Services_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    toolbar_->setRightWidget(Services_);
}

void MainWindow::buildCompose() {
    fraLogo_ = NewFrame(centralWidget(), "fraLogo");
    auto* box = new QVBoxLayout(fraLogo_);
    txtMessage_ = new QPlainTextEdit(fraLogo_);
    txtMessage_->setObjectName("txtMessage");
    txtMessage_->setTabChangesFocus(true);
    box->addWidget(txtMessage_, 1);
    auto* counters = new QHBoxLayout;
    lblmLable_ = new QLabel(fraLogo_);
    lblmLable_->setObjectName("lblmLable");
    lblTextCounter_ = new QLabel(fraLogo_);
    lblTextCounter_->setObjectName("lblTextCounter");
    lblTotal_ = new QLabel(fraLogo_);
    lblTotal_->setObjectName("lblTotal");
    counters->addStretch(1);
    counters->setSpacing(0);  // "42/160" reads as one figure
    counters->addWidget(lblmLable_);
    counters->addSpacing(4);
    counters->addWidget(lblTextCounter_);
    counters->addWidget(lblTotal_);
    box->addLayout(counters);
    // Which line the next message goes through, on a row of its own; it wraps rather than
    // widen the window.
    lblLine_ = new QLabel(fraLogo_);
    lblLine_->setObjectName("lblLine");
    lblLine_->setWordWrap(true);
    lblLine_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    box->addWidget(lblLine_);
}

void MainWindow::buildMobile() {
    fraMobile_ = NewFrame(centralWidget(), "fraMobile");
    auto* grid = new QGridLayout(fraMobile_);
    Names_ = new QComboBox(fraMobile_);
    Names_->setObjectName("Names");
    Names_->setEditable(true);
    Names_->setInsertPolicy(QComboBox::NoInsert);
    Names_->setCompleter(nullptr);  // the model completes names by its own rule
    Country_ = new QComboBox(fraMobile_);
    Country_->setObjectName("Country");
    // The layout gives them their width: measuring every row of a long directory (or of a
    // damaged one, with names thousands of characters long) would hold up the first show.
    for (auto* box : {Names_, Country_}) {
        box->setMinimumContentsLength(12);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    txtCountryCode_ = addNumberField(fraMobile_, "txtCountryCode", form_.txtCountryCode);
    txtAreaCode_ = addNumberField(fraMobile_, "txtAreaCode", form_.txtAreaCode);
    txtNumber_ = addNumberField(fraMobile_, "txtNumber", form_.txtNumber);
    grid->addWidget(Names_, 0, 0, 1, 3);
    grid->addWidget(Country_, 1, 0, 1, 3);
    grid->addWidget(txtCountryCode_, 2, 0);
    grid->addWidget(txtAreaCode_, 2, 1);
    grid->addWidget(txtNumber_, 2, 2);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 6);

    fraDirectory_ = NewFrame(centralWidget(), "fraDirectory");
    auto* icons = new QHBoxLayout(fraDirectory_);
    icons->setSpacing(2);
    for (int i = 7; i <= 10; ++i) {
        icons->addWidget(toolbar_->icon(i));
        toolbar_->icon(i)->show();
    }
    icons->addStretch(1);
}

void MainWindow::buildGroup() {
    fraGroup_ = NewFrame(centralWidget(), "fraGroup");
    auto* box = new QVBoxLayout(fraGroup_);
    cmbGroupName_ = new QComboBox(fraGroup_);
    cmbGroupName_->setObjectName("cmbGroupName");
    cmbGroupName_->setMinimumContentsLength(12);
    cmbGroupName_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lstGroup_ = new QListWidget(fraGroup_);
    lstGroup_->setObjectName("lstGroup");
    lstGroup_->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* icons = new QHBoxLayout;
    icons->setSpacing(2);
    for (int i = 11; i <= 13; ++i) {
        icons->addWidget(toolbar_->icon(i));
        toolbar_->icon(i)->show();
    }
    icons->addStretch(1);
    box->addWidget(cmbGroupName_);
    box->addWidget(lstGroup_, 1);
    box->addLayout(icons);
}

void MainWindow::buildQueue() {
    fraQueue_ = NewFrame(centralWidget(), "fraQueue");
    auto* box = new QVBoxLayout(fraQueue_);
    box->setSpacing(2);
    MessageQueue_ = new QListWidget(fraQueue_);
    MessageQueue_->setObjectName("MessageQueue");
    // Rows run down and wrap into the next column, as a multi-column list box does.
    MessageQueue_->setFlow(QListView::TopToBottom);
    MessageQueue_->setWrapping(true);
    MessageQueue_->setResizeMode(QListView::Adjust);
    MessageQueue_->setContextMenuPolicy(Qt::CustomContextMenu);
    txtMessageQueue_ = new QPlainTextEdit(fraQueue_);
    txtMessageQueue_->setObjectName("txtMessageQueue");
    txtMessageQueue_->setReadOnly(true);
    box->addWidget(MessageQueue_, 3);
    box->addWidget(txtMessageQueue_, 2);
}

void MainWindow::buildStatus() {
    lblInfo_ = new QLabel(centralWidget());
    lblInfo_->setObjectName("lblInfo");
    lblInfo_->setFrameShape(QFrame::Panel);
    lblInfo_->setFrameShadow(QFrame::Sunken);
    lblOnline_ = new QLabel(lblInfo_);
    lblOnline_->setObjectName("lblOnline");
    Picture1_ = new QLabel(lblInfo_);
    Picture1_->setObjectName("Picture1");
    // Long loops over names show their progress in the status area.
    progBar_ = new QProgressBar(lblInfo_);
    progBar_->setObjectName("ProgressBar");
    progBar_->setRange(0, 100);
    progBar_->setTextVisible(false);
    progBar_->setMaximumHeight(14);
    progBar_->hide();
    auto* row = new QHBoxLayout(lblInfo_);
    row->setContentsMargins(4, 0, 4, 0);
    row->addStretch(1);
    row->addWidget(progBar_, 2);
    row->addWidget(lblOnline_);
    row->addWidget(Picture1_);
}

void MainWindow::buildFrames() {
    auto* central = new QWidget;
    central->setObjectName("central");
    setCentralWidget(central);
    buildToolbar();
    buildCompose();
    buildMobile();
    buildGroup();
    buildQueue();
    buildStatus();
}

// Frames at the layout's places; the window's client area takes the layout's size.
void MainWindow::applyLayout() {
    const MainLayout& l = form_.layout;
    if (l == shownLayout_ && fraQueue_->isVisible() == form_.mnuViewQueue.Checked) return;
    shownLayout_ = l;
    toolbar_->setGeometry(ToPixels(l.toolbar));
    fraLogo_->setGeometry(ToPixels(l.fraLogo));
    fraMobile_->setGeometry(ToPixels(l.fraMobile));
    fraDirectory_->setGeometry(ToPixels(l.fraDirectory));
    fraGroup_->setGeometry(ToPixels(l.fraGroup));
    fraQueue_->setGeometry(ToPixels(l.fraQueue));
    lblInfo_->setGeometry(ToPixels(l.lblInfo));
    const bool queue = form_.mnuViewQueue.Checked, group = form_.mnuGroup.Checked;
    fraQueue_->setVisible(queue);
    fraGroup_->setVisible(group);
    MessageQueue_->setGridSize(
        QSize((l.MessageQueueWidth / kTwipsPerPixel) / l.MessageQueueColumns - 4,
              MessageQueue_->fontMetrics().height() + 2));
    const QSize client(l.Width / kTwipsPerPixel, l.Height / kTwipsPerPixel);
    centralWidget()->setFixedSize(client);
    adjustSize();
}

}  // namespace parlane
