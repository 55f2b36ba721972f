#pragma once
// The process from start to end: options, the home and its lock, the settings, the splash, the
// main window, and the demo run.

#include <optional>
#include <string>
#include <vector>

namespace parlane {

struct ProgramOptions {
    std::optional<std::string> home;
    bool demo = false;
    bool printStatus = false;
    bool sendAndExit = false;  // queue the name's message, send, end with a status that says how
    std::string screenshot;    // save a picture of the main window there, then end
    std::vector<std::string> rest;  // name and message, for the command-line start
    // "help" and "version" are answered on standard output; anything else is a usage error.
    std::string error;
};

ProgramOptions ParseProgramOptions(const std::vector<std::string>& arguments);

// Returns the process's exit status.
int RunProgram(int argc, char** argv);

}  // namespace parlane
