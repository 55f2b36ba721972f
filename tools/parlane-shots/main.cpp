// parlane-shots: starts the program's windows on a demo home under a real display (xvfb-run)
// and saves a picture of the main window and of each dialogue into the folder given.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTableView>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>
#include <functional>
#include <map>
#include <string>

#include "config/frm_first_centre.h"
#include "core/file_io.h"
#include "core/program.h"
#include "core/string_ids.h"
#include "demo_home.h"
#include "exchange/frm_backup.h"
#include "exchange/frm_restore.h"
#include "line/device_list.h"
#include "line/sim/simulated_modem.h"
#include "qt/artwork.h"
#include "qt/dialogs/archive_windows.h"
#include "qt/dialogs/centre_dialog.h"
#include "qt/dialogs/directory_dialogs.h"
#include "qt/dialogs/exchange_dialogs.h"
#include "qt/dialogs/line_option_dialogs.h"
#include "qt/dialogs/splash_window.h"
#include "qt/dialogs/tool_window.h"
#include "qt/main_window.h"
#include "qt/qt_device_dialogs.h"
#include "qt/qt_dialogue_host.h"
#include "qt/qt_event_loop.h"
#include "qt/qt_file_choosers.h"
#include "qt/qt_regional_formats.h"
#include "qt/qt_settings_store.h"
#include "qt/qt_text.h"
#include "ui/frm_main.h"

namespace parlane {
namespace {

QString outDir;
QString nameSuffix;  // "-de" and the like when a language other than English was asked for
int failures = 0;
bool expectModal = false;  // a modal dialogue is open on purpose

// Lets Qt lay out and paint for a while.
void Settle(int ms = 250) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < ms) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(10);
    }
}

bool WaitFor(const std::function<bool()>& done, int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > timeoutMs) return false;
        Settle(50);
    }
    return true;
}

void Save(QWidget& window, const QString& name) {
    const QString path = outDir + "/" + name + nameSuffix + ".png";
    const bool saved = window.grab().save(path, "PNG", 0);  // 0: the smallest file
    if (!saved) ++failures;
    std::printf("%-26s %4dx%-4d %s\"%s\"\n", qPrintable(name + nameSuffix + ".png"), window.width(),
                window.height(), saved ? "" : "NOT SAVED ", qPrintable(window.windowTitle()));
}

// A window that can be shown without its own loop.
void Shoot(QWidget& window, const QString& name) {
    window.show();
    Settle();
    Save(window, name);
    window.close();
    Settle(50);
}

// A dialogue that only opens modally: the picture is taken from inside its loop.
void ShootModal(const QString& name, const std::function<void()>& open) {
    expectModal = true;
    QTimer::singleShot(300, [name] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) {
            std::fprintf(stderr, "parlane-shots: %s did not open\n", qPrintable(name));
            ++failures;
            return;
        }
        Settle();
        Save(*window, name);
        if (auto* dialog = qobject_cast<QDialog*>(window))
            dialog->reject();
        else
            window->close();
    });
    open();
    expectModal = false;
}

// A message box nobody asked for would stop the run: say what it said and close it.
void WatchForStrayBoxes(QTimer& timer) {
    QObject::connect(&timer, &QTimer::timeout, [] {
        QWidget* window = QApplication::activeModalWidget();
        if (expectModal || !window) return;
        const auto* box = qobject_cast<QMessageBox*>(window);
        std::fprintf(stderr, "parlane-shots: closed an unexpected window \"%s\": %s\n",
                     qPrintable(window->windowTitle()), box ? qPrintable(box->text()) : "");
        if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->reject();
    });
    timer.start(500);
}

