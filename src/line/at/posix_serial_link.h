#pragma once
// SerialLink over a POSIX file descriptor (a serial device or a pseudo-terminal). A reader thread
// fills a buffer and only raises the callback; everything else runs on the caller's thread.
// The descriptor belongs to whoever handed it over (the modem provider): the link never closes
// it, so the provider can still hang up and close the port after the link has let it go.

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "line/serial_link.h"

namespace parlane {

class PosixSerialLink : public SerialLink {
  public:
    PosixSerialLink() = default;
    ~PosixSerialLink() override;
    PosixSerialLink(const PosixSerialLink&) = delete;
    PosixSerialLink& operator=(const PosixSerialLink&) = delete;

    // `handle` is the file descriptor. The port is put in raw mode (speed and line settings kept).
    bool OpenCommunicationsPort(std::intptr_t handle,
                                std::function<void(std::int32_t code)> onCommEvent) override;
    bool CloseCommunicationsPort() override;
    int GetRxCharacters(RxBufferArray& buffer) override;
    bool TxChars(const std::string& bytes) override;

    // Bytes that were read from the port before it was taken over (a modem's data right behind
    // its CONNECT); they are handed out first by the next open.
    void preload(std::string bytes);
    bool isOpen() const { return fd_ >= 0; }
    // Bytes read and not yet handed out.
    std::size_t pendingBytes();
    // Told once per open, on the reader's thread, when the modem's "NO CARRIER" or "NO DIALTONE"
    // stands in the data as a line of its own: the modem has left the call, whatever its
    // carrier line says. Set it before the port is opened.
    std::function<void()> onCallEnded;

  private:
    void readerLoop(int fd, int wakeFd);
    // Raises the callback unless an event is already outstanding.
    void announce();

    int fd_ = -1;
    int wake_[2] = {-1, -1};
    std::thread reader_;
    std::function<void(std::int32_t)> onCommEvent_;
    std::mutex mutex_;
    std::string pending_;            // read, not yet handed out
    bool eventOutstanding_ = false;  // a callback was raised and not yet answered by a read
};

}  // namespace parlane
