#pragma once
// The serial library's contract for the bytes of a call: it takes over the port that telephony
// opened, tells the program when characters wait, hands them over, and writes bytes unchanged.

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace parlane {

inline constexpr std::size_t kRxBufferSize = 1000;
using RxBufferArray = std::array<std::uint8_t, kRxBufferSize>;

// The most a link keeps read and not yet handed out. A centre that floods the line cannot make
// the program grow without end: past this the oldest bytes go, as from a full receive buffer.
// A prompt or a frame is a few hundred bytes, so nothing a dialogue needs is lost this way.
inline constexpr std::size_t kLinkBufferLimit = 1 << 20;

inline void AppendToLinkBuffer(std::string& pending, const char* data, std::size_t n) {
    if (n >= kLinkBufferLimit) {
        pending.assign(data + (n - kLinkBufferLimit), kLinkBufferLimit);
        return;
    }
    if (pending.size() + n > kLinkBufferLimit)
        pending.erase(0, pending.size() + n - kLinkBufferLimit);
    pending.append(data, n);
}

class SerialLink {
  public:
    virtual ~SerialLink() = default;
    // `onCommEvent` may be called from another thread: it must only record the code and wake the
    // loop. Code 1 means characters wait. Returns false when the port cannot be taken over.
    virtual bool OpenCommunicationsPort(std::intptr_t handle,
                                        std::function<void(std::int32_t code)> onCommEvent) = 0;
    // Harmless when nothing is open; false then.
    virtual bool CloseCommunicationsPort() = 0;
    // Stores at most 1000 bytes from index 0, bytes not returned before, in order; returns the
    // count, 0 on error. Bytes still held back bring a further event.
    virtual int GetRxCharacters(RxBufferArray& buffer) = 0;
    // Both write all the bytes, in order with earlier writes; results are not looked at.
    virtual bool TxChars(const std::string& bytes) = 0;
    virtual bool TxCharacters(const std::string& bytes) { return TxChars(bytes); }
};

}  // namespace parlane
