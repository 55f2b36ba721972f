// parlane-po: checks the translators' catalogues and turns them into the compiled-in banks, and
// writes the template new languages start from.
//   parlane-po template OUT.pot
//   parlane-po banks OUT.cpp BANK=FILE.po...   (BANK 2 to 5)
#include <fstream>
#include <iostream>
#include <sstream>

#include "po_catalogue.h"

using namespace parlane;

namespace {

bool ReadFile(const std::string& path, std::string& text) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    text = buffer.str();
    return true;
}

// Unchanged output keeps its time stamp, so nothing recompiles for nothing.
bool WriteIfChanged(const std::string& path, const std::string& text) {
    std::string old;
    if (ReadFile(path, old) && old == text) return true;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    return static_cast<bool>(out.flush());
}

}  // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 2 ? argv[1] : "";
    if (mode == "template" && argc == 3)
        return WriteIfChanged(argv[2], po::TemplateText(Bank1Strings())) ? 0 : 1;
    if (mode != "banks" || argc < 4) {
        std::cerr << "usage: parlane-po template OUT.pot | banks OUT.cpp BANK=FILE.po...\n";
        return 2;
    }
    std::vector<po::CompiledBank> banks;
    std::vector<std::string> errors;
    for (int i = 3; i < argc; ++i) {
        const std::string arg = argv[i];
        const auto eq = arg.find('=');
        const std::string file = eq == std::string::npos ? arg : arg.substr(eq + 1);
        const int bank = eq == 1 ? arg[0] - '0' : 0;
        std::string text;
        if (bank < 2 || bank > 5 || !ReadFile(file, text)) {
            errors.push_back(arg + ": cannot read, or bank not 2 to 5");
            continue;
        }
        auto entries = po::ReadCatalogue(text, file, errors);
        for (auto& e : po::CheckCatalogue(Bank1Strings(), entries, file))
            errors.push_back(std::move(e));
        banks.push_back({bank, std::move(entries)});
    }
    for (const auto& e : errors) std::cerr << e << '\n';
    if (!errors.empty()) return 1;
    return WriteIfChanged(argv[2], po::BanksSource(banks)) ? 0 : 1;
}
