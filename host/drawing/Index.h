#pragma once

#include "host/drawing/FileFormat.h"
#include "host/drawing/ReadWatch.h"
#include "host/drawing/Record.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace drawing {

// What a file holds that is not as it should be. It is kept and written back all the same.
struct Oddities
{
    std::size_t count = 0;
    std::string first; // for the user: where and what; empty when there are none

    void note(std::string_view what)
    {
        if (count++ == 0)
            first = what;
    }
};

// Where the records of a file lie, in the file's order. The handles of records that have none in the file are 0.
struct Index
{
    std::vector<Record> records; // the first is the preamble
    NameTable names;
    std::vector<RecordId> sections;              // their starts
    std::vector<RecordId> named;                 // table records and the starts of blocks
    std::unordered_map<RecordId, RecordId> ends; // of sections, tables and blocks, by their starts
    Oddities oddities;
};

// One pass over the bytes; takes any bytes.
Index indexOf(std::string_view bytes, const FileFormat &format, const ReadWatch &watch = {});

} // namespace drawing
