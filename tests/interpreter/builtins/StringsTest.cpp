// Joining, cutting, case, codes, printing to strings, sorting, names.

#include "tests/interpreter/core/EvaluateText.h"

TEST(StringBuiltins, strcatJoinsAndTakesStringsOnly)
{
    expectAll({
        {"(strcat)", "\"\""},
        {"(strcat \"a\")", "\"a\""},
        {"(strcat \"a\" \"\" \"bc\")", "\"abc\""},
        {"(setq a \"x\" b (strcat a \"1\") c (strcat a \"2\")) (list a b c)", "(\"x\" \"x1\" \"x2\")"},
        {"(strcat \"a\" nil)", "error: bad argument type: stringp nil"},
        {"(strcat \"a\" 5)", "error: bad argument type: stringp 5"},
    });
}

TEST(StringBuiltins, substrCountsFrom1)
{
    expectAll({
        {"(substr \"abcde\" 2)", "\"bcde\""},
        {"(substr \"abcde\" 2 1)", "\"b\""},
        {"(substr \"abcde\" 3 2)", "\"cd\""},
        {"(substr \"abcde\" 4 99)", "\"de\""},
        {"(substr \"abcde\" 6)", "\"\""},
        {"(substr \"abcde\" 99 5)", "\"\""},
        {"(substr \"abcde\" 2 0)", "\"\""},
        {"(substr \"abcde\" 2 nil)", "\"bcde\""},
        {"(substr \"\" 1)", "\"\""},
        {"(substr \"M\303\244rz\" 2 1)", "\"\303\244\""},
        {"(substr \"abc\" 0)", "error: bad argument value: positive 0"},
        {"(substr \"abc\" 1 -1)", "error: bad argument value: non-negative -1"},
        {"(substr \"abc\" 1.5)", "error: bad argument type: fixnump: 1.5"},
        {"(substr nil 1)", "error: bad argument type: stringp nil"},
        {"(substr \"abc\")", "error: too few arguments"},
        {"(substr \"abc\" 1 2 3)", "error: too many arguments"},
    });
}

TEST(StringBuiltins, strlenCountsAllArguments)
{
    expectAll({
        {"(strlen)", "0"},
        {"(strlen \"\")", "0"},
        {"(strlen \"one\" \"two\" \"four\")", "10"},
        {"(strlen \"M\303\244rz\")", "4"},
        {"(strlen 'a)", "error: bad argument type: stringp A"},
    });
}

TEST(StringBuiltins, strcaseKeepsTheLength)
{
    expectAll({
        {"(strcase \"Sample\")", "\"SAMPLE\""},
        {"(strcase \"Sample\" T)", "\"sample\""},
        {"(strcase \"Sample\" 0)", "\"sample\""},
        {"(strcase \"Sample\" nil)", "\"SAMPLE\""},
        {"(strcase \"stra\303\237e m\303\244rz\")", "\"STRA\303\237E M\303\204RZ\""},
        {"(strlen (strcase \"\305\211\303\237\"))", "2"},
        {"(strcase 5)", "error: bad argument type: stringp 5"},
    });
}

TEST(StringBuiltins, asciiAndChrGoBetweenCharactersAndCodes)
{
    expectAll({
        {"(list (ascii \"A\") (ascii \"a\") (ascii \"BIG\") (ascii \"\"))", "(65 97 66 0)"},
        {"(list (chr 65) (chr 66) (chr 97))", "(\"A\" \"B\" \"a\")"},
        {"(ascii (chr 8364))", "8364"},
        {"(chr 0)", "\"\""},
        {"(chr -1)", "error: bad argument value: character code -1"},
        {"(chr 65536)", "error: bad argument value: character code 65536"},
        {"(chr \"A\")", "error: bad argument type: fixnump: \"A\""},
        {"(ascii 65)", "error: bad argument type: stringp 65"},
    });
}

TEST(StringBuiltins, stringsAndListsOfCodes)
{
    expectAll({
        {"(vl-string->list \"Ab\")", "(65 98)"},
        {"(vl-string->list \"\")", "nil"},
        {"(vl-list->string '(49 50))", "\"12\""},
        {"(vl-list->string nil)", "\"\""},
        {"(vl-list->string (vl-string->list \"M\303\244rz \\n\"))", "\"M\303\244rz \\n\""},
        {"(vl-list->string '(1.5))", "error: bad argument type: fixnump: 1.5"},
        {"(vl-list->string '(-1))", "error: bad argument value: character code -1"},
        {"(vl-list->string '(65 . 66))", "error: bad argument type: listp 66"},
        {"(vl-list->string \"a\")", "error: bad argument type: listp \"a\""},
        {"(vl-string-elt \"abc\" 0)", "97"},
        {"(vl-string-elt \"abc\" 2)", "99"},
        {"(vl-string-elt \"abc\" 3)", "error: bad argument value: position in the string 3"},
        {"(vl-string-elt \"abc\" -1)", "error: bad argument value: position in the string -1"},
    });
}

TEST(StringBuiltins, valuesArePrintedToStrings)
{
    expectAll({
        {"(vl-princ-to-string '(\"a\" B 1.0))", "\"(a B 1.0)\""},
        {"(vl-prin1-to-string '(\"a\" B 1.0))", "\"(\\\"a\\\" B 1.0)\""},
        {"(vl-prin1-to-string nil)", "\"nil\""},
        {"(vl-princ-to-string \"abc\")", "\"abc\""},
        {"(vl-prin1-to-string (chr 2))", "\"\\\"\\\\002\\\"\""},
        {"(vl-princ-to-string)", "error: too few arguments"},
    });
}

TEST(StringBuiltins, acadStrlsortSortsStrings)
{
    expectAll({
        {"(acad_strlsort '(\"Jan\" \"Feb\" \"Mar\" \"Apr\"))", "(\"Apr\" \"Feb\" \"Jan\" \"Mar\")"},
        {"(acad_strlsort '(\"b\" \"a\" \"b\"))", "(\"a\" \"b\" \"b\")"},
        {"(acad_strlsort nil)", "nil"},
        {"(acad_strlsort '(\"a\" 1))", "nil"},
        {"(acad_strlsort 1)", "error: bad argument type: listp 1"},
    });
}

TEST(StringBuiltins, snvalidChecksNamesOfTables)
{
    expectAll({
        {"(list (snvalid \"hocus-pocus\") (snvalid \"hocus pocus\") (snvalid \"hocus%pocus\"))", "(T T T)"},
        {"(list (snvalid \"hocus|pocus\") (snvalid \"hocus|pocus\" 0) (snvalid \"hocus|pocus\" 1))", "(nil nil T)"},
        {"(list (snvalid \"|pocus\" 1) (snvalid \"hocus|\" 1) (snvalid \"|\" 1))", "(nil nil nil)"},
        {"(list (snvalid \"\") (snvalid \"a\\nb\") (snvalid (chr 127)))", "(nil nil nil)"},
        {"(mapcar '(lambda (c) (snvalid (strcat \"a\" c))) '(\"<\" \">\" \"/\" \"\\\\\" \"\\\"\" \":\"))",
         "(nil nil nil nil nil nil)"},
        {"(mapcar '(lambda (c) (snvalid (strcat \"a\" c))) '(\";\" \"?\" \"*\" \",\" \"=\" \"`\"))",
         "(nil nil nil nil nil nil)"},
        {"(repeat 300 (setq n (strcat (cond (n) (\"\")) \"x\"))) (snvalid n)", "T"},
        {"(snvalid 5)", "error: bad argument type: stringp 5"},
    });
}
