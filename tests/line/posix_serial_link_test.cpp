// The serial link over a pseudo-terminal: reads in turns of at most 1000 bytes, every byte value
// both ways, and a close that is harmless when repeated and leaves the descriptor to its owner.
#include "line/at/posix_serial_link.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "support/real_time_loop.h"

namespace parlane {
namespace {

struct PtyPair {
    PtyPair() {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        grantpt(master);
        unlockpt(master);
        slave = open(ptsname(master), O_RDWR | O_NOCTTY);
    }
    ~PtyPair() {
        close(slave);
        close(master);
    }
    int master = -1, slave = -1;
};

std::string AllByteValues(std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i % 256);
    return bytes;
}

TEST(PosixSerialLink, ReadsInTurnsOfAtMostAThousandAndKeepsEveryByte) {
    PtyPair pty;
    testing::RealTimeLoop loop;
    PosixSerialLink link;
    int events = 0;
    ASSERT_TRUE(link.OpenCommunicationsPort(pty.slave, [&](std::int32_t code) {
        loop.post([&, code] { events += code == 1 ? 1 : 1000; });
    }));
    const std::string sent = AllByteValues(1500);
    ASSERT_EQ(write(pty.master, sent.data(), sent.size()), 1500);

    // The program's way: one read per event.
    std::string received;
    std::vector<int> turns;
    int handled = 0;
    ASSERT_TRUE(loop.runUntil([&] {
        while (handled < events) {
            ++handled;
            RxBufferArray buffer{};
            const int n = link.GetRxCharacters(buffer);
            turns.push_back(n);
            received.append(reinterpret_cast<const char*>(buffer.data()),
                            static_cast<std::size_t>(n));
        }
        return received.size() >= sent.size();
    }));
    EXPECT_EQ(received, sent);
    ASSERT_GE(turns.size(), 2u);
    for (int n : turns) {
        EXPECT_GT(n, 0);
        EXPECT_LE(n, 1000);
    }

    // Writes: NUL and the high half unchanged, in order.
    const std::string out = AllByteValues(300);
    EXPECT_TRUE(link.TxChars(out.substr(0, 100)));
    EXPECT_TRUE(link.TxCharacters(out.substr(100)));
    std::string echoed;
    char chunk[512];
    while (echoed.size() < out.size()) {
        const auto n = read(pty.master, chunk, sizeof chunk);
        ASSERT_GT(n, 0);
        echoed.append(chunk, static_cast<std::size_t>(n));
    }
    EXPECT_EQ(echoed, out);

    EXPECT_TRUE(link.CloseCommunicationsPort());
    EXPECT_FALSE(link.CloseCommunicationsPort());
    // The descriptor still belongs to whoever handed it over.
    EXPECT_GE(fcntl(pty.slave, F_GETFD), 0);
    // Nothing is read or announced after the close.
    const int before = events;
    ASSERT_EQ(write(pty.master, "x", 1), 1);
    loop.waitSecs(0.2);
    EXPECT_EQ(events, before);
    RxBufferArray buffer{};
    EXPECT_EQ(link.GetRxCharacters(buffer), 0);
}

TEST(PosixSerialLink, RefusesABadHandleAndSurvivesTheDeviceVanishing) {
    PosixSerialLink link;
    EXPECT_FALSE(link.OpenCommunicationsPort(0, [](std::int32_t) {}));
    EXPECT_FALSE(link.OpenCommunicationsPort(987654, [](std::int32_t) {}));
    EXPECT_FALSE(link.CloseCommunicationsPort());

    auto pty = std::make_unique<PtyPair>();
    ASSERT_TRUE(link.OpenCommunicationsPort(pty->slave, [](std::int32_t) {}));
    // The other side goes away: the reader must neither spin nor keep the close from returning.
    close(pty->master);
    pty->master = open("/dev/null", O_RDONLY);
    std::this_thread::sleep_for(Milliseconds(100));
    EXPECT_TRUE(link.CloseCommunicationsPort());
}

}  // namespace
}  // namespace parlane
