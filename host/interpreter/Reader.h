#pragma once

#include "host/interpreter/Heap.h"
#include "host/interpreter/SymbolTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lisp {

// Where the lists of the form that was read last begin in their source; for line numbers of compiled code.
struct SourcePositions
{
    struct Entry
    {
        const Cons *cell;
        std::uint32_t line;
    };
    std::vector<Entry> entries;
    const std::u16string *file = nullptr; // null: not from a file
    mutable bool sorted = false;

    // 0 when the list is not known here.
    std::uint32_t lineOf(const Cons *cell) const;
    void clear();
};

// Turns source text into values, one expression at a time, without recursion, so that no nesting is too deep for it.
// Malformed text raises LispError; lineNumber() and columnNumber() then say where.
class Reader
{
public:
    Reader(Heap &heap, SymbolTable &symbols, std::u16string_view text, SourcePositions *positions = nullptr);

    // The next expression; nothing at the end of the text.
    std::optional<Value> read();
    // Whether the error was that the text ends too early; more text may mend it.
    bool endedEarly() const { return m_endedEarly; }
    std::uint32_t lineNumber() const { return m_errorLine; }
    std::uint32_t columnNumber() const { return m_errorColumn; }

private:
    enum class DotState : std::uint8_t { None, TailExpected, TailRead };
    struct OpenForm // a list or a quote that is not complete yet
    {
        ListBuilder items;
        bool isQuote;
        DotState dot;
        std::size_t offset; // of its first character
        std::uint32_t line; // of its first character; 0 when nobody asks
    };

    [[noreturn]] void failAtEnd(std::size_t offset, std::u16string_view message); // began here, never ended
    [[noreturn]] void failAt(std::size_t offset, std::u16string_view message);
    void skipBlanks();
    void skipBlockComment();
    void open(bool isQuote);
    Value closeList();
    void markDot();
    bool isLoneDot() const;
    Value readString();
    char16_t readEscape();
    char16_t readOctal();
    Value readToken();
    std::u16string_view tokenText();
    // Adds a finished expression to the innermost open form; true when it completes the outermost.
    bool deliver(Value &value);
    void notePosition(Value list, std::uint32_t line);
    std::uint32_t lineAt(std::size_t offset);

    Heap &m_heap;
    SymbolTable &m_symbols;
    std::u16string_view m_text;
    SourcePositions *m_positions;
    Symbol *m_quote;
    std::size_t m_offset = 0;
    std::size_t m_countedOffset = 0; // lines are counted up to here
    std::uint32_t m_countedLine = 1;
    std::vector<OpenForm> m_open;
    std::u16string m_scratch;
    bool m_endedEarly = false;
    std::uint32_t m_errorLine = 0;
    std::uint32_t m_errorColumn = 0;
};

} // namespace lisp
