#pragma once
// A start with a name and a message on the command line.

#include <string>
#include <vector>

namespace parlane {

// The arguments as the program's start reads them: element 0 stays empty, arguments from 1.
// Only the first 171 characters count; blanks and tabs separate; at most `maxArgs` arguments.
std::vector<std::string> GetCommandLine(const std::string& commandLine, int maxArgs = 51);

// Arguments 2 to n joined by single blanks; argument 1 alone when there is no other.
std::string CommandLineMessage(const std::vector<std::string>& arguments);

}  // namespace parlane
