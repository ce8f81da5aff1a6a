#pragma once

#include "host/drawing/FileFormat.h"
#include "host/drawing/GroupCodes.h"
#include "host/drawing/LineEnds.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace drawing {

// One group as it stands in the file. Both views point into the file's bytes.
struct RawGroup
{
    int code = 0;
    std::string_view value; // the line without its end; in binary files the value's bytes, without terminator or length
    std::string_view bytes; // the whole group
};

// Walks over the groups of the text form. A line that should hold a code and does not is passed over alone, so that the
// reader is in step again with the next code; badLines() counts them.
class TextGroups
{
public:
    TextGroups(std::string_view bytes, const FileFormat &format)
        : m_lineEnds(bytes, format.lineEndMark()), m_position(bytes.data()), m_end(bytes.data() + bytes.size())
    {
    }

    bool next(RawGroup &group)
    {
        while (m_position != m_end) {
            const char *begin = m_position;
            if (!readCode(takeLine(), group.code)) {
                m_badPlace = m_badLines++ == 0 ? begin : m_badPlace;
                continue;
            }
            group.value = takeLine();
            group.bytes = {begin, static_cast<std::size_t>(m_position - begin)};
            return true;
        }
        return false;
    }
    const char *position() const { return m_position; } // where the next group begins
    void returnTo(const char *position)
    {
        m_position = position;
        m_lineEnds.goTo(position);
    }
    std::size_t badLines() const { return m_badLines; }
    const char *firstBadPlace() const { return m_badPlace; } // null: there was none

private:
    static bool readCode(std::string_view line, int &code)
    {
        return readUsualCode(line, code) || readAnyCode(line, code);
    }

    // As nearly every program writes it: right-aligned in three columns.
    static bool readUsualCode(std::string_view line, int &code)
    {
        constexpr std::size_t Columns = 3;
        if (line.size() != Columns || line[2] == ' ' || (line[1] == ' ' && line[0] != ' '))
            return false;
        const auto digit = [](char column) {
            return column == ' ' ? 0U : static_cast<unsigned char>(column) - unsigned{'0'};
        };
        const unsigned hundreds = digit(line[0]), tens = digit(line[1]), ones = digit(line[2]);
        if (hundreds > 9 || tens > 9 || ones > 9)
            return false;
        code = static_cast<int>(hundreds * 100 + tens * 10 + ones);
        return true;
    }

    static bool readAnyCode(std::string_view line, int &code)
    {
        constexpr unsigned TooLarge = 100000; // no code; more digits would overflow
        const char *at = line.data(), *const end = at + line.size();
        while (at != end && (*at == ' ' || *at == '\t'))
            ++at;
        const bool negative = at != end && *at == '-';
        at += negative;
        const char *digits = at;
        unsigned number = 0;
        for (; at != end && number < TooLarge; ++at) {
            const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
            if (digit > 9)
                break;
            number = number * 10 + digit;
        }
        if (at == digits)
            return false;
        if (!std::all_of(at, end, [](char each) { return each == ' ' || each == '\t' || each == '\r'; }))
            return false;
        code = negative ? -static_cast<int>(number) : static_cast<int>(number);
        return true;
    }

    // The line at the position, without its end, which is passed over.
    std::string_view takeLine()
    {
        const char *begin = m_position;
        const char *end = m_lineEnds.next();
        m_position = end == m_end ? end : end + 1;
        if (end != begin && end[-1] == '\r')
            --end;
        return {begin, static_cast<std::size_t>(end - begin)};
    }

    LineEnds m_lineEnds;
    const char *m_position;
    const char *m_end;
    std::size_t m_badLines = 0;
    const char *m_badPlace = nullptr;
};

// Walks over the groups of the binary form. A value that would reach beyond the end ends the walk.
class BinaryGroups
{
public:
    BinaryGroups(std::string_view bytes, const FileFormat &format)
        : m_rest(bytes), m_shortCodes(format.kind == FileFormat::Kind::BinaryShortCodes)
    {
    }
    bool next(RawGroup &group);
    const char *position() const { return m_rest.data(); }
    void returnTo(const char *position)
    {
        m_rest = {position, static_cast<std::size_t>(m_rest.data() + m_rest.size() - position)};
    }
    std::size_t badLines() const { return m_cut ? 1 : 0; }
    const char *firstBadPlace() const { return m_cut; }

private:
    bool readCode(std::string_view &rest, int &code) const;

    std::string_view m_rest;
    bool m_shortCodes;
    const char *m_cut = nullptr;
};

// Walks over the groups of either form.
class GroupCursor
{
public:
    GroupCursor(std::string_view bytes, const FileFormat &format)
        : m_text(bytes, format), m_binary(bytes, format), m_isText(format.kind == FileFormat::Kind::Text)
    {
    }
    bool next(RawGroup &group) { return m_isText ? m_text.next(group) : m_binary.next(group); }

    // To read from a place again; the place is one that this has been at.
    const char *position() const { return m_isText ? m_text.position() : m_binary.position(); }
    void returnTo(const char *position) { m_isText ? m_text.returnTo(position) : m_binary.returnTo(position); }

private:
    TextGroups m_text;
    BinaryGroups m_binary;
    bool m_isText;
};

} // namespace drawing
