#include "parlane-data/command_line.h"

#include <filesystem>
#include <istream>
#include <optional>
#include <ostream>

#include "core/file_io.h"
#include "parlane-data/table_json.h"
#include "parlane-data/table_kind.h"

namespace parlane::data {
namespace {

constexpr const char* kUsage =
    "usage: parlane-data show FILE [--kind provider|queue|directory|group]\n"
    "       parlane-data write KIND FILE\n"
    "show prints the records of FILE as JSON lines; write reads such lines on standard\n"
    "input and replaces FILE with them. Without --kind, show tells the kind by the name:\n"
    "smsc.dat, queue.dat, phones.dat, else a group file.\n";

int Usage(std::ostream& err, const std::string& problem) {
    err << "parlane-data: " << problem << "\n" << kUsage;
    return kExitUsage;
}

int Show(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::optional<std::string> file, kindName;
    for (std::size_t i = 1; i < args.size(); ++i) {
        if (args[i] == "--kind" && i + 1 < args.size() && !kindName) {
            kindName = args[++i];
        } else if (!file && !args[i].starts_with("-")) {
            file = args[i];
        } else {
            return Usage(err, "unexpected argument \"" + args[i] + "\"");
        }
    }
    if (!file) return Usage(err, "show needs a FILE");
    const std::filesystem::path path(*file);
    const auto kind = kindName ? KindFromName(*kindName, path) : DetectKind(path);
    if (!kind) {
        return Usage(err, kindName ? "unknown kind \"" + *kindName + "\""
                                   : *file + ": cannot tell the kind from the name; give --kind");
    }
    std::error_code ec;
    const auto bytes = std::filesystem::is_directory(path, ec) ? std::nullopt : ReadWholeFile(path);
    if (!bytes) {
        err << *file << ": cannot be read\n";
        return kExitBadData;
    }
    const ShownTable shown = ShowTable(*kind, *bytes);
    for (const auto& line : shown.lines) out << line << '\n';
    out.flush();
    if (shown.messageFirst)
        err << *file << ": record 1 is a message where the program keeps an empty record, so the "
            << "program skips it; a write puts an empty record in front of it\n";
    for (const auto record : shown.inexact)
        err << *file << ": record " << record
            << " has a byte block in an unusual form; a write stores it in the usual one\n";
    if (!shown.damaged) return 0;
    err << *file << ": damaged after record " << shown.lines.size() << " (byte "
        << shown.damageOffset << " of " << bytes->size() << ")\n";
    return kExitBadData;
}

int Write(const std::vector<std::string>& args, std::istream& in, std::ostream& err) {
    if (args.size() != 3) return Usage(err, "write needs a KIND and a FILE");
    const std::filesystem::path path(args[2]);
    const auto kind = KindFromName(args[1], path);
    if (!kind) return Usage(err, "unknown kind \"" + args[1] + "\"");
    const BuiltTable built = BuildTable(*kind, in);
    if (!built.error.empty()) {
        err << args[2] << ": not written: " << built.error << "\n";
        return kExitBadData;
    }
    if (const auto error = WriteFileAtomically(path, built.bytes); !error.empty()) {
        err << args[2] << ": cannot write: " << error << "\n";
        return kExitBadData;
    }
    if (!built.note.empty()) err << args[2] << ": " << built.note << "\n";
    return 0;
}

}  // namespace

int RunDataTool(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
                std::ostream& err) {
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        out << kUsage;
        return 0;
    }
    if (args.empty()) return Usage(err, "no command given");
    if (args[0] == "show") return Show(args, out, err);
    if (args[0] == "write") return Write(args, in, err);
    return Usage(err, "unknown command \"" + args[0] + "\"");
}

}  // namespace parlane::data
