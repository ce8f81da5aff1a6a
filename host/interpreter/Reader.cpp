#include "host/interpreter/Reader.h"

#include "host/interpreter/Errors.h"
#include "host/interpreter/text/RealText.h"

#include <algorithm>

namespace lisp {

namespace {

bool isBlank(char16_t unit)
{
    return unit <= u' ' || unit == u'\u00A0' || unit == u'\uFEFF';
}

bool endsToken(char16_t unit)
{
    return isBlank(unit) || unit == u'(' || unit == u')' || unit == u'"' || unit == u'\'' || unit == u';';
}

int digitValue(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return 16;
}

} // namespace

std::uint32_t SourcePositions::lineOf(const Cons *cell) const
{
    auto &list = const_cast<std::vector<Entry> &>(entries);
    if (!sorted)
        std::sort(list.begin(), list.end(), [](const Entry &a, const Entry &b) { return a.cell < b.cell; });
    sorted = true;
    const auto found = std::lower_bound(list.begin(), list.end(), cell,
                                        [](const Entry &entry, const Cons *wanted) { return entry.cell < wanted; });
    return found != list.end() && found->cell == cell ? found->line : 0;
}

void SourcePositions::clear()
{
    entries.clear();
    sorted = false;
}

Reader::Reader(Heap &heap, SymbolTable &symbols, std::u16string_view text, SourcePositions *positions)
    : m_heap(heap), m_symbols(symbols), m_text(text), m_positions(positions), m_quote(symbols.intern(u"QUOTE"))
{
}

std::optional<Value> Reader::read()
{
    if (m_positions)
        m_positions->clear();
    for (;;) {
        skipBlanks();
        if (m_offset == m_text.size()) {
            if (m_open.empty())
                return std::nullopt;
            failAtEnd(m_open.front().offset, u"malformed list on input");
        }
        Value value;
        switch (m_text[m_offset]) {
        case u'(':
            open(false);
            continue;
        case u'\'':
            open(true);
            continue;
        case u')':
            value = closeList();
            break;
        case u'"':
            value = readString();
            break;
        default:
            if (isLoneDot()) {
                markDot();
                continue;
            }
            value = readToken();
        }
        if (deliver(value))
            return value;
    }
}

void Reader::failAt(std::size_t offset, std::u16string_view message)
{
    m_errorLine =
        1 + static_cast<std::uint32_t>(std::count(m_text.begin(), m_text.begin() + static_cast<long>(offset), u'\n'));
    const std::size_t lineStart = offset == 0 ? std::u16string_view::npos : m_text.rfind(u'\n', offset - 1);
    m_errorColumn =
        static_cast<std::uint32_t>(offset - (lineStart == std::u16string_view::npos ? 0 : lineStart + 1)) + 1;
    fail(message);
}

void Reader::failAtEnd(std::size_t offset, std::u16string_view message)
{
    m_endedEarly = true;
    failAt(offset, message);
}

void Reader::skipBlanks()
{
    while (m_offset < m_text.size()) {
        const char16_t unit = m_text[m_offset];
        if (unit == u';') {
            if (m_offset + 1 < m_text.size() && m_text[m_offset + 1] == u'|')
                skipBlockComment();
            else
                m_offset = std::min(m_text.find(u'\n', m_offset), m_text.size());
        } else if (isBlank(unit)) {
            ++m_offset;
        } else {
            return;
        }
    }
}

void Reader::skipBlockComment()
{
    const std::size_t end = m_text.find(u"|;", m_offset + 2);
    if (end == std::u16string_view::npos)
        failAtEnd(m_offset, u"malformed comment on input");
    m_offset = end + 2;
}

void Reader::open(bool isQuote)
{
    m_open.push_back({ListBuilder(m_heap), isQuote, DotState::None, m_offset, m_positions ? lineAt(m_offset) : 0});
    ++m_offset;
}

Value Reader::closeList()
{
    if (m_open.empty())
        failAt(m_offset, u"extra right paren on input");
    const OpenForm &form = m_open.back();
    if (form.isQuote || form.dot == DotState::TailExpected)
        failAt(m_offset, u"malformed list on input");
    const Value list = form.items.list();
    notePosition(list, form.line);
    m_open.pop_back();
    ++m_offset;
    return list;
}

bool Reader::isLoneDot() const
{
    return m_text[m_offset] == u'.' && (m_offset + 1 == m_text.size() || endsToken(m_text[m_offset + 1]));
}

void Reader::markDot()
{
    if (m_open.empty() || m_open.back().isQuote || m_open.back().dot != DotState::None ||
        m_open.back().items.list().isNil())
        failAt(m_offset, u"misplaced dot on input");
    m_open.back().dot = DotState::TailExpected;
    ++m_offset;
}

Value Reader::readString()
{
    const std::size_t start = m_offset++;
    m_scratch.clear();
    for (;;) {
        const std::size_t stop = m_text.find_first_of(u"\"\\", m_offset);
        if (stop == std::u16string_view::npos)
            failAtEnd(start, u"malformed string on input");
        m_scratch.append(m_text, m_offset, stop - m_offset);
        m_offset = stop + 1;
        if (m_text[stop] == u'"')
            return m_heap.string(m_scratch);
        if (m_offset == m_text.size())
            failAtEnd(start, u"malformed string on input");
        m_scratch.push_back(readEscape());
    }
}

// The character that an escape stands for; an unknown one stands for its own letter.
char16_t Reader::readEscape()
{
    const char16_t unit = m_text[m_offset];
    if (unit >= u'0' && unit <= u'7')
        return readOctal();
    ++m_offset;
    switch (unit) {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'e':
        return u'\x1B';
    case u'U': {
        if (m_text.substr(m_offset, 1) != u"+" || m_text.size() - m_offset < 5)
            return unit;
        unsigned code = 0;
        for (std::size_t i = 1; i <= 4; ++i) {
            const int digit = digitValue(m_text[m_offset + i]);
            if (digit > 15)
                return unit;
            code = code * 16 + static_cast<unsigned>(digit);
        }
        m_offset += 5;
        return static_cast<char16_t>(code);
    }
    default:
        return unit;
    }
}

char16_t Reader::readOctal()
{
    unsigned code = 0;
    for (int digits = 0; digits < 3 && m_offset < m_text.size() && digitValue(m_text[m_offset]) < 8; ++digits)
        code = code * 8 + static_cast<unsigned>(digitValue(m_text[m_offset++]));
    return static_cast<char16_t>(code);
}

std::u16string_view Reader::tokenText()
{
    const std::size_t start = m_offset;
    while (m_offset < m_text.size() && !endsToken(m_text[m_offset]))
        ++m_offset;
    return m_text.substr(start, m_offset - start);
}

Value Reader::readToken()
{
    const std::u16string_view token = tokenText();
    if (const std::optional<Number> number = scanNumber(token))
        return toValue(*number);
    Symbol *symbol = m_symbols.intern(token);
    return symbol->name == u"NIL" ? Value::nil() : Value::symbol(symbol);
}

bool Reader::deliver(Value &value)
{
    while (!m_open.empty()) {
        OpenForm &form = m_open.back();
        if (!form.isQuote) {
            if (form.dot == DotState::TailRead)
                failAt(m_offset, u"misplaced dot on input");
            if (form.dot == DotState::TailExpected) {
                form.items.end(value);
                form.dot = DotState::TailRead;
            } else {
                form.items.add(value);
            }
            return false;
        }
        value = m_heap.cons(Value::symbol(m_quote), m_heap.cons(value, Value::nil()));
        notePosition(value, form.line);
        m_open.pop_back();
    }
    return true;
}

void Reader::notePosition(Value list, std::uint32_t line)
{
    if (m_positions && list.isCons())
        m_positions->entries.push_back({list.asCons(), line});
}

// Asked for growing offsets only.
std::uint32_t Reader::lineAt(std::size_t offset)
{
    const auto begin = m_text.begin();
    m_countedLine += static_cast<std::uint32_t>(
        std::count(begin + static_cast<long>(m_countedOffset), begin + static_cast<long>(offset), u'\n'));
    m_countedOffset = offset;
    return m_countedLine;
}

} // namespace lisp
