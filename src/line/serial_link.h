#pragma once
// The serial library's contract for the bytes of a call.

#include <cstdint>
#include <functional>
#include <string>

namespace parlane {

class SerialLink {
  public:
    virtual ~SerialLink() = default;
    // `onEvent` may be called from another thread: it must only record and wake the loop.
    virtual bool OpenCommunicationsPort(std::intptr_t handle,
                                        std::function<void(int eventCode)> onEvent) = 0;
    // Harmless when the port is not open.
    virtual bool CloseCommunicationsPort() = 0;
    virtual bool TxChars(const std::string& bytes) = 0;
    // Up to `maximum` bytes that have arrived.
    virtual std::string RxChars(std::size_t maximum) = 0;
};

}  // namespace parlane
