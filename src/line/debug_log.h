#pragma once
// The telephony debug log: numbered lines, newest first, trimmed to about 5000 characters.

#include <cstdint>
#include <functional>
#include <string>

namespace parlane {

class DebugLog {
  public:
    void AppendLog(const std::string& message);
    const std::string& text() const { return text_; }
    std::int64_t lineNumber() const { return lineNumber_; }
    // The view showing the log, told after each line.
    std::function<void()> changed;

  private:
    std::string text_;
    // Wider than 16 bits on purpose: a long session must not wrap the count.
    std::int64_t lineNumber_ = 0;
};

}  // namespace parlane
