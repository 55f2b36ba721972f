#pragma once
// The main window's model. It owns every long-lived table, the engine's state and its timers.
// Its handlers are defined by subsystem: queue handlers in store/, the run in engine/, call
// control in line/, the archive writer in archive/, loading and closing here in ui/.

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/frm_debug.h"
#include "core/dialogue_host.h"
#include "core/event_loop.h"
#include "core/regional_formats.h"
#include "core/settings_store.h"
#include "core/strings.h"
#include "core/timer.h"
#include "engine/send_state.h"
#include "line/debug_log.h"
#include "line/serial_link.h"
#include "line/tapi_subs.h"
#include "line/telephony.h"
#include "store/directory.h"
#include "store/message_queue.h"
#include "store/provider.h"
#include "store/queue_journal.h"
#include "ui/controls.h"
#include "ui/main_layout.h"

namespace parlane {

class frmModem;
class frmSMSCEdit;
class frmFirstCentre;
class frmDirectoryAdd;
class frmGroupAdd;
class OpenFileChooser;
struct ImportWindowHooks;

// What Main settles before any window exists.
struct ProgramGlobals {
    Strings strings;  // carries LanguageOffset
    bool EditionItaly = false;
    bool EditionAustralia = false;
    bool International = true;
    bool NtTransmit = true;
};

// The platform services the window uses.
struct Platform {
    EventLoop& loop;
    SettingsStore& settingsStore;
    DialogueHost& dialogues;
    RegionalFormats& formats;
    TapiProvider& telephony;
    SerialLink& serial;
    std::filesystem::path home;
};

// Told about changes so that a view can mirror them.
class FormObserver {
  public:
    virtual ~FormObserver() = default;
    virtual void statusChanged(const std::string& /*status*/) {}
    // Anything else may have changed: re-read the fields.
    virtual void controlsChanged() {}
    // The busy pointer goes on (true) or off, at once, before the busy work runs.
    virtual void busyChanged(bool /*busy*/) {}
};

// The limit in lblTotal: the number behind its "/" (0 when none follows it); nullopt when the
// caption has no "/", as before any centre was read.
std::optional<int> TotalLimit(const Label& lblTotal);

class frmMain {
  public:
    frmMain(Platform platform, ProgramGlobals& globals);
    ~frmMain();
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    void setObserver(FormObserver* observer) { observer_ = observer; }
    // Shows the modem choice as a blocking dialogue; without it nothing is chosen.
    std::function<void(frmModem&)> showModemDialog;
    // Called after the window unloaded itself (a command-line start that is done).
    std::function<void()> onExit;
    // Asked to come to the front by an automation client.
    std::function<void()> onShow;
    // Told of every archive record written, with the message it keeps.
    std::function<void(const std::string& status, const QueuedMessage&)> onArchived;
    // What a run came to, told when it ends (for the desktop's notifications).
    struct RunTally {
        int sent = 0;
        int notSent = 0;
        bool simulated = false;  // a call of the run was on the simulated modem
    };
    std::function<void(const RunTally&)> onRunEnded;

    // Life of the window.
    void Form_Load();
    void Form_QueryUnload();
    void Form_Unload();
    // The longest the end of the program waits for the provider to finish dropping the call.
    static constexpr Milliseconds kExitDropLimit{6000};
    // The longest a re-dial waits for the last call's drop before it tries the line anyway.
    static constexpr Milliseconds kRedialDropLimit{30000};
    bool loaded() const { return loaded_; }
    // How many messages the queue could not keep on disk, since the start.
    int QueueRefusals() const { return queueRefusals_; }
    // The window is on its way out (waiting for the line to drop): commands do nothing.
    bool unloading() const { return unloading_; }

