#include "qt/artwork.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstring>

// The resources live in a static library: nothing would pull them into the program unless
// referenced, so the first use registers them.
static void RegisterParlaneResources() {
    static const bool registered = [] {
        Q_INIT_RESOURCE(parlane);
        return true;
    }();
    (void)registered;
}

namespace parlane {
namespace {

struct ThemeName {
    const char* ours;
    const char* theme;
};
// Only where the freedesktop name means the same command.
constexpr ThemeName kThemeNames[] = {{"send", "mail-send"},
                                     {"stop", "process-stop"},
                                     {"help", "help-contents"},
                                     {"exit", "application-exit"}};

const char* ThemeNameFor(const char* name) {
    for (const auto& t : kThemeNames)
        if (std::strcmp(t.ours, name) == 0) return t.theme;
    return nullptr;
}

// Copies every file under `from` (a resource folder) into `to`, rewriting those that differ.
bool CopyTree(const QString& from, const QString& to) {
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = to + source.mid(from.size());
        QFile in(source);
        if (!in.open(QIODevice::ReadOnly)) return false;
        const QByteArray bytes = in.readAll();
        QFile existing(target);
        if (existing.open(QIODevice::ReadOnly) && existing.readAll() == bytes) continue;
        existing.close();
        if (!QDir().mkpath(QFileInfo(target).path())) return false;
        QFile out(target);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            out.write(bytes) != bytes.size())
            return false;
    }
    return true;
}

}  // namespace

QString ArtworkPath(const QString& name) {
    RegisterParlaneResources();
    return QStringLiteral(":/parlane/icons/") + name + QStringLiteral(".svg");
}

QIcon ArtworkIcon(const QString& name) {
    return QIcon(ArtworkPath(name));
}

bool IsOwnArtwork(const char* name) {
    const char* theme = ThemeNameFor(name);
    return theme == nullptr || !QIcon::hasThemeIcon(QString::fromLatin1(theme));
}

QIcon ParlaneIcon(const char* name) {
    if (!IsOwnArtwork(name)) return QIcon::fromTheme(QString::fromLatin1(ThemeNameFor(name)));
    return ArtworkIcon(QString::fromLatin1(name));
}

QPixmap ParlanePixmap(const char* name, int size) {
    return ParlaneIcon(name).pixmap(size, size);
}

QUrl ManualUrl(int languageOffset) {
    RegisterParlaneResources();
    // The translations sit beside the catalogues as manual.<language>.html.
    const char* language = languageOffset == 2000   ? "it"
                           : languageOffset == 3000 ? "de"
                           : languageOffset == 4000 ? "fr"
                                                    : nullptr;
    QString page = QStringLiteral("index.html");
    if (language && QFile::exists(QStringLiteral(":/parlane/manual/index.%1.html").arg(language)))
        page = QStringLiteral("index.%1.html").arg(language);
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (!cache.isEmpty()) {
        // The same tree as in the resources, so the manual's "../icons/" works in both.
        if (CopyTree(QStringLiteral(":/parlane/manual"), cache + QStringLiteral("/manual")) &&
            CopyTree(QStringLiteral(":/parlane/icons"), cache + QStringLiteral("/icons")))
            return QUrl::fromLocalFile(cache + QStringLiteral("/manual/") + page);
    }
    return QUrl(QStringLiteral("qrc:/parlane/manual/") + page);
}

}  // namespace parlane
