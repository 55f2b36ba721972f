#pragma once
// Moving, copying and deleting archive files and folders: the one way the folder browser
// changes them. A move or copy never replaces a file: a name that is taken gets "-2", "-3", ...
// as the archive writer does. A delete goes to the desktop's trash.

#include <filesystem>
#include <string>
#include <vector>

namespace parlane {

class ShellFileOperations {
  public:
    virtual ~ShellFileOperations() = default;
    // Each returns the system's text of the first failure, empty when all went well; what
    // failed is left where it was.
    virtual std::string Move(const std::vector<std::filesystem::path>& sources,
                             const std::filesystem::path& targetFolder);
    virtual std::string Copy(const std::vector<std::filesystem::path>& sources,
                             const std::filesystem::path& targetFolder);
    // Files or whole folders to the trash; the desktop's adapter asks before deleting for good
    // where there is no trash. Here: nothing is deleted for good.
    virtual std::string Delete(const std::vector<std::filesystem::path>& sources) = 0;
};

// "yymmdd hhmmss.msg" becomes "yymmdd hhmmss-2.msg", and so on; any other name "name-2.ext".
std::string NameForAttempt(const std::string& fileName, int attempt);

}  // namespace parlane
