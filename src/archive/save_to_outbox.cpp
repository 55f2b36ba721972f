// SaveToOutbox: every finished or refused message leaves one file in SMS/Outbox.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "archive/message_file.h"
#include "core/string_ids.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

// Creates the file without replacing one of the same second: the second file of a second gets
// "-2" behind the time stamp, and so on, so the 13-character sort key stays as it is.
int CreateArchiveFile(const std::filesystem::path& folder, const std::string& stamp,
                      std::filesystem::path& chosen) {
    for (int n = 1; n < 10000; ++n) {
        chosen = folder / (stamp + (n == 1 ? std::string() : "-" + std::to_string(n)) + ".msg");
        const int fd = ::open(chosen.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    errno = EEXIST;
    return -1;
}

}  // namespace

void frmMain::SaveToOutbox(const std::string& status, const QueuedMessage& message) {
    MessageFileFields fields;
    if (message.ProviderIndex == -1 || message.ProviderIndex < 0 ||
        message.ProviderIndex >= static_cast<int>(Providers.size()))
        fields.centreName = LoadResString(sid::Unknown);
    else
        fields.centreName = Providers[static_cast<std::size_t>(message.ProviderIndex)].ProviderName;
    fields.recipient =
        FindNameByNumber(Directory, message.CountryCode, message.AreaCode, message.Number);
    if (fields.recipient.empty()) fields.recipient = RecipientNumberText(message);
    fields.status = status;
    fields.messageLabel = LoadResString(sid::MessageLabel);
    fields.text = message.Text;

    std::filesystem::path path;
    const int fd = CreateArchiveFile(homePath("SMS") / "Outbox",
                                     ArchiveTimeStamp(platform_.loop.wallClock()), path);
    const auto fail = [&](int error) {
        ShowStatus(std::to_string(error) + " " + LoadResString(sid::SavingToOutbox) + " " +
                   std::strerror(error));
    };
    if (fd < 0) {
        fail(errno);
        return;
    }
    const WallClockMs now = platform_.loop.wallClock();
    fields.dateText = platform_.formats.longDate(now);
    fields.timeText = platform_.formats.longTime(now);
    const std::string content = BuildMessageFile(fields);
    std::size_t written = 0;
    while (written < content.size()) {
        const ssize_t n = ::write(fd, content.data() + written, content.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            const int error = errno;
            ::close(fd);
            fail(error);
            return;
        }
        written += static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0) fail(errno);
}

}  // namespace parlane