void ShootDialogues(MainWindow& window, frmMain& form, QtDialogueHost& dialogues,
                    const std::filesystem::path& home) {
    const Strings& strings = form.globals().strings;
    {
        DialDialog d(&window, form);
        Shoot(d, "frmDial");
    }
    {
        TimeoutDialog d(&window, form);
        Shoot(d, "frmTimeout");
    }
    {
        OriginatorDialog d(&window, form);
        Shoot(d, "frmOriginator");
    }
    {
        ModemInfoDialog d(&window, form);
        Shoot(d, "frmModemInfo");
    }
    {
        frmModem model(form);
        model.Form_Load();
        ModemDialog d(&window, model);
        Shoot(d, "frmModem");
    }
    ShootModal("frmDirectoryAdd", [&form] { form.mnuNew_Click(); });
    ShootModal("frmGroupAdd", [&form] { form.AddNewGroup(); });
    // The archive: two finished messages, the Outbox chosen and the newest one previewed.
    form.SaveToOutbox(form.LoadResString(sid::MessageSentSuccessfully),
                      {"44", "07700", "900123", "Running late, see you at eight.", 1, 0, ""});
    form.SaveToOutbox(form.LoadResString(sid::MessageRejectedBySmsc),
                      {"39", "0347", "5550199", "Meeting moved to Thursday.", 2, 0, ""});
    QTimer::singleShot(150, [] {
        QWidget* browser = QApplication::activeModalWidget();
        auto* tree = browser ? browser->findChild<QTreeWidget*>("tvwView") : nullptr;
        auto* list = browser ? browser->findChild<QTableView*>("lstData") : nullptr;
        if (!tree || !list) return;
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));
        list->selectRow(0);
    });
    ShootModal("frmFolders", [&window, &form] { ShowFoldersWindow(&window, form); });
    const auto outbox = QDir(QString::fromStdString(form.homePath("SMS").string()) + "/Outbox");
    const auto files = outbox.entryList({"*.msg"}, QDir::Files, QDir::Name);
    const std::string content =
        files.isEmpty() ? std::string()
                        : ReadWholeFile(outbox.filePath(files.first()).toStdString()).value_or("");
    ShootModal("frmOpen", [&] { ShowOpenMessageWindow(&window, form, content); });
    form.settings().Save(key::FirstEdit, "1");
    ShootModal("frmSMSCEdit", [&form] { form.mnuNewSMSC_Click(); });
    for (const auto& [centre, name] : {std::pair{"Demo TAP Centre", "frmSMSCEdit-edit"},
                                       {"Demo UCP Centre", "frmSMSCEdit-ucp"}}) {
        form.Services.select(form.Services.FindRow(centre));
        ShootModal(name, [&form] { form.mnuEditSMSC_Click(); });
    }
    {
        frmFirstCentre model(form);
        model.Form_Load();
        ShootModal("frmFirstCentre", [&] { ShowFirstCentreDialog(&window, model); });
    }
    {
        ToolWindow tools(&window, form);
        std::vector<QIcon> icons;
        for (const char* name : kStandardTextArtwork) icons.push_back(ArtworkIcon(name));
        tools.setIcons(icons);
        Shoot(tools, "frmToolWindow");
    }
    {
        SplashWindow d(&window, form.globals(), &form);
        Shoot(d, "frmSplash");
    }
    {
        QtOpenFileChooser chooser;
        ImportDialog d(&window, form, chooser);
        Shoot(d, "frmImport");
    }
    QtFolderChooser folders;
    {
        frmBackup model(home, home.parent_path(), strings, dialogues, folders);
        model.Form_Load();
        TableCopyDialog d(&window, "frmBackup", model, [] {});
        Shoot(d, "frmBackup");
    }
    {
        frmRestore model(home, home.parent_path(), strings, dialogues, folders);
        model.Form_Load();
        TableCopyDialog d(&window, "frmRestore", model, [] {});
        Shoot(d, "frmRestore");
    }
    {
        ModemSettingsForm model(ModemConfig{});
        model.ShowDefaultsNote(ModemConfig{});
        Shoot(*MakeFieldDialog(model, dialogues, strings, &window, "frmModemSettings"),
              "frmModemSettings");
    }
    {
        LocationForm model(DefaultDiallingLocation("GB"));
        Shoot(*MakeFieldDialog(model, dialogues, strings, &window, "frmDialLocation"),
              "frmDialLocation");
    }
    {
        // Fixed ports, so that the picture does not depend on this machine.
        PortsForm model("/dev/ttyUSB0", {{"/dev/ttyS0", "COM1"}, {"/dev/ttyUSB0", "USB modem"}});
        Shoot(*MakeFieldDialog(model, dialogues, strings, &window, "frmSerialPorts"),
              "frmSerialPorts");
    }
    // The no-response prompt is the main window's own box; show it as a call would.
    expectModal = true;
    form.frmNoResponse.Label1 =
        form.LoadResString(sid::NoResponseFor) + " 30 " + form.LoadResString(sid::SecondsWord);
    form.frmNoResponse.Label2 = form.LoadResString(sid::WaitQuestion);
    form.frmNoResponse.Visible = true;
    window.controlsChanged();
    Settle();
    if (auto* box = window.findChild<QMessageBox*>("frmNoResponse"))
        Save(*box, "frmNoResponse");
    else
        ++failures;
    form.frmNoResponse.Visible = false;
    window.controlsChanged();
    Settle();
    expectModal = false;
}