    // Commands.
    void mnuQueue_Click();
    void mnuSend_Click();
    void mnuSendSingle_Click();
    void mnuHangUp_Click();
    void mnuViewQueue_Click();
    void mnuGroup_Click();
    void mnuTools_Click();
    void mnuExit_Click();
    // The window's own commands: help, web, mail, About and the disclaimer (main_commands.cpp).
    void mnuContents_Click();
    void mnuSupportInternet_Click();
    void mnuSupportEmail_Click();
    void mnuInternet_Click();
    void mnuEmail_Click();
    void mnuReadme_Click();
    void mnuAbout_Click();
    void mnuEnglish_Click() { ChooseLanguage(mnuEnglish, 0); }
    void mnuItalian_Click() { ChooseLanguage(mnuItalian, 2000); }
    void mnuGerman_Click() { ChooseLanguage(mnuGerman, 3000); }
    void mnuFrench_Click() { ChooseLanguage(mnuFrench, 4000); }
    void mnuRetries_Click() { ShowForm("frmDial"); }
    void mnuTimeOut_Click() { ShowForm("frmTimeout"); }
    void mnuOriginatorID_Click() { ShowForm("frmOriginator"); }
    void mnuDefault_Click() { ShowModemChoice(); }
    void mnuLog_Click() { ShowForm("frmFolders"); }
    void mnuDebug2_Click() { ShowForm("frmDebug"); }
    void mnuModemProperties_Click();
    void mnuDialLocation_Click();
    void mnuAddModem_Click();
    void mnuExport_Click();
    void mnuBackup_Click();
    void mnuRestore_Click();
    // What the import wizard does to this window: Names follows the directory, status lines.
    // The view adds its own DoEvents.
    ImportWindowHooks ImportHooks();
    // The centre commands (config/centre_commands.cpp): each rewrites smsc.dat afterwards.
    void mnuNewSMSC_Click();
    void mnuEditSMSC_Click();
    void mnuDeleteSMSC_Click();
    // The centre editor while a centre command shows it through showForm("frmSMSCEdit").
    frmSMSCEdit* SMSCEditForm = nullptr;
    // Rewrites smsc.dat from Providers; false when it could not be written.
    bool SaveProviders();
    // Once the window is up: while no centre can be dialled, frmFirstCentre offers a new centre
    // or the demonstration centres (through showForm, with FirstCentreForm set).
    void OfferFirstCentre();
    frmFirstCentre* FirstCentreForm = nullptr;
    // The demonstration centres take the place of the centres that cannot be dialled.
    void AddDemoCentres();
    // After an unexpected fault in a handler: the pending messages, the centres, the directory
    // and the list of groups go to disk.
    void SaveAfterFault();
    // One dispatcher for the 14 toolbar icons; each does what its menu entry does.
    void picToolIcons_Click(int index);

    // Captions from the string bank in use: the whole window at load and after a change of
    // language, the menus again by MenuRefresh.
    void LoadFormCaptions();
    void MenuRefresh();
    void ChooseLanguage(MenuItem& item, int offset);
    // The window's size and its frames, in twips, for the panels shown.
    MainLayout layout = MainWindowLayout(false, false);

    // Windows the view provides; without a view nothing is shown.
    std::function<void(const std::string& form)> showForm;
    // Closes a window the view keeps open beside this one (the standard texts).
    std::function<void(const std::string& form)> unloadForm;
    // Opens a file, web address or mail address with the desktop's handler; false and a reason
    // when that failed.
    std::function<bool(const std::string& target, std::string& error)> openDocument;
    // The help manual's address, set at load by the program; empty: no help.
    std::string HelpFile;
    // The view asks to enter What's This mode (icon 5).
    std::function<void()> enterWhatsThis;

    // Queue operations.
    bool ResetQueueBuffer();
    bool SaveQueueBuffer();
    void RemoveQueuedMessageRow(int row);
    bool PrepareNextBatch();
    // PrepareNextBatch for the messages that have a line.
    bool PrepareSendable();
    int LookupCenter(const std::string& name);

    // The run.
    void SendNextMessage();
    void WaitSecs(double seconds);

