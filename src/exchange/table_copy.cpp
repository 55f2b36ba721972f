#include "exchange/table_copy.h"

#include <algorithm>
#include <cerrno>

#include "core/cp1252.h"
#include "store/directory.h"
#include "store/provider.h"

namespace parlane {

bool IsDamagedTable(std::string_view bytes, TableFormat format) {
    switch (format) {
        case TableFormat::Centres:
            return ParseProviderFile(bytes).damaged;
        case TableFormat::Directory:
            return ParseDirectoryFile(bytes).damaged;
        case TableFormat::NameList:
            return ParseNameListFile(bytes).damaged;
    }
    return false;
}

TableCopy CopyTableFile(const std::filesystem::path& from, const std::filesystem::path& to,
                        TableFormat format) {
    TableCopy copy;
    const auto bytes = ReadFileBytes(from, copy.error);
    if (!bytes) {
        copy.outcome = copy.error.number == ENOENT ? TableCopy::SourceMissing : TableCopy::Failed;
        return copy;
    }
    std::error_code ec;
    if (IsDamagedTable(*bytes, format) && std::filesystem::exists(to, ec)) {
        copy.outcome = TableCopy::KeptTarget;
        return copy;
    }
    copy.error = WriteFileBytes(to, *bytes);
    if (copy.error) copy.outcome = TableCopy::Failed;
    return copy;
}

std::vector<std::filesystem::path> DatFilesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(folder, ec), end; !ec && it != end;
         it.increment(ec)) {
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) continue;
        if (Cp1252LowerCase(it->path().extension().string()) == ".dat") files.push_back(it->path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool IsTableFileName(const std::filesystem::path& file) {
    return GroupNameProblem(file.stem().string()) != 0;
}

}  // namespace parlane
