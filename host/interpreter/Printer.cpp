#include "host/interpreter/Printer.h"

#include "host/interpreter/Code.h"
#include "host/interpreter/text/RealText.h"

#include <QString>

#include <string_view>
#include <vector>

namespace lisp {

namespace {

void printEscaped(std::u16string &text, std::u16string_view characters)
{
    text += u'"';
    for (const char16_t unit : characters) {
        switch (unit) {
        case u'"':
            text += u"\\\"";
            break;
        case u'\\':
            text += u"\\\\";
            break;
        case u'\n':
            text += u"\\n";
            break;
        case u'\r':
            text += u"\\r";
            break;
        case u'\t':
            text += u"\\t";
            break;
        case u'\x1B':
            text += u"\\e";
            break;
        default:
            if (unit < u' ' || unit == u'\x7F') {
                text += u'\\';
                for (int shift = 6; shift >= 0; shift -= 3)
                    text += static_cast<char16_t>(u'0' + ((unit >> shift) & 7));
            } else {
                text += unit;
            }
        }
    }
    text += u'"';
}

void printNamed(std::u16string &text, std::u16string_view kind, const Symbol *name)
{
    text.append(u"#<").append(kind);
    if (name)
        text.append(u" ").append(name->name);
    text.append(u">");
}

void printObject(std::u16string &text, const Object *object)
{
    switch (object->kind) {
    case ObjectKind::Function:
        printNamed(text, u"USUBR", static_cast<const Function *>(object)->name);
        break;
    case ObjectKind::Builtin:
        printNamed(text, u"SUBR", static_cast<const Builtin *>(object)->name);
        break;
    case ObjectKind::External:
        printNamed(text, u"EXRXSUBR", static_cast<const External *>(object)->name);
        break;
    case ObjectKind::Traced:
        print(text, static_cast<const Traced *>(object)->function, PrintStyle::Readable);
        break;
    case ObjectKind::Native:
        text += static_cast<const Native *>(object)->printed();
        break;
    case ObjectKind::String:
        break; // strings have a tag of their own
    }
}

void printAtom(std::u16string &text, Value value, PrintStyle style)
{
    if (value.isNil())
        text += u"nil";
    else if (value.isInteger())
        text += QString::number(value.asInteger()).toStdU16String();
    else if (value.isReal())
        text += realText(value.asReal());
    else if (value.isSymbol())
        text += value.asSymbol()->name;
    else if (value.isObject())
        printObject(text, value.asObject());
    else if (style == PrintStyle::Plain)
        text += value.asString()->view();
    else
        printEscaped(text, value.asString()->view());
}

} // namespace

void print(std::u16string &text, Value value, PrintStyle style)
{
    std::vector<Value> rests; // what is still to print of each open list
    for (;;) {
        while (value.isCons()) {
            text += u'(';
            rests.push_back(value.asCons()->cdr);
            value = value.asCons()->car;
        }
        printAtom(text, value, style);
        while (!rests.empty() && !rests.back().isCons()) {
            if (rests.back().isTrue()) {
                text += u" . ";
                printAtom(text, rests.back(), style);
            }
            text += u')';
            rests.pop_back();
        }
        if (rests.empty())
            return;
        text += u' ';
        value = rests.back().asCons()->car;
        rests.back() = rests.back().asCons()->cdr;
    }
}

std::u16string printed(Value value, PrintStyle style)
{
    std::u16string text;
    print(text, value, style);
    return text;
}

} // namespace lisp