int Run(int argc, char** argv) {
    QApplication app(argc, argv);
    // The bank of each language the pictures can be taken in.
    const std::map<std::string, int> kLanguages = {
        {"en", 0}, {"en_US", 1000}, {"it", 2000}, {"de", 3000}, {"fr", 4000}};
    int offset = 0;
    if (argc == 4 && std::string(argv[1]) == "--language" && kLanguages.count(argv[2])) {
        offset = kLanguages.at(argv[2]);
        if (offset != 0) nameSuffix = QString("-") + argv[2];
    } else if (argc != 2) {
        std::fputs(
            "usage: parlane-shots [--language en|en_US|it|de|fr] FOLDER\n"
            "       (needs a display; see scripts/screenshots.sh)\n",
            stderr);
        return 1;
    }
    outDir = QString::fromLocal8Bit(argv[argc - 1]);
    QDir().mkpath(outDir);
    // A fixed place, so that the paths the dialogues show are the same at every run.
    QDir homeDir(QDir::tempPath() + "/parlane-demo");
    homeDir.removeRecursively();
    homeDir.mkpath(".");
    const std::filesystem::path home = PathFromQt(homeDir.path());

    QtSettingsStore settingsStore(homeDir.path());
    Settings(settingsStore, Strings{}.ProductName())
        .Save(key::LanguageDefault, std::to_string(offset));
    ProgramGlobals globals = ReadProgramGlobals(settingsStore);
    Settings settings(settingsStore, globals.strings.ProductName());
    PrepareDemoHome(home, settings);
    QApplication::setWindowIcon(ArtworkIcon("parlane"));

    // The platform as the program builds it, on the simulated modem only.
    QtEventLoop loop;
    SimulatedModem modem(loop);
    AtModemOptions modemOptions;
    modemOptions.location = DefaultDiallingLocation("GB");
    DeviceList devices(loop, modem, "", "", modemOptions, {});
    QtDialogueHost dialogues;
    dialogues.setStrings(&globals.strings);
    QtDeviceDialogs deviceDialogs(dialogues, globals.strings);
    devices.setDeviceDialogs(&deviceDialogs, &settings);
    QtRegionalFormats formats;
    frmMain form(Platform{loop, settingsStore, dialogues, formats, devices, devices, home},
                 globals);
    form.Form_Load();
    MainWindow window(form);
    dialogues.setOwner(&window);
    deviceDialogs.setOwner(&window);
    QTimer strayBoxes;
    WatchForStrayBoxes(strayBoxes);
    window.show();
    Settle();

    FillDemoWindow(form);
    Compose(form, "Alice Martin", "Running ten minutes late, please start without me.");
    Settle();
    Save(window, "main-window");

    if (!form.mnuViewQueue.Checked) form.mnuViewQueue_Click();
    if (!form.mnuGroup.Checked) form.mnuGroup_Click();
    window.controlsChanged();
    Settle();
    Save(window, "main-window-panels");

    ShootDialogues(window, form, dialogues, home);

    // A call through the simulated modem, in real time.
    form.mnuSend_Click();
    if (WaitFor([&form] { return form.state.CallActive; }, 30000)) {
        Settle(1500);
        Save(window, "main-window-call");
        // The debug view while the centre answers: both line panes have something to show.
        form.mnuDebug2_Click();
        const auto& received = form.DebugForm.FromServer;
        WaitFor([&] { return received.Text().find("<6>") != received.Text().rfind("<6>"); }, 20000);
        Settle(500);
        if (auto* debug = window.findChild<QWidget*>("frmDebug"))
            Save(*debug, "frmDebug");
        else
            ++failures;
    } else {
        std::fputs("parlane-shots: the call did not come up\n", stderr);
        ++failures;
    }
    const std::string done = form.LoadResString(sid::NoMoreMessages) + "  ";
    if (!WaitFor([&] { return form.lblInfo.Caption == done; }, 90000))
        std::fputs("parlane-shots: the run did not end in time\n", stderr);
    form.setObserver(nullptr);
    homeDir.removeRecursively();
    return failures == 0 ? 0 : 1;
}

}  // namespace
}  // namespace parlane

int main(int argc, char** argv) {
    return parlane::Run(argc, argv);
}