    // Call control.
    void DialCenter();
    void HangUp();
    void OpenCommPort();
    void CloseCommPort();
    void setLblEvent(const std::string& text);

    // Receive path and dialogues.
    void OnCommEvent(std::int32_t code);
    void SendText(const std::string& text);
    void HandleCenterText(const std::string& text);
    void HandleUcpText(const std::string& text);
    void cmdYes_Click();
    void cmdNo_Click();

    // Directory and groups.
    int FindName(const std::string& name) const;
    // Adds the entry, or overwrites the one of the same name; rewrites phones.dat.
    void SaveDirectoryEntry(const DirectoryEntry& entry);
    void AddDirectoryEntry(const DirectoryEntry& entry);
    void DeleteDirectoryEntry(int index);
    void cmbGroupName_Click();
    void SaveGroupMembers();
    // False, after telling the user why, when the name cannot be a group.
    bool AddGroup(const std::string& name);
    void DeleteSelectedGroup();

    // Queuing by name.
    void QueueMessage(const std::string& name);
    void QueueGroupMessage(const std::string& name);
    void UsePhoneEntry();

    // Automation and the command line.
    void RemoteQueueName(const std::string& name);
    void RemoteQueue() { mnuQueue_Click(); }
    void RemoteQueueGroup();
    void RemoteSend() { mnuSend_Click(); }
    void RemoteShow();
    // The normal end of the program, as Exit; the view learns of it through onExit.
    void RemoteClose();
    void QueueFromCommandLine(const std::string& message, const std::string& name);
    // The arguments after the program's own options, as one command line.
    void HandleCommandLine(const std::string& commandLine);

    // Archive.
    void SaveToOutbox(const std::string& status, const QueuedMessage& message);

    // The line of a centre (line/centre_lines.cpp). Empty when its messages can go: it has a
    // number and names a line that is here; else, in plain words, what is missing.
    std::string LineProblem(const Provider& centre);
    // The same for the centre a queued message names; empty when no centre has its name.
    std::string LineProblemFor(const QueuedMessage& message);
    bool OnSimulatedLine(const Provider& centre);
    // An outcome as the status line and the archive give it: marked after a call on the
    // simulated modem (until the run's next step), so a demonstration never reads like a
    // delivery.
    std::string OutcomeText(int statusId) const;
    std::string ArchiveStatus(const std::string& status, const QueuedMessage& message) const;
    // lblLine: the line the selected centre's next message goes through.
    void ShowCentreLine();

    // Status line and boxes.
    void ShowStatus(const std::string& text);
    void setStatusRaw(const std::string& text);
    int ShowMessageBox(const std::string& prompt, int flags);
    std::string LoadResString(int id) const { return globals_.strings.LoadResString(id); }
    std::string DefaultCentre() const;

    // ----- Compose panel, directory, group and queue commands -----
    // Compose panel.
    std::int16_t CurrentMaxChars = 0;
    bool SkipNameCompletion = false;
    // txtCountryCode, txtAreaCode and txtNumber: the key, or 0 when it is dropped.
    int NumberField_KeyPress(int keyAscii);
    int Country_KeyPress(int) { return 0; }
    int Services_KeyPress(int) { return 0; }
    void Country_Click();
    void Names_Change();
    int Names_KeyDown(int keyCode);
    void Names_Click();
    void Names_LostFocus();
    void Services_Click();
    void Services_Change();
    int txtMessage_KeyPress(int keyAscii);
    void txtMessage_Change();
    void mnuInsert_Click();
    // Directory and group commands.
    void mnuNew_Click();
    void mnuEditPhone_Click();
    void mnuDelete_Click();
    void AddToGroupList();      // icon 10
    void UseThisGroupList();    // icon 11
    void AddNewGroup();         // icon 12
    void DeleteCurrentGroup();  // icon 13
    void mnuRemoveName_Click();
    // Right button released over lstGroup; the view then shows mnuPopUp2.
    void lstGroup_MouseUp();
    // Queue commands.
    void MessageQueue_Click();
    void MessageQueue_DblClick() { mnuEdit_Click(); }
    void mnuEdit_Click();
    void mnuRemove_Click();
    void mnuClear_Click();
    // Right button released over MessageQueue; the view then shows mnuPopUp.
    void MessageQueue_MouseUp();
    int txtMessageQueue_KeyPress(int) { return 0; }
    // The modal dialogues of these commands; without a hook the dialogue is not shown.
    std::function<void(frmDirectoryAdd&)> showDirectoryAdd;
    std::function<void(frmGroupAdd&)> showGroupAdd;
    // The file-open dialogue of Insert Text File; without it the command does nothing.
    OpenFileChooser* openFileChooser = nullptr;
    ListControl Country;
    Label lblTextCounter;

