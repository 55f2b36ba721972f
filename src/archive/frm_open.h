#pragma once
// frmOpen: one archive file as text, with Send Again, Print and Exit.

#include <string>

#include "archive/printer.h"

namespace parlane {

class frmMain;

// What Send Again reads back from a file that SaveToOutbox wrote.
struct MessageFileParts {
    std::string centre;
    std::string recipient;  // a directory name, or "+" and the digits
    std::string text;
};
MessageFileParts TakeMessageFileApart(const std::string& file, const std::string& messageLabel);

class frmOpen {
  public:
    frmOpen(frmMain& main, std::string content) : txtMessage(std::move(content)), main_(main) {}

    void cmdResend_Click();
    void cmdPrint_Click(Printer& printer);
    void cmdExit_Click() { unloaded = true; }

    std::string txtMessage;
    // The selection in txtMessage, in bytes; Print prints it alone when there is one.
    std::size_t SelStart = 0;
    std::size_t SelLength = 0;
    bool unloaded = false;

  private:
    frmMain& main_;
};

}  // namespace parlane
