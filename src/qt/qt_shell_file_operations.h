#pragma once
// Deleting archive files and folders on the desktop: to the freedesktop trash, and only after a
// question where there is no trash.

#include "archive/shell_file_operations.h"

namespace parlane {

class frmMain;

class QtShellFileOperations : public ShellFileOperations {
  public:
    explicit QtShellFileOperations(frmMain& main) : main_(main) {}
    std::string Delete(const std::vector<std::filesystem::path>& sources) override;

  private:
    frmMain& main_;
};

}  // namespace parlane
