#include "host/lisptest/Assertions.h"

#include "host/interpreter/Equality.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/text/QtText.h"
#include "host/interpreter/text/WildcardPattern.h"
#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/lisptest/TestRun.h"

using lisp::Args;
using lisp::LispError;
using lisp::Machine;
using lisp::printed;
using lisp::Value;

namespace lisptest {

namespace {

std::u16string messageOr(Args arguments, std::uint32_t index, std::u16string_view otherwise)
{
    return std::u16string(arguments.has(index) ? arguments.text(index) : otherwise);
}

Value assertTrue(Machine &machine, Args arguments)
{
    TestRun::current().check(machine, arguments[0].isTrue(), messageOr(arguments, 1, u"expected a value, got nil"));
    return arguments[0];
}

Value assertNil(Machine &machine, Args arguments)
{
    const bool isNil = arguments[0].isNil();
    const std::u16string otherwise = isNil ? std::u16string() : u"expected nil, got " + printed(arguments[0]);
    TestRun::current().check(machine, isNil, messageOr(arguments, 1, otherwise));
    return machine.boolean(true);
}

Value assertEqual(Machine &machine, Args arguments)
{
    const double fuzz = arguments.has(2) ? arguments.number(2) : 0.0;
    const bool areEqual = lisp::isEqual(machine, arguments[0], arguments[1], fuzz);
    const std::u16string message =
        areEqual ? std::u16string() : u"expected " + printed(arguments[0]) + u", got " + printed(arguments[1]);
    TestRun::current().check(machine, areEqual, message);
    return arguments[1];
}

// The value as prin1 shows it, or the message of the error that the expression ended with.
struct Outcome
{
    bool isError;
    std::u16string text;
};
Outcome outcomeOf(Machine &machine, Value expression)
{
    const Machine::CatchScope scope(machine);
    try {
        return {false, printed(machine.evaluate(expression))};
    } catch (const LispError &error) {
        return {true, error.message};
    }
}

Value assertError(Machine &machine, Args arguments)
{
    const std::u16string pattern = messageOr(arguments, 1, u"*");
    const Outcome outcome = outcomeOf(machine, arguments[0]);
    TestRun &run = TestRun::current();
    run.check(machine, outcome.isError, u"expected an error, got " + outcome.text);
    run.check(machine, lisp::WildcardPattern(pattern).matches(outcome.text),
              u"expected an error like \"" + pattern + u"\", got \"" + outcome.text + u"\"");
    return machine.string(outcome.text);
}

Value failTest(Machine &machine, Args arguments)
{
    TestRun::current().check(machine, false, arguments.text(0));
    return Value::nil();
}

Value skipTest(Machine &, Args arguments)
{
    TestRun::current().skip(messageOr(arguments, 0, u""));
}

Value captureOutput(Machine &machine, Args arguments)
{
    const std::size_t before = TestRun::current().output().size();
    machine.evaluate(arguments[0]);
    return machine.string(std::u16string_view(TestRun::current().output()).substr(before));
}

Value answerWith(Machine &machine, Args arguments)
{
    QString lines;
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        lines += lisp::toQString(arguments.text(i)) + u'\n';
    try {
        Document::of(machine).services().answers = AnswersFile::fromText(lines, QStringLiteral("answer-with"));
    } catch (const AnswersError &error) {
        lisp::fail(QString::fromUtf8(error.what()).toStdU16String());
    }
    return Value::nil();
}

constexpr lisp::BuiltinRow rows[] = {
    {"assert", "(assert VALUE [MESSAGE])", "Fails the test when the value is nil, else gives it.", assertTrue},
    {"assert-nil", "(assert-nil VALUE [MESSAGE])", "Fails the test unless the value is nil.", assertNil},
    {"assert-equal", "(assert-equal EXPECTED ACTUAL [FUZZ])",
     "Fails the test unless the values are equal, numbers within the fuzz; gives the second.", assertEqual},
    {"assert-error", "(assert-error EXPRESSION [PATTERN])",
     "Evaluates a quoted expression and fails the test unless it ends with an error whose message matches the wildcard "
     "pattern; gives the message.",
     assertError},
    {"fail-test", "(fail-test MESSAGE)", "Fails the test.", failTest},
    {"skip-test", "(skip-test [REASON])", "Ends the test, which has neither passed nor failed.", skipTest},
    {"capture-output", "(capture-output EXPRESSION)",
     "Evaluates a quoted expression and gives the text that it prints on the command line.", captureOutput},
    {"answer-with", "(answer-with [LINE ...])",
     "Answers what the program asks from now on by these lines of an answers file, in place of those that are left.",
     answerWith},
};

} // namespace

std::span<const lisp::BuiltinRow> assertionBuiltins()
{
    return rows;
}

} // namespace lisptest
