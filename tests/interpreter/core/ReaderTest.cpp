#include "tests/interpreter/core/EvaluateText.h"

#include "host/interpreter/Printer.h"
#include "host/interpreter/Reader.h"

namespace {

std::string readFirst(const std::string &text)
{
    lisp::Machine machine;
    const std::u16string source = wide(text);
    lisp::Reader reader(machine.heap(), machine.symbols(), source);
    const std::optional<lisp::Value> value = reader.read();
    return value ? narrow(lisp::printed(*value)) : "(end)";
}

// "MESSAGE at LINE:COLUMN", with a + when more text could mend it.
std::string readError(const std::string &text)
{
    lisp::Machine machine;
    const std::u16string source = wide(text);
    lisp::Reader reader(machine.heap(), machine.symbols(), source);
    try {
        while (reader.read()) {
        }
    } catch (const lisp::LispError &error) {
        return narrow(error.message) + " at " + std::to_string(reader.lineNumber()) + ":" +
               std::to_string(reader.columnNumber()) + (reader.endedEarly() ? "+" : "");
    }
    return "no error";
}

} // namespace

TEST(Reader, foldsSymbolsToUpperCase)
{
    EXPECT_EQ(readFirst("Foo-bar"), "FOO-BAR");
    EXPECT_EQ(readFirst("größe"), "GRÖSSE");
}

TEST(Reader, readsNumbers)
{
    EXPECT_EQ(readFirst("42"), "42");
    EXPECT_EQ(readFirst("-7"), "-7");
    EXPECT_EQ(readFirst("42."), "42.0");
    EXPECT_EQ(readFirst(".5"), "0.5");
    EXPECT_EQ(readFirst("1.0e3"), "1000.0");
    EXPECT_EQ(readFirst("2147483647"), "2147483647");
    EXPECT_EQ(readFirst("2147483648"), "2.14748e+09");
    EXPECT_EQ(readFirst("1+"), "1+");
    EXPECT_EQ(readFirst("-"), "-");
}

TEST(Reader, readsListsAndDottedPairs)
{
    EXPECT_EQ(readFirst("(1 . (2 . (3)))"), "(1 2 3)");
    EXPECT_EQ(readFirst("(1 . 2)"), "(1 . 2)");
    EXPECT_EQ(readFirst("(a b . c)"), "(A B . C)");
    EXPECT_EQ(readFirst("()"), "nil");
    EXPECT_EQ(readFirst("(nil () T)"), "(nil nil T)");
    EXPECT_EQ(readFirst("'x"), "(QUOTE X)");
    EXPECT_EQ(readFirst("''(a)"), "(QUOTE (QUOTE (A)))");
}

TEST(Reader, readsStringEscapes)
{
    EXPECT_EQ(readFirst(R"("a\"b\\c")"), R"("a\"b\\c")");
    EXPECT_EQ(readFirst(R"("\n\r\t\e")"), R"("\n\r\t\e")");
    EXPECT_EQ(readFirst(R"("\101\62")"), R"("A2")");
    EXPECT_EQ(readFirst(R"("\U+00E4")"), "\"ä\"");
    EXPECT_EQ(readFirst(R"("\q")"), R"("q")");
    EXPECT_EQ(readFirst("\"two\nlines\""), R"("two\nlines")");
}

TEST(Reader, skipsComments)
{
    EXPECT_EQ(readFirst("; one\n 1"), "1");
    EXPECT_EQ(readFirst(";| several\nlines |; 2"), "2");
    EXPECT_EQ(readFirst("(a;c\nb)"), "(A B)");
    EXPECT_EQ(readFirst("; only a comment"), "(end)");
}

TEST(Reader, namesTheLineAndColumnOfMalformedText)
{
    EXPECT_EQ(readError("(a\n  (b"), "malformed list on input at 1:1+");
    EXPECT_EQ(readError("a\n b)"), "extra right paren on input at 2:3");
    EXPECT_EQ(readError("\n\n  \"abc"), "malformed string on input at 3:3+");
    EXPECT_EQ(readError("x ;| never"), "malformed comment on input at 1:3+");
    EXPECT_EQ(readError("(a . )"), "malformed list on input at 1:6");
    EXPECT_EQ(readError("(a . b c)"), "misplaced dot on input at 1:9");
    EXPECT_EQ(readError("(. a)"), "misplaced dot on input at 1:2");
    EXPECT_EQ(readError("(')"), "malformed list on input at 1:3");
    EXPECT_EQ(readError("'"), "malformed list on input at 1:1+");
}

TEST(Reader, readsAHundredThousandNestedLists)
{
    const std::string nested = std::string(100000, '(') + std::string(100000, ')');
    EXPECT_EQ(readFirst(nested).size(), 199998u + 3); // the innermost () is nil
    EXPECT_EQ(readError(std::string(100000, '(')), "malformed list on input at 1:1+");
}
