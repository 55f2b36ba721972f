// The compiled-in artwork and manual, and the toolbar widget laid out over them.
#include "qt/artwork.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <utility>

#include "core/program.h"
#include "core/strings.h"
#include "qt/qt_text.h"
#include "qt/toolbar_widget.h"

namespace parlane {
namespace {

bool HasInk(const QPixmap& pixmap) {
    const QImage image = pixmap.toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0) return true;
    return false;
}

TEST(Artwork, EveryDrawingRendersAndEveryNameUsedExists) {
    const QDir icons(ArtworkPath("x").section('/', 0, -2));
    const QStringList files = icons.entryList({"*.svg"});
    EXPECT_GE(files.size(), 33);
    for (const QString& file : files) {
        const QPixmap pixmap = ArtworkIcon(file.chopped(4)).pixmap(32, 32);
        EXPECT_FALSE(pixmap.isNull()) << file.toStdString();
        EXPECT_TRUE(HasInk(pixmap)) << file.toStdString();
    }
    std::vector<const char*> used(kMainToolbarArtwork.begin(), kMainToolbarArtwork.end());
    used.insert(used.end(), kStandardTextArtwork.begin(), kStandardTextArtwork.end());
    used.insert(used.end(), kOnlineArtwork.begin(), kOnlineArtwork.end());
    for (const char* name : {"stop_disabled", "logo", "logo_small", "parlane", "web", "mail"})
        used.push_back(name);
    for (const char* name : used) EXPECT_TRUE(QFile::exists(ArtworkPath(name))) << name;
    // A logo for every edition, in the plain and the branded bank, at both sizes.
    for (const int version : {0, 1, 2}) {
        ProgramGlobals g;
        g.EditionItaly = version == 1;
        g.EditionAustralia = version == 2;
        for (const int offset : {0, 1000, 3000}) {
            g.strings.LanguageOffset = static_cast<std::int16_t>(offset);
            for (const bool small : {false, true}) {
                const std::string name = LogoArtwork(g, small);
                EXPECT_TRUE(QFile::exists(ArtworkPath(ToQt(name)))) << name;
            }
        }
    }
}

// Each language's manual, copied out with its pictures; US English reads the English one.
TEST(Artwork, ManualIsCopiedOutInTheLanguageInUse) {
    for (const auto& [offset, language] :
         {std::pair{0, "en"}, {1000, "en"}, {2000, "it"}, {3000, "de"}, {4000, "fr"}}) {
        QStandardPaths::setTestModeEnabled(true);  // keep out of the user's own cache
        const QUrl url = ManualUrl(offset);
        QStandardPaths::setTestModeEnabled(false);
        ASSERT_TRUE(url.isLocalFile());
        const QString folder = QFileInfo(url.toLocalFile()).path();
        QFile index(url.toLocalFile());
        ASSERT_TRUE(index.open(QIODevice::ReadOnly));
        const QByteArray page = index.readAll();
        EXPECT_TRUE(page.contains(QByteArray("<html lang=\"") + language + "\"")) << offset;
        EXPECT_TRUE(page.contains("manual.css"));
        EXPECT_TRUE(QFile::exists(folder + "/manual.css"));
        EXPECT_TRUE(QFile::exists(folder + "/../icons/send.svg"));
    }
}

TEST(ToolbarWidget, LaysOutTheRowWithTheRightControlAtTheEnd) {
    Strings strings;
    ToolbarWidget bar([&](int id) { return strings.LoadResString(id); },
                      ToolbarWidget::MainWindowIcons(), kMainToolbarRow);
    auto* services = new QComboBox;
    services->setObjectName("Services");
    services->addItem("A service centre with a long name");
    bar.setRightWidget(services);
    bar.resize(700, bar.sizeHint().height());
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));

    int rowEnd = 0;
    for (int i = 0; i < kMainToolbarCount; ++i) {
        auto* icon = bar.findChild<QWidget*>(QString("picToolIcons_%1").arg(i));
        ASSERT_NE(icon, nullptr) << i;
        EXPECT_EQ(icon->toolTip(), ToQt(strings.LoadResString(kMainToolbarIcons[i].tipId)));
        EXPECT_EQ(icon->isVisible(), i < kMainToolbarRow) << i;
        if (i >= kMainToolbarRow) continue;
        EXPECT_GT(icon->x(), rowEnd) << i;  // left to right, never overlapping
        rowEnd = icon->geometry().right();
        EXPECT_TRUE(bar.rect().contains(icon->geometry())) << i;
    }
    EXPECT_EQ(services->geometry().right(), bar.width() - 1 - kToolbarRightMargin);
    EXPECT_GT(services->x(), rowEnd);
    EXPECT_LE(bar.sizeHint().width(), 700);

    bar.resize(900, bar.height());
    EXPECT_EQ(services->geometry().right(), 900 - 1 - kToolbarRightMargin);

    // A click runs the icon's command; a disabled icon runs none.
    QSignalSpy clicked(&bar, &ToolbarWidget::clicked);
    QTest::mouseClick(bar.icon(1), Qt::LeftButton);
    bar.setIconEnabled(2, false);
    QTest::mouseClick(bar.icon(2), Qt::LeftButton);
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0][0].toInt(), 1);
    EXPECT_FALSE(bar.iconEnabled(2));
}

}  // namespace
}  // namespace parlane
