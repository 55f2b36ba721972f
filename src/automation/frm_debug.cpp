#include "automation/frm_debug.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "core/cp1252.h"
#include "core/file_io.h"
#include "core/string_ids.h"
#include "exchange/open_file_chooser.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

// Desktop programs that show the machine's hardware and system, the most complete first.
constexpr const char* kSystemInfoTools[] = {"hardinfo2", "hardinfo", "kinfocenter", "lshw-gtk",
                                            "gnome-system-monitor"};

struct PaneName {
    const char* control;
    int id;
};
constexpr PaneName kPaneCaptions[] = {{"Text1", sid::CaptionTapiMessages},
                                      {"ToServer", sid::CaptionDataTransmitted},
                                      {"FromServer", sid::CaptionDataReceived}};
constexpr PaneName kButtonTips[] = {
    {"cmdExit", sid::TipExit}, {"cmdSave", sid::TipSaveToFile}, {"cmdSystem", sid::TipSystemInfo}};

}  // namespace

void CaretTextBox::SetSelStart(std::size_t position) {
    selStart_ = std::min(position, text_.size());
}

void CaretTextBox::InsertAtCaret(const std::string& text) {
    if (text.empty()) return;
    const std::size_t at = selStart_;
    text_.insert(at, text);
    selStart_ = at + text.size();
    if (inserted) inserted(at, text);
}

void CaretTextBox::Clear() {
    text_.clear();
    selStart_ = 0;
    if (cleared) cleared();
}

std::string DebugVersionLine(const std::string& product, int major, int minor, int revision) {
    char version[48];
    std::snprintf(version, sizeof version, "%d.%02d.%d", major, minor, revision);
    return product + " " + version;
}

std::string DebugFileText(const std::string& log, const std::string& sent,
                          const std::string& received, const std::string& versionLine) {
    return "TAPI Messages:\r\n" + log + "\r\n\r\n" + "Data Transmitted:\r\n" + sent + "\r\n\r\n" +
           "Data Received:\r\n" + received + "\r\n\r\n" + "Program Information:\r\n" + versionLine +
           "\r\n";
}

std::filesystem::path FindSystemInfoTool(const std::string& searchPath) {
    for (const char* tool : kSystemInfoTools) {
        std::size_t start = 0;
        while (start <= searchPath.size()) {
            std::size_t end = searchPath.find(':', start);
            if (end == std::string::npos) end = searchPath.size();
            const std::string folder = searchPath.substr(start, end - start);
            start = end + 1;
            if (folder.empty()) continue;  // an empty entry would mean the working folder
            const auto candidate = std::filesystem::path(folder) / tool;
            std::error_code ec;
            if (std::filesystem::is_regular_file(candidate, ec) &&
                ::access(candidate.c_str(), X_OK) == 0)
                return candidate;
        }
    }
    return {};
}

frmDebug::frmDebug(frmMain& main) : main_(main) {
    if (const char* path = std::getenv("PATH")) systemInfoSearchPath = path;
    main_.debugLog.changed = [this] {
        if (logChanged) logChanged();
    };
}

const std::string& frmDebug::Text1() const {
    return main_.debugLog.text();
}

void frmDebug::LoadFormCaptions() {
    Caption = main_.LoadResString(sid::TitleFrmDebug);
    for (const auto& pane : kPaneCaptions) Captions[pane.control] = main_.LoadResString(pane.id);
    for (const auto& tip : kButtonTips) ToolTips[tip.control] = main_.LoadResString(tip.id);
    if (changed) changed();
}

void frmDebug::Sent(const std::string& text) {
    ToServer.InsertAtCaret(text);
    FromServer.InsertAtCaret(std::string(text.size(), '.'));
}

void frmDebug::Received(const std::string& echo) {
    FromServer.InsertAtCaret(echo);
}

void frmDebug::BoundLinePanes() {
    if (FromServer.Text().size() <= kLinePaneLimit) return;
    FromServer.Clear();
    ToServer.Clear();
}

void frmDebug::Show() {
    Visible = true;
    if (changed) changed();
}

void frmDebug::cmdExit_Click() {
    // The log stays, so closing and opening the window again keeps it.
    ToServer.Clear();
    FromServer.Clear();
    Visible = false;
    if (changed) changed();
}

void frmDebug::cmdSave_Click() {
    if (!main_.openFileChooser) return;
    const auto chosen = main_.openFileChooser->chooseSaveFile(
        main_.LoadResString(sid::TitleSaveDebugFile), main_.homePath(""), "debug.txt", "txt",
        main_.LoadResString(sid::DebugFileFilter));
    if (!chosen || chosen->empty()) return;
    const std::string name = Utf8ToCp1252(chosen->string());
    std::error_code ec;
    if (std::filesystem::exists(*chosen, ec) &&
        main_.ShowMessageBox(main_.LoadResString(sid::OverwriteExisting) + " " + name + " ?",
                             MbQuestionYesNo) != AnswerYes)
        return;
    {
        BusyCursor busy(main_);
        const std::string text = DebugFileText(
            Text1(), ToServer.Text(), FromServer.Text(),
            DebugVersionLine(main_.globals().strings.ProductName(), PARLANE_VERSION_MAJOR,
                             PARLANE_VERSION_MINOR, PARLANE_VERSION_PATCH));
        // A failed write says nothing; the panes keep their text, so saving can be tried again.
        if (!WriteFileAtomically(*chosen, text).empty()) return;
    }
    main_.ShowMessageBox(main_.LoadResString(sid::DataSavedAs) + " " + name, MbInformation);
}

void frmDebug::cmdSystem_Click() {
    const auto tool = FindSystemInfoTool(systemInfoSearchPath);
    if (tool.empty() || !startProgram || !startProgram(tool))
        main_.ShowMessageBox(main_.LoadResString(sid::SystemInfoUnavailable), 0);
}

}  // namespace parlane
