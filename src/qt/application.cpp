#include "qt/application.h"

#include <unistd.h>

#include <QApplication>
#include <QLocale>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>

#include "automation/command_line.h"
#include "automation/send_and_exit.h"
#include "config/demo_centres.h"
#include "config/frm_modem.h"
#include "core/file_io.h"
#include "core/home.h"
#include "core/program.h"
#include "core/string_ids.h"
#include "line/device_list.h"
#include "line/sim/simulated_modem.h"
#include "qt/artwork.h"
#include "qt/close_signals.h"
#include "qt/desktop_notifier.h"
#include "qt/dialogs/line_option_dialogs.h"
#include "qt/dialogs/splash_window.h"
#include "qt/guarded_application.h"
#include "qt/main_window.h"
#include "qt/qt_device_dialogs.h"
#include "qt/qt_dialogue_host.h"
#include "qt/qt_event_loop.h"
#include "qt/qt_regional_formats.h"
#include "qt/qt_settings_store.h"
#include "qt/qt_text.h"
#include "qt/remote_service.h"

namespace parlane {
namespace {

constexpr const char* kUsage =
    "usage: parlane [OPTION]... [--] [NAME [MESSAGE...]]\n"
    "Sends short messages through a modem to the message centres of mobile networks.\n"
    "With NAME, queues MESSAGE (NAME itself when there is none) for that directory entry,\n"
    "sends, and ends after the call.\n"
    "\n"
    "  --home DIR        keep tables, archive and settings in DIR\n"
    "  --demo            send one message through the simulated modem and end\n"
    "  --print-status    print each status line on standard error\n"
    "  --screenshot FILE save a picture of the main window as FILE (PNG) and end\n"
    "  --send-and-exit NAME MESSAGE\n"
    "                    queue MESSAGE for NAME, send, and end when the run is over; the exit\n"
    "                    status is 0 when it was sent, 3 NAME not in the directory, 4 no centre,\n"
    "                    5 the line failed, 6 refused by the centre, 7 not finished (left in\n"
    "                    the queue), 8 another copy uses the home, 9 its centre has no line\n"
    "                    here (left in the queue), 10 sent through the simulated modem only\n"
    "                    (nothing left the machine), 2 not queued for another reason\n"
    "  --                the options end; a NAME may begin with \"-\" after it\n"
    "  -h, --help        print this help and end\n"
    "  -V, --version     print the version and end\n"
    "\n"
    "Exit status 1: a mistake on the command line.\n";

std::set<std::string> OutboxFiles(const std::filesystem::path& home) {
    std::set<std::string> names;
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(home / "SMS" / "Outbox", ec))
        names.insert(e.path().filename().string());
    return names;
}

// A centre on the simulated modem, for a home that has none yet.
void WriteDemoCentre(const std::filesystem::path& home) {
    std::string error;
    WriteFileAtomically(home / "smsc.dat", SerializeProviderFile({DemoCentres().front()}, error));
}

}  // namespace

ProgramOptions ParseProgramOptions(const std::vector<std::string>& arguments) {
    ProgramOptions options;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& a = arguments[i];
        if (!options.rest.empty() || optionsEnded) {
            options.rest.push_back(a);
        } else if (a == "--") {
            optionsEnded = true;
        } else if (a == "--home") {
            if (i + 1 >= arguments.size()) {
                options.error = "--home needs a folder";
                return options;
            }
            options.home = arguments[++i];
        } else if (a.rfind("--home=", 0) == 0) {
            options.home = a.substr(7);
        } else if (a == "--demo") {
            options.demo = true;
        } else if (a == "--screenshot") {
            if (i + 1 >= arguments.size()) {
                options.error = "--screenshot needs a file name";
                return options;
            }
            options.screenshot = arguments[++i];
        } else if (a == "--send-and-exit") {
            options.sendAndExit = true;
        } else if (Cp1252LowerCase(a).find("embedding") != std::string::npos) {
            options.rest.push_back(a);  // the bus's activation switch: no name, nothing queued
        } else if (a == "--print-status") {
            options.printStatus = true;
        } else if (a == "--help" || a == "-h") {
            options.error = "help";
            return options;
        } else if (a == "--version" || a == "-V") {
            options.error = "version";
            return options;
        } else if (a.size() > 1 && a[0] == '-') {
            // Never taken as a name: "-v" would wait for a directory entry for ever.
            options.error = "unknown option " + a;
            return options;
        } else {
            options.rest.push_back(a);
        }
    }
    if (options.sendAndExit && options.rest.empty()) options.error = "--send-and-exit needs a name";
    return options;
}

// The program from its home on: settings, splash, the window and its loop.
static int RunWindow(GuardedApplication& app, const ProgramOptions& options);

