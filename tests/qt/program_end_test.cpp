// The whole program on the modem emulator's pseudo-terminal: however the process ends (by itself
// after a command-line send, on SIGTERM during a call, on SIGINT with a modem gone deaf), the
// modem was told to hang up while the program still ran, within the limit, and the UUCP lock went
// with it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#include "core/file_io.h"
#include "line/modem_config.h"
#include "store/directory.h"
#include "store/provider.h"
#include "support/pty_modem_emulator.h"
#include "support/test_platform.h"
#include "ui/frm_main.h"

extern char** environ;

namespace parlane {
namespace {

using Clock = std::chrono::steady_clock;
using testing::PtyModemEmulator;
using testing::TempFolder;

template <typename Predicate>
bool WaitFor(Predicate predicate, std::chrono::seconds limit) {
    const auto until = Clock::now() + limit;
    while (!predicate()) {
        if (Clock::now() > until) return false;
        std::this_thread::sleep_for(Milliseconds(20));
    }
    return true;
}

// One start of the program with "Ann hello" on its command line; Ann's centre dials device 2,
// the emulated modem. A home saved before the internet line had that port on device 1, with the
// modem's block in the centre.
struct ProgramRun {
    explicit ProgramRun(bool homeFromBefore = false) {
        auto centre = testing::MakeProvider("Modem", ProtocolTap, "3");
        centre.TapiDevice = homeFromBefore ? "1" : "2";
        centre.AreaCode = "0800";
        centre.Number = "100100";
        if (homeFromBefore) centre.DevConfig = EncodeModemConfig(ModemConfig{});
        DirectoryEntry ann{"Ann", "44", "07700", "900123", "Modem"};
        std::string error;
        WriteFileAtomically(home.path() / "smsc.dat", SerializeProviderFile({centre}, error));
        WriteFileAtomically(home.path() / "phones.dat", SerializeDirectoryFile({ann}, error));
        std::ofstream(home.path() / "Parlane.ini")
            << "[FirstRun]\nModem=4\n[Modem]\nPorts=" << port << "\nIndex=" << centre.TapiDevice
            << "\nName=" << port << "\n";
    }
    ~ProgramRun() {
        if (pid > 0) {
            kill(pid, SIGKILL);
            waitpid(pid, nullptr, 0);
        }
    }
    void start() {
        const std::string homeArg = home.path().string();
        const std::string output = (home.path() / "stderr.txt").string();
        std::vector<std::string> env = {"PARLANE_LOCK_DIR=" + locks.path().string(),
                                        "QT_QPA_PLATFORM=offscreen"};
        for (char** e = environ; *e; ++e)
            if (std::string(*e).rfind("PARLANE_", 0) != 0) env.emplace_back(*e);
        std::vector<char*> envp;
        for (auto& e : env) envp.push_back(e.data());
        envp.push_back(nullptr);
        pid = fork();
        if (pid == 0) {
            // The test runner's own signal settings must not reach the program.
            for (int s : {SIGTERM, SIGINT, SIGHUP}) signal(s, SIG_DFL);
            sigset_t none;
            sigemptyset(&none);
            sigprocmask(SIG_SETMASK, &none, nullptr);
            const int fd = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            dup2(fd, STDOUT_FILENO);
            dup2(fd, STDERR_FILENO);
            std::vector<const char*> argv = {"parlane", "--home", homeArg.c_str()};
            for (const auto& a : arguments) argv.push_back(a.c_str());
            argv.push_back(nullptr);
            execve(PARLANE_PROGRAM, const_cast<char**>(argv.data()), envp.data());
            _exit(127);
        }
    }
    // The exit status, or nothing when the process had to be killed.
    std::optional<int> end(std::chrono::seconds limit) {
        int status = 0;
        if (!WaitFor([&] { return waitpid(pid, &status, WNOHANG) == pid; }, limit)) return {};
        pid = -1;
        return status;
    }
    // ATH came after the last dial, not just the port closing.
    bool hungUpByCommand() const {
        const auto commands = emulator.commands();
        bool dialled = false, hungUp = false;
        for (const auto& c : commands) {
            if (c.rfind("ATD", 0) == 0) dialled = true, hungUp = false;
            if (c == "ATH") hungUp = dialled;
        }
        return hungUp;
    }
    std::string output() const {
        return ReadWholeFile(home.path() / "stderr.txt").value_or(std::string());
    }

