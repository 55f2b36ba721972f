#include "automation/command_line.h"

#include "core/cp1252.h"
#include "ui/frm_main.h"

namespace parlane {

std::vector<std::string> GetCommandLine(const std::string& commandLine, int maxArgs) {
    std::vector<std::string> arguments(1);
    const std::size_t length = std::min<std::size_t>(commandLine.size(), 171);
    bool inArgument = false;
    for (std::size_t i = 0; i < length; ++i) {
        const char c = commandLine[i];
        if (c == ' ' || c == '\t') {
            inArgument = false;
            continue;
        }
        if (!inArgument) {
            if (static_cast<int>(arguments.size()) - 1 >= maxArgs) break;
            arguments.emplace_back();
            inArgument = true;
        }
        arguments.back() += c;
    }
    return arguments;
}

std::string CommandLineMessage(const std::vector<std::string>& arguments) {
    const std::size_t n = arguments.size() - 1;
    if (n == 0) return {};
    if (n == 1) return arguments[1];
    std::string text;
    for (std::size_t i = 2; i < n; ++i) text += arguments[i] + " ";
    return text + arguments[n];
}

void frmMain::QueueFromCommandLine(const std::string& message, const std::string& name) {
    txtMessage.Text = message;
    QueueMessage(name);
}

void frmMain::HandleCommandLine(const std::string& commandLine) {
    const auto arguments = GetCommandLine(commandLine);
    if (arguments.size() < 2) return;
    minimised = true;
    if (Cp1252LowerCase(arguments[1]).find("embedding") != std::string::npos) return;
    QueueFromCommandLine(CommandLineMessage(arguments), arguments[1]);
    tmrCommandLine.setEnabled(true);
    changed();
}

// Waits until a call is online, then for the first moment with none.
void frmMain::tmrCommandLine_Timer() {
    if (!state.CallActive) return;
    tmrCommandCompleted.setEnabled(true);
    tmrCommandLine.setEnabled(false);
}

void frmMain::tmrCommandCompleted_Timer() {
    if (state.CallActive) return;
    tmrCommandCompleted.setEnabled(false);
    RemoteClose();
}

void frmMain::RemoteShow() {
    minimised = false;
    if (onShow) onShow();
}

void frmMain::RemoteClose() {
    mnuExit_Click();
    if (onExit) onExit();
}

}  // namespace parlane
