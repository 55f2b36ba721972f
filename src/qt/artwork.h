#pragma once
// The program's own pictures and its manual, compiled into the program from resources/.

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QUrl>
#include <array>

#include "ui/toolbar.h"

namespace parlane {

// The drawing of each main-window icon, by icon index.
inline constexpr std::array<const char*, kMainToolbarCount> kMainToolbarArtwork{
    "send",
    "queue",
    "stop",
    "sent",
    "help",
    "whatsthis",
    "exit",
    "entry_add",
    "entry_edit",
    "entry_delete",
    "group_member_add",
    "group_use",
    "group_add",
    "group_delete",
};
// The standard-texts window: notes 1 to 6, signature, time, date.
inline constexpr std::array<const char*, 9> kStandardTextArtwork{
    "note1", "note2", "note3", "note4", "note5", "note6", "signature", "clock", "calendar"};
// The online indicator's frames, shown in turn while a call is up.
inline constexpr std::array<const char*, 4> kOnlineArtwork{"online0", "online1", "online2",
                                                           "online3"};
// Others: "stop_disabled", "logo", "logo_small", "parlane" (the program's icon), "web", "mail".

// ":/parlane/icons/<name>.svg"
QString ArtworkPath(const QString& name);
// Our own drawing, whatever the desktop theme.
QIcon ArtworkIcon(const QString& name);
// The desktop theme's icon where it has a fitting one (help, exit, stop, send), else ours.
QIcon ParlaneIcon(const char* name);
QPixmap ParlanePixmap(const char* name, int size);
// True when ParlaneIcon(name) comes from our own drawings.
bool IsOwnArtwork(const char* name);

// The manual in the language of `languageOffset` (English where it has none) as a local file,
// copied from the resources into the cache folder when missing or out of date, so that a
// browser can open it; the qrc: address when that copy fails.
QUrl ManualUrl(int languageOffset);

}  // namespace parlane
