#include "host/drawing/NewDrawing.h"

#include "host/drawing/NewDrawingHeader.h"
#include "host/drawing/NewDrawingObjects.h"
#include "host/drawing/NewDrawingTables.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace drawing {

namespace {

constexpr qsizetype CodeWidth = 3;
constexpr QByteArrayView LineEnd = "\r\n";

// Each line of the compact form is a group: its code, a blank, its value; an empty value has no blank before it.
void appendGroups(QByteArray &file, std::string_view lines)
{
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        const std::string_view line = lines.substr(0, end);
        const std::size_t code = std::min(line.find(' '), line.size());
        file += QByteArray(line.data(), static_cast<qsizetype>(code)).rightJustified(CodeWidth);
        file += LineEnd;
        file += QByteArrayView(line.substr(std::min(code + 1, line.size())));
        file += LineEnd;
        lines.remove_prefix(end + 1);
    }
}

// Each line is a header variable: its name, then the code and the value of each of its groups, with bars between them.
void appendVariables(QByteArray &file, std::string_view lines)
{
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        std::string groups = "9 " + std::string(lines.substr(0, end)) + "\n";
        for (char &letter : groups)
            letter = letter == '|' ? '\n' : letter;
        appendGroups(file, groups);
        lines.remove_prefix(end + 1);
    }
}

} // namespace

QByteArray newDrawing()
{
    QByteArray file;
    appendGroups(file, "0 SECTION\n2 HEADER\n");
    appendVariables(file, newdrawing::Header);
    appendGroups(file, "0 ENDSEC\n0 SECTION\n2 CLASSES\n");
    appendGroups(file, newdrawing::Classes);
    appendGroups(file, "0 ENDSEC\n0 SECTION\n2 TABLES\n");
    appendGroups(file, newdrawing::Tables);
    appendGroups(file, "0 ENDSEC\n0 SECTION\n2 BLOCKS\n");
    appendGroups(file, newdrawing::Blocks);
    appendGroups(file, "0 ENDSEC\n0 SECTION\n2 ENTITIES\n0 ENDSEC\n0 SECTION\n2 OBJECTS\n");
    appendGroups(file, newdrawing::Objects);
    appendGroups(file, "0 ENDSEC\n0 EOF\n");
    return file;
}

} // namespace drawing
