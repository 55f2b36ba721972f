// parlane-data: table files as JSON lines, for support and migration.
#include <iostream>
#include <string>
#include <vector>

#include "parlane-data/command_line.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> args(argv + 1, argv + argc);
    return parlane::data::RunDataTool(args, std::cin, std::cout, std::cerr);
}
