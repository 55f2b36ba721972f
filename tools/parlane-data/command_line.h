#pragma once
// The command line of parlane-data, apart from the process so that tests can drive it.

#include <iosfwd>
#include <string>
#include <vector>

namespace parlane::data {

inline constexpr int kExitUsage = 1;
inline constexpr int kExitBadData = 2;  // a damaged file, bad input lines or a failed write

// `args` leaves out the program's name. Returns the exit status.
int RunDataTool(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
                std::ostream& err);

}  // namespace parlane::data