int RunProgram(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const ProgramOptions options = ParseProgramOptions(arguments);
    if (options.error == "help" || options.error == "version") {
        if (options.error == "help")
            std::fputs(kUsage, stdout);
        else
            std::printf("parlane %d.%d.%d\n", PARLANE_VERSION_MAJOR, PARLANE_VERSION_MINOR,
                        PARLANE_VERSION_PATCH);
        return 0;
    }
    if (!options.error.empty()) {
        std::fprintf(stderr, "parlane: %s\n", options.error.c_str());
        std::fputs(kUsage, stderr);
        return kExitUsage;
    }
    // With no display the program still runs, on Qt's offscreen platform.
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") &&
        !std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    GuardedApplication app(argc, argv);
    try {
        return RunWindow(app, options);
    } catch (const std::exception& e) {
        // Nothing has been shown yet but the splash, which went with the stack.
        QApplication::restoreOverrideCursor();
        const Strings strings;
        ShowCriticalBox(nullptr, strings.ProductName(),
                        strings.LoadResString(sid::StartFailed) + " " + e.what());
        return 1;
    }
}

static int RunWindow(GuardedApplication& app, const ProgramOptions& options) {
    // From here a signal waits for the window, whose close then ends the program properly.
    CloseSignals closeSignals;
    const HomeChoice home = ChooseHome(options.home);
    InstanceLock lock(home.path);
    if (!lock.held()) {
        // Another copy owns this home: end without a change, silently but for scripts.
        if (!options.sendAndExit) return 0;
        std::fprintf(stderr, "parlane: another copy is using %s; nothing was queued\n",
                     home.path.c_str());
        return kExitHomeInUse;
    }

    const auto settingsFolder = SettingsFilePath(home, "Parlane").parent_path();
    std::error_code ec;
    std::filesystem::create_directories(settingsFolder, ec);
    QtSettingsStore settingsStore(QString::fromStdString(settingsFolder.string()));
    ProgramGlobals globals = ReadProgramGlobals(settingsStore);
    if (options.demo && !std::filesystem::exists(home.path / "smsc.dat")) {
        WriteDemoCentre(home.path);
        // The simulated modem is the demo's modem.
        Settings settings(settingsStore, globals.strings.ProductName());
        settings.Save(key::FirstRunModem, "4");
        settings.Save(key::ModemIndex, "0");
        settings.Save(key::ModemName, SimulatedModem::kLineName);
    }

    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setWindowIcon(ArtworkIcon("parlane"));
    SplashWindow splash(nullptr, globals, nullptr);
    splash.show();
    QApplication::processEvents();

    QtEventLoop loop;
    SimulatedModem modem(loop);
    // Device 0 is the simulated modem; then the ports of Modem/Ports and those found in /dev,
    // dialling by the location kept in the settings (first guessed from the system locale).
    Settings programSettings(settingsStore, globals.strings.ProductName());
    AtModemOptions modemOptions;
    if (const char* lockDir = std::getenv("PARLANE_LOCK_DIR")) modemOptions.lockDir = lockDir;
    const QString territory = QLocale::territoryToCode(QLocale::system().territory());
    modemOptions.location =
        LoadDiallingLocation(programSettings, DefaultDiallingLocation(territory.toStdString()));
    DeviceList devices(loop, modem, programSettings.Get(key::ModemPorts),
                       programSettings.Get(key::ModemLines), modemOptions, DetectSerialPorts());
    QtDialogueHost dialogues;
    dialogues.setStrings(&globals.strings);
    // The modem, location and ports dialogs of the telephony calls; they save into the settings.
    QtDeviceDialogs deviceDialogs(dialogues, globals.strings);
    devices.setDeviceDialogs(&deviceDialogs, &programSettings);
    // A carrier's own certificate authority, trusted besides the system's.
    if (const char* trust = std::getenv("PARLANE_TLS_TRUST_FILE"))
        devices.tcp().setExtraTrustFile(trust);
    QtRegionalFormats formats;
    frmMain form(Platform{loop, settingsStore, dialogues, formats, devices, devices, home.path},
                 globals);
    // Only a person at the screen chooses the modem: a script, the bus or the demo never waits
    // on the question, nor has it answered for them.
    if (QGuiApplication::platformName() != "offscreen" && options.rest.empty() &&
        !options.sendAndExit && !options.demo)
        form.showModemDialog = [](frmModem& dialog) { ShowModemDialog(nullptr, dialog); };
    devices.tcp().strings = &globals.strings;
    devices.tcp().onNote = [&form](const std::string& text) { form.debugLog.AppendLog(text); };
    form.Form_Load();
    MainWindow window(form);
    DesktopNotifier notifier(form, window);
    dialogues.setOwner(&window);
    deviceDialogs.setOwner(&window);
    splash.close();
    QApplication::restoreOverrideCursor();

    const bool printStatus = options.printStatus || options.demo || options.sendAndExit ||
                             QGuiApplication::platformName() == "offscreen";
    const auto started = std::chrono::steady_clock::now();
    if (printStatus) {
        window.onStatus = [started](const std::string& status) {
            const double s =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
            std::fprintf(stderr, "[%6.1f s] %s\n", s, Cp1252ToUtf8(status).c_str());
        };
    }
    window.onClosed = [] { QApplication::quit(); };
    app.onFault = [&form, &window](const std::string& what) {
        form.SaveAfterFault();
        ShowCriticalBox(&window, form.globals().strings.ProductName(),
                        form.LoadResString(sid::UnexpectedFault) + " " + what);
        window.controlsChanged();
    };
    form.onExit = [&window] { window.modelClosed(); };
    form.onShow = [&window] {
        window.showNormal();
        window.raise();
        window.activateWindow();
    };
    RemoteService remote(form,
                         [&window](const std::function<void()>& handler) { window.run(handler); });
    if (QString why; !remote.publish(why))
        form.debugLog.AppendLog(form.LoadResString(sid::LogAutomationNotOffered) + " - " +
                                FromQt(why));
    closeSignals.listen([&window, &form, printStatus](int number) {
        const std::string name = sigabbrev_np(number) ? sigabbrev_np(number) : "?";
        form.debugLog.AppendLog("SIG" + name + " - Close Request");
        if (printStatus) std::fprintf(stderr, "parlane: SIG%s, closing\n", name.c_str());
        window.close();  // a second signal while closing changes nothing
    });
    if (options.demo) {
        // The demo shows the bytes on the line too, control bytes as <n>.
        modem.onTraffic = [started](bool toCentre, const std::string& bytes) {
            std::string shown;
            for (unsigned char c : bytes)
                shown += c < 0x20 || c >= 0x7F ? "<" + std::to_string(c) + ">"
                                               : std::string(1, static_cast<char>(c));
            const double s =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
            std::fprintf(stderr, "[%6.1f s]     %s %s\n", s,
                         toCentre ? "to centre  " : "from centre", shown.c_str());
        };
    }
    // The start's name and message come last, as the load's final step.
    std::string commandLine;
    for (const auto& word : options.rest) commandLine += (commandLine.empty() ? "" : " ") + word;
    SendAndExit script(form, loop, [&form] { form.RemoteClose(); });
    if (options.sendAndExit) {
        const auto arguments = GetCommandLine(Utf8ToCp1252(commandLine));
        if (arguments.size() < 2) return kExitUsage;  // only blanks where the name should be
        form.minimised = true;
        // Started once the loop runs, so that an early end can quit it.
        QTimer::singleShot(0, &window, [&script, &window, arguments] {
            window.run([&] { script.start(arguments[1], CommandLineMessage(arguments)); });
        });
    } else {
        form.HandleCommandLine(Utf8ToCp1252(commandLine));
    }
    if (form.minimised)
        window.showMinimized();
    else
        window.show();

    if (!options.screenshot.empty()) {
        QTimer::singleShot(800, &window, [&window, &options] {
            window.grab().save(QString::fromStdString(options.screenshot));
            window.close();
        });
    }

    // A home with no centre to dial: say so and offer one, once the window stands.
    if (QGuiApplication::platformName() != "offscreen" && commandLine.empty() &&
        options.screenshot.empty() && !options.demo)
        QTimer::singleShot(0, &window, [&form] {
            form.OfferFirstCentre();
            form.changed();
        });

    QTimer demoWatch;
    const auto archiveBefore = OutboxFiles(home.path);
    if (options.demo) {
        form.txtMessage.Text =
            "Hello from Parlane: a message on its way through the simulated modem.";
        form.txtCountryCode.Text = "44";
        form.txtAreaCode.Text = "07700";
        form.txtNumber.Text = "900123";
        form.mnuSend_Click();
        QObject::connect(&demoWatch, &QTimer::timeout, [&] {
            if (form.lblInfo.Caption != form.LoadResString(sid::NoMoreMessages) + "  ") return;
            demoWatch.stop();
            for (const auto& name : OutboxFiles(home.path)) {
                if (archiveBefore.count(name)) continue;
                const auto path = home.path / "SMS" / "Outbox" / name;
                std::fprintf(stderr, "\n--- archive file %s ---\n%s\n", path.c_str(),
                             Cp1252ToUtf8(ReadWholeFile(path).value_or("")).c_str());
            }
            window.close();
        });
        demoWatch.start(250);
    } else if (QGuiApplication::platformName() == "offscreen" && !isatty(STDIN_FILENO)) {
        std::fputs("parlane: no display; running on the offscreen platform\n", stderr);
    }
    const int status = app.exec();
    if (!options.sendAndExit) return status;
    for (const auto& line : script.report())
        std::fprintf(stderr, "parlane: %s\n", Cp1252ToUtf8(line).c_str());
    return script.exitStatus();
}

}  // namespace parlane
