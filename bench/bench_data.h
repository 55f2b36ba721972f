#pragma once
// Realistic tables for the benchmarks, drawn from a fixed seed so that every run measures the
// same data.

#include <filesystem>
#include <string>
#include <vector>

#include "store/message_queue.h"
#include "store/provider.h"

namespace parlane::bench {

inline constexpr int kRecords = 10000;
inline constexpr unsigned kSeed = 20240611;

// "Centre 0007 Ltd": 15 bytes, and no name is a prefix of another, since the lookup is by prefix.
std::string CentreName(int index);

// A centre with every field filled, a 40-byte device configuration among them.
Provider MakeBenchProvider(int index);
std::vector<Provider> MakeProviders(int count);

// Element 0 in place, then `count` messages of 160 bytes spread at random over `centres`
// centres; ProviderIndex and ProviderName both name the centre.
MessageTable MakeMessages(int count, int centres);

// A folder under the system's temporary folder, removed with everything in it at the end.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace parlane::bench
