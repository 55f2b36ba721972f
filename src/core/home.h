#pragma once
// The program's home: the folder of its tables, Data/, SMS/ and exports.

#include <filesystem>
#include <optional>
#include <string>

namespace parlane {

struct HomeChoice {
    std::filesystem::path path;
    // True when given by --home or PARLANE_HOME: the settings file then lives inside it.
    bool explicitlyGiven = false;
};

// --home DIR wins, then the environment variable PARLANE_HOME, then the XDG data folder.
HomeChoice ChooseHome(const std::optional<std::string>& homeOption);

// Where the settings file lives: inside an explicit home, else the XDG config folder.
std::filesystem::path SettingsFilePath(const HomeChoice& home, const std::string& productName);

// Creates the home (and the folders above it) when missing; the home itself is for its user
// alone.
void CreateHome(const std::filesystem::path& home);
// Takes group and other access away from the home and from the files holding passwords. True
// when anything had to change.
bool MakeHomePrivate(const std::filesystem::path& home);

// Holds the one-instance lock of a home for the life of the process.
class InstanceLock {
  public:
    // Tries to take the lock of `home`; check held().
    explicit InstanceLock(const std::filesystem::path& home);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
    bool held() const { return fd_ >= 0; }

  private:
    int fd_ = -1;
};

}  // namespace parlane
