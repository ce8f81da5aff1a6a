#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/DrawingWriter.h"

#include <memory>
#include <string>
#include <string_view>

namespace drawing {

inline std::unique_ptr<Database> databaseOf(std::string_view bytes)
{
    return std::make_unique<Database>(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

// The first record of this type behind another, or NoRecord.
inline RecordId findType(const Database &database, std::string_view type, RecordId after = NoRecord)
{
    RecordId id = database.record(after).next;
    while (id != NoRecord && database.names().text(database.record(id).type) != type)
        id = database.record(id).next;
    return id;
}

// The groups of a record with another value of one group.
inline GroupList withValue(GroupList groups, int code, GroupValue value)
{
    for (Group &group : groups)
        if (group.code == code) {
            group.value = std::move(value);
            break;
        }
    return groups;
}

// Every section, odd spacing, comments, a section and an entity that nobody knows, bytes behind the end.
inline constexpr std::string_view SampleText = R"(999
made by hand
  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  9
$DWGCODEPAGE
  3
ANSI_1252
  9
$HANDSEED
  5
30
  0
ENDSEC
  0
SECTION
  2
TABLES
  0
TABLE
  2
LAYER
  5
2
330
0
100
AcDbSymbolTable
 70
     1
  0
LAYER
  5
10
330
2
100
AcDbSymbolTableRecord
100
AcDbLayerTableRecord
  2
Walls
 70
     0
 62
     7
  6
CONTINUOUS
  0
ENDTAB
  0
ENDSEC
  0
SECTION
  2
BLOCKS
  0
BLOCK
  5
20
  8
0
  2
Door
 70
     0
 10
0.0
 20
0.0
 30
0.0
  0
CIRCLE
  5
21
  8
0
 10
1.50
 20
2.5000
 30
0.0
 40
1.0
  0
ENDBLK
  5
22
  8
0
  0
ENDSEC
  0
SECTION
  2
ENTITIES
  0
LINE
  5
23
330
1F
100
AcDbEntity
  8
Walls
999
the long wall
100
AcDbLine
 10
0.000
 20
00.0
 30
0.0
 11
10.0
   21  
5.0
 31
0.0
1001
OWN
1000
text
  0
POLYLINE
  5
24
  8
walls
 66
     1
  0
VERTEX
  5
25
  8
Walls
 10
0.0
 20
0.0
  0
SEQEND
  5
26
  8
Walls
  0
UNHEARD_OF
  5
27
  8
0
  1
kept
 67
     1
  0
ENDSEC
  0
SECTION
  2
STRANGE
  0
THING
  5
28
  0
ENDSEC
  0
EOF
and more)";

} // namespace drawing
