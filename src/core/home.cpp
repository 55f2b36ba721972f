#include "core/home.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>

namespace parlane {
namespace {

std::filesystem::path XdgFolder(const char* variable, const char* fallbackUnderHome) {
    if (const char* value = std::getenv(variable); value && *value) return value;
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : ".") / fallbackUnderHome;
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

InstanceLock::InstanceLock(const std::filesystem::path& home) {
    std::error_code ec;
    std::filesystem::create_directories(home, ec);
    const auto lockPath = home / ".parlane.lock";
    fd_ = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
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