    // ----- Controls -----
    TextBox txtCountryCode, txtAreaCode, txtNumber, txtMessage, txtMessageQueue;
    ListControl Services, Names, cmbGroupName, MessageQueue, lstGroup, cboTapiDevice;
    Label lblInfo, lblTotal, lblOnline, lblLine;
    std::string lblEvent = "1";
    // The menu tree (main_menu.cpp lists it with the captions' ids) and the two pop-ups.
    MenuItem mnuFile, mnuQueue, mnuSend, mnuSendSingle, mnuInsert, mnuTelephoneDir, mnuNew,
        mnuEditPhone, mnuDelete, mnuExport, mnuData, mnuBackup, mnuRestore, mnuExit;
    MenuItem mnuView, mnuTools, mnuLog, mnuViewQueue, mnuGroup, mnuDebug2;
    MenuItem mnuSettings, mnuSMSC, mnuNewSMSC, mnuEditSMSC, mnuDeleteSMSC, mnuModems,
        mnuModemProperties, mnuDialLocation, mnuAddModem, mnuOriginatorID, mnuLanguage, mnuEnglish,
        mnuItalian, mnuGerman, mnuFrench, mnuRetries, mnuTimeOut, mnuDefault;
    MenuItem mnuHangUp;
    MenuItem mnuHelp, mnuContents, mnuSupportInternet, mnuSupportEmail, mnuOrvane, mnuInternet,
        mnuEmail, mnuReadme, mnuAbout;
    MenuItem mnuPopUp, mnuEdit, mnuSeparator12, mnuRemove, mnuClear, mnuPopUp2, mnuRemoveName;
    MenuItem mnuSeparator11;  // the rule under mnuInsert, hidden with it
    // Captions and tool tips of the other controls by control name, set by LoadFormCaptions.
    std::map<std::string, std::string> Captions, ToolTips;
    std::string Caption;  // the window's title
    std::array<bool, 14> picToolIconsEnabled{};
    ProgressBar progress;
    std::string focusedControl;
    int busyDepth = 0;                    // the hourglass shows while above 0
    int MainLeft = 1000, MainTop = 1000;  // twips
    bool minimised = false;
    int onlineFrame = 0;  // picture of the online indicator, 0 to 3

    // ----- Tables and state -----
    std::vector<Provider> Providers;
    std::vector<DirectoryEntry> Directory;
    MessageTable QueueBuffer = EmptyMessageTable();
    MessageTable SendBuffer = EmptyMessageTable();
    SendState state;
    std::string ReferenceCode;
    std::int16_t ResponseTimeoutSecs = 30;
    RxBufferArray RxBuffer{};
    std::int32_t CommEventCode = 0;
    std::int32_t ResponseSeconds = 0;
    std::int16_t NoResponseAnswer = 0;
    // frmNoResponse: the prompt that asks whether to go on waiting for the centre.
    struct NoResponsePrompt {
        bool Visible = false;
        std::string Label1, Label2;
        int unloadCount = 0;
    } frmNoResponse;
    DebugLog debugLog;
    TAPISubs tapi;
    // The debug view, loaded with this window so that it sees everything from the start.
    frmDebug DebugForm{*this};

