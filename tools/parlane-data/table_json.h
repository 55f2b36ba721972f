#pragma once
// A whole table file as JSON lines, one record per line, and back.

#include <cstddef>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

#include "parlane-data/table_kind.h"

namespace parlane::data {

struct ShownTable {
    std::vector<std::string> lines;  // one JSON object per record that could be read
    bool damaged = false;            // the bytes ended inside a record or held an impossible length
    std::size_t damageOffset = 0;    // where the unreadable record starts
    // Records (counted from 1) that a write would store differently: the record encoding keeps
    // neither a byte block's lower bound nor a one-dimension empty block.
    std::vector<std::size_t> inexact;
    // queue.dat whose first record is a message: the program skips it as the placeholder, and
    // a write puts an empty record in front of it.
    bool messageFirst = false;
};

ShownTable ShowTable(TableKind kind, std::string_view bytes);

struct BuiltTable {
    std::string bytes;
    std::string error;  // names the line and the problem; `bytes` is then empty
    std::string note;   // something the build added that the user should know
};

// Blank lines are skipped; line numbers in errors count them all the same.
BuiltTable BuildTable(TableKind kind, std::istream& lines);

}  // namespace parlane::data