    PtyModemEmulator emulator;
    const std::string port = emulator.devicePath();
    TempFolder home, locks;
    pid_t pid = -1;
    std::vector<std::string> arguments{"Ann", "hello"};
};

TEST(ProgramEnd, TheModemHangsUpBeforeTheProcessEnds) {
    struct Case {
        const char* name;
        int signal;  // 0: the command-line start ends by itself
        bool deaf;
    };
    const Case cases[] = {{"ends by itself", 0, false},
                          {"SIGTERM during the call", SIGTERM, false},
                          {"SIGINT, the modem deaf", SIGINT, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ProgramRun run;
        run.start();
        ASSERT_TRUE(WaitFor([&] { return run.emulator.callUp(); }, std::chrono::seconds(40)))
            << run.output();
        EXPECT_FALSE(std::filesystem::is_empty(run.locks.path()));
        const auto asked = Clock::now();
        if (c.deaf) run.emulator.goDeaf();
        if (c.signal) kill(run.pid, c.signal);
        const auto status = run.end(std::chrono::seconds(60));
        const auto took = Clock::now() - asked;
        ASSERT_TRUE(status) << run.output();
        EXPECT_TRUE(WIFEXITED(*status) && WEXITSTATUS(*status) == 0) << run.output();
        EXPECT_TRUE(std::filesystem::is_empty(run.locks.path()));
        if (!c.deaf) {
            EXPECT_TRUE(run.hungUpByCommand()) << run.output();
        }
        if (c.signal) {
            // Ended during the call: the message waits in the queue for the next start.
            EXPECT_TRUE(std::filesystem::exists(run.home.path() / "queue.dat")) << run.output();
            EXPECT_LT(took, frmMain::kExitDropLimit + Milliseconds(1500));
        } else {
            EXPECT_EQ(run.emulator.accepted(), 1);
        }
        std::printf("[ measured ] %s: %.2f s from %s to the end\n", c.name,
                    std::chrono::duration<double>(took).count(),
                    c.signal ? "the signal" : "the call");
    }
}

// A home saved before the internet line had its first port on number 1, where the internet line
// stands now. Started by a script, with no one to answer the modem question, it still dials its
// own port, and the archive and the exit status tell a real delivery.
TEST(ProgramRoads, AHomeFromBeforeTheInternetLineStillDialsItsPort) {
    ProgramRun run(true);
    run.arguments = {"--send-and-exit", "Ann", "hello"};
    run.start();
    const auto status = run.end(std::chrono::seconds(60));
    ASSERT_TRUE(status) << run.output();
    EXPECT_TRUE(WIFEXITED(*status) && WEXITSTATUS(*status) == 0) << run.output();
    EXPECT_NE(run.emulator.dialled().find("0800100100"), std::string::npos);
    EXPECT_EQ(run.emulator.accepted(), 1);
    std::string archived;
    for (const auto& e : std::filesystem::directory_iterator(run.home.path() / "SMS" / "Outbox"))
        archived += ReadWholeFile(e.path()).value_or("");
    EXPECT_NE(archived.find("Status: \tMessage Sent Successfully\r\n"), std::string::npos)
        << archived;
    const auto centres = ParseProviderFile(*ReadWholeFile(run.home.path() / "smsc.dat")).records;
    EXPECT_EQ(centres.at(0).TapiDevice, "2");
    const auto settings = ReadWholeFile(run.home.path() / "Parlane.ini").value_or("");
    // The numbers are remembered now, and the chosen modem follows its port.
    EXPECT_NE(settings.find("Lines=\"simulated;internet;" + run.port + "\""), std::string::npos)
        << settings;
    EXPECT_NE(settings.find("Index=2"), std::string::npos) << settings;
}

}  // namespace
}  // namespace parlane