    // ----- Timers -----
    Timer timSendMessages, timCheckSingleMessageSent, timSafetyTimer, timCommEvent, timResponse,
        timSendCR, timUnloadfrmResponse, timAnimate, tmrCommandLine, tmrCommandCompleted,
        timUnloadMe;

    Platform& platform() { return platform_; }
    Settings& settings() { return settings_; }
    const ProgramGlobals& globals() const { return globals_; }
    std::filesystem::path homePath(const std::string& name) const { return platform_.home / name; }

  private:
    friend class BusyCursor;
    void timSendMessages_Timer();
    void timSafetyTimer_Timer();
    void timCheckSingleMessageSent_Timer();
    void timAnimate_Timer();
    void timCommEvent_Timer();
    void timResponse_Timer();
    void timSendCR_Timer();
    void timUnloadfrmResponse_Timer();
    void tmrCommandLine_Timer();
    void tmrCommandCompleted_Timer();
    void timUnloadMe_Timer();
    void closeNoResponse(std::int16_t answer);

    // Dialogue steps.
    void HangUpDialogue();
    void RejectAndHangUp();
    void EndMessage(int statusId);
    bool RunCommonChecks();
    void RunPromptRow();
    void TapRefusedCheck();
    void TapBlockAnswered(int statusId);
    void TapRow();
    void SendTapBlock(const QueuedMessage& head, const Provider& centre);
    void SendUcpFrame(const QueuedMessage& head, const Provider& centre);
    void MenuBlockStep();
    void SendMenuRecipient(const std::string& nextPrompt);
    void LeaveMenu(const std::string& goodbye);
    std::string MenuRecipient(bool tim) const;
    void VodaLibertelRow();
    void OrangeRow();
    void TimRow();
    void TimRefusal();
    void WalkBack();
    const Provider* headCentre() const;
    // Queue file life.
    void LoadQueueAtStart();
    // The content of a table file, or nothing (missing, or set aside with a status line).
    std::optional<std::string> ReadTable(const std::filesystem::path& path);
    void SaveQueueAtExit();
    bool WriteQueueFile(const MessageTable& table, const std::string& statusText);
    void ShowQueueCount();
    void AddQueueRow(const QueuedMessage& message);
    void ReadyPanel();
    // The five checks of the compose panel, in order; false after showing the first failure.
    bool CheckComposePanel();
    void ShowLocationCountryCode();
    void ApplyBlockRule(const QueuedMessage& head, const Provider& centre);
    void StopSaveBack();
    void MoveBatchBackToQueue(MessageTable batch);
    void ShowMessageInPanel(const QueuedMessage& message);
    void SetIdleLook();
    void SetCallingLook();
    // Stops the engine and waits, serving events, until the call is dropped (or the limit).
    void EndCallForExit();
    // Runs the loop until the provider has dropped the last call or `limit` passed (or Stop
    // was pressed, with stopEnds); answers how long that took.
    Milliseconds AwaitDrop(Milliseconds limit, bool stopEnds);
    void SelectDefaultCentre();
    // Selects every row of Services equal to `name`, as a click would; none: no change.
    void SelectCentreByName(const std::string& name);
    void ShowDirectoryAdd(const DirectoryEntry& entry, int commandNameId);
    // True, after telling the user, while a run sends by the centres' places in the table.
    bool CentresHeldByRun();
    void ShowCentreEditor(frmSMSCEdit& form);
    void LoadProviders();
    void FirstRunModemCheck();
    // Gives the lines their lasting numbers, mending once a home from before the internet line.
    void MendCentreLines();
    bool NumberedBeforeInternetLine();
    // Puts the queue saved by Send Single back, once its run has ended.
    void RestoreSingleMessageQueue();
    // Why the last run left messages queued (centres with no line here); empty when none.
    std::string heldBack_;

