#include "core/home.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace parlane {
namespace {

std::filesystem::path XdgFolder(const char* variable, const char* fallbackUnderHome) {
    if (const char* value = std::getenv(variable); value && *value) return value;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : ".") / fallbackUnderHome;
}

// Strips group and other bits; true when there were any.
bool Tighten(const std::filesystem::path& path, mode_t keep) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0 || (info.st_mode & 077) == 0) return false;
    return ::chmod(path.c_str(), info.st_mode & keep) == 0;
}

}  // namespace

HomeChoice ChooseHome(const std::optional<std::string>& homeOption) {
    if (homeOption && !homeOption->empty()) return {*homeOption, true};
    if (const char* env = std::getenv("PARLANE_HOME"); env && *env) return {env, true};
    return {XdgFolder("XDG_DATA_HOME", ".local/share") / "parlane", false};
}

std::filesystem::path SettingsFilePath(const HomeChoice& home, const std::string& productName) {
    const std::string fileName = productName + ".ini";
    if (home.explicitlyGiven) return home.path / fileName;
    return XdgFolder("XDG_CONFIG_HOME", ".config") / fileName;
}

void CreateHome(const std::filesystem::path& home) {
    std::error_code ec;
    if (home.has_parent_path()) std::filesystem::create_directories(home.parent_path(), ec);
    ::mkdir(home.c_str(), 0700);
}

bool MakeHomePrivate(const std::filesystem::path& home) {
    bool changed = Tighten(home, 07700);
    std::error_code ec;
    for (std::filesystem::directory_iterator it(home, ec), end; !ec && it != end;
         it.increment(ec)) {
        // smsc.dat, its damaged copies and its temporary file carry the centres' passwords.
        if (it->path().filename().string().rfind("smsc.dat", 0) == 0 && it->is_regular_file(ec))
            changed = Tighten(it->path(), 0600) || changed;
    }
    return changed;
}

InstanceLock::InstanceLock(const std::filesystem::path& home) {
    CreateHome(home);
    const auto lockPath = home / ".parlane.lock";
    fd_ = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd_ < 0) return;
    // flock is released by the kernel when the process dies, so no stale lock survives a crash.
    if (::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd_);
        fd_ = -1;
    }
}

InstanceLock::~InstanceLock() {
    if (fd_ >= 0) ::close(fd_);
}

}  // namespace parlane