  public:
    void ShowModemChoice();
    void ShowForm(const std::string& form) {
        if (showForm) showForm(form);
    }

  private:
    void ApplyPanelLayout();
    void LoadDirectory();
    // Names lists every name of `directory`; nothing is selected.
    void ListDirectoryNames(const std::vector<DirectoryEntry>& directory);
    void ArchiveUnknownName(const std::string& name);
    bool FillPanelForName(const std::string& name, bool defaultCentreWhenNone);
    void LoadGroups();
    bool WriteDirectoryFile();
    int WriteGroupList();  // 0 or errno
    std::filesystem::path groupFile(const std::string& group) const;
    void reportDamage(const std::filesystem::path& file);
    void reportFileProblem(const std::string& text);

    // The recovery journal: every pending message, rewritten (and flushed) when the tables
    // change, with the messages in `finishing` whose archive file is about to be written.
    bool JournalQueue(const std::vector<FinishedMessage>& finishing = {});
    int journalError_ = 0;  // errno of the last journal write, 0 when it went
    int queueRefusals_ = 0;
    RunTally runTally_;
    void TallyOutcome(const std::string& status);
    void EndRunTally();
    // Records of delivered messages whose archive file could not be written yet. The journal
    // keeps them as finished, and nothing more goes to a centre until they are on disk.
    std::vector<FinishedMessage> unarchived_;
    int archiveError_ = 0;  // errno of the last archive write, 0 when it went
    // Writes them now; true when none is left.
    bool WriteUnarchived();
    // Nothing goes to a centre unless its outcome can be recorded: the records still owed are
    // written and the journal takes a write. Else the run stops, saying why; false then.
    bool RoomToRecord();
    // Ends the call (if any) and the run; the run's messages go back to the queue.
    void StopRunFor(const std::string& status);
    // Whatever a kill left: the journal's messages, and archive files it had promised. False
    // when there was no journal.
    bool RecoverJournal();
    MessageTable PendingMessages() const;

    // Marks the tables as changed; the journal is rewritten before control goes back to the loop.
    void queueChanged() { queueDirty_ = true; }

    // The end of a message: the journal learns first that it is finished and which file it
    // leaves, then the file is written, then the journal forgets it. A kill at any point
    // neither sends it again nor loses its archive file.
    void FinishHeadMessage(const std::string& status);
    void ArchiveFinished(const std::string& status, const QueuedMessage& message);
    FinishedMessage BuildOutboxFile(const std::string& status, const QueuedMessage& message);
    // Writes the file under its name or, when that is taken, the next free one.
    bool WriteOutboxFile(const FinishedMessage& file);

  public:
    // Tells the view, and keeps the journal current. Every command and timer ends with it.
    void changed();

  private:
    Platform platform_;
    ProgramGlobals& globals_;
    Settings settings_;
    FormObserver* observer_ = nullptr;
    bool loaded_ = false;
    bool unloading_ = false;  // nothing may dial again
    // The queue set aside by a single-message run, until the run's end brings it back.
    std::optional<MessageTable> stashedQueue_;
    bool queueDirty_ = false;
    // Damaged or odd files met while loading, said again at its end.
    std::vector<std::string> loadProblems_;
    // What changed() saw last of the centre and the text.
    int changedCentre_ = -2;
    std::string changedText_ = "\x01";
};

// Shows the hourglass for a scope and restores it on every path.
class BusyCursor {
  public:
    explicit BusyCursor(frmMain& form) : form_(form) {
        if (form_.busyDepth++ == 0 && form_.observer_) form_.observer_->busyChanged(true);
    }
    ~BusyCursor() {
        if (--form_.busyDepth == 0 && form_.observer_) form_.observer_->busyChanged(false);
    }
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

  private:
    frmMain& form_;
};

}  // namespace parlane
