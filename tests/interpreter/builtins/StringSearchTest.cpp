// Searching, replacing, trimming, comparing and matching.

#include "tests/interpreter/core/EvaluateText.h"

TEST(StringSearchBuiltins, searchGivesThePositionFrom0)
{
    expectAll({
        {"(vl-string-search \"foo\" \"pfooyey on you\")", "1"},
        {"(vl-string-search \"who\" \"pfooyey on you\")", "nil"},
        {"(vl-string-search \"foo\" \"fooey-more-fooey\" 1)", "11"},
        {"(vl-string-search \"foo\" \"foo\" 99)", "nil"},
        {"(vl-string-search \"\" \"abc\")", "0"},
        {"(vl-string-search \"F\" \"foo\")", "nil"},
        {"(vl-string-search \"f\" \"foo\" -1)", "error: bad argument value: non-negative -1"},
        {"(vl-string-search 'f \"foo\")", "error: bad argument type: stringp F"},
        {"(vl-string-search \"f\" nil)", "error: bad argument type: stringp nil"},
    });
}

TEST(StringSearchBuiltins, positionFindsACharacterFromEitherEnd)
{
    expectAll({
        {"(vl-string-position (ascii \"z\") \"azbdc\")", "1"},
        {"(vl-string-position 122 \"azbzc\")", "1"},
        {"(vl-string-position (ascii \"x\") \"azbzc\")", "nil"},
        {"(vl-string-position (ascii \"z\") \"azbzlmnqc\" 2)", "3"},
        {"(vl-string-position (ascii \"z\") \"azbzlmnqc\" nil T)", "3"},
        {"(vl-string-position (ascii \"z\") \"azbzlmnqc\" 2 T)", "3"},
        {"(vl-string-position (ascii \"z\") \"azbzlmnqc\" 4 T)", "nil"},
        {"(vl-string-position (ascii \"x\") \"azbzlmnqc\" nil T)", "nil"},
        {"(vl-string-position \"z\" \"azb\")", "error: bad argument type: fixnump: \"z\""},
        {"(vl-string-position 122 \"azb\" -1)", "error: bad argument value: non-negative -1"},
    });
}

TEST(StringSearchBuiltins, substReplacesTheFirstPlace)
{
    expectAll({
        {"(vl-string-subst \"Obi-wan\" \"Ben\" \"Ben Kenobi\")", "\"Obi-wan Kenobi\""},
        {"(vl-string-subst \"x\" \"ben\" \"Ben Kenobi\")", "\"Ben Kenobi\""},
        {"(vl-string-subst \"b\" \"a\" \"a a a\")", "\"b a a\""},
        {"(vl-string-subst \"b\" \"a\" \"a a a\" 1)", "\"a b a\""},
        {"(vl-string-subst \"\" \"a\" \"banana\")", "\"bnana\""},
        {"(vl-string-subst \"x\" \"\" \"abc\")", "\"abc\""},
        {"(vl-string-subst \"x\" \"a\" \"abc\" 9)", "\"abc\""},
        {"(vl-string-subst 1 \"a\" \"abc\")", "error: bad argument type: stringp 1"},
    });
}

TEST(StringSearchBuiltins, translateReplacesCharacterByCharacter)
{
    expectAll({
        {"(vl-string-translate \"ABC\" \"123\" \"A, a, B, b, C, c, ABC, abc\")", "\"1, a, 2, b, 3, c, 123, abc\""},
        {"(vl-string-translate \"abc\" \"123\" \"A, a, B, b, C, c, ABC, abc\")", "\"A, 1, B, 2, C, 3, ABC, 123\""},
        {"(vl-string-translate \"/\" \"\\\\\" \"a/b\")", "\"a\\\\b\""},
        {"(vl-string-translate \"abc\" \"1\" \"abcd\")", "\"111d\""},
        {"(vl-string-translate \"abc\" \"\" \"abcd\")", "\"abcd\""},
        {"(vl-string-translate 1 \"\" \"\")", "error: bad argument type: stringp 1"},
    });
}

TEST(StringSearchBuiltins, trimTakesCharactersOfTheSetAway)
{
    expectAll({
        {"(vl-string-left-trim \" \\t\\n\" \"\\n\\t STR \")", "\"STR \""},
        {"(vl-string-left-trim \"12456789\" \"12463CPO is not R2D2\")", "\"3CPO is not R2D2\""},
        {"(vl-string-right-trim \" \\t\\n\" \" STR \\n\\t \")", "\" STR\""},
        {"(vl-string-right-trim \"356789\" \"3CPO is not R2D267\")", "\"3CPO is not R2D2\""},
        {"(vl-string-trim \" \\t\\n\" \" \\t\\n STR \\n\\t \")", "\"STR\""},
        {"(vl-string-trim \"this is junk\" \"this is junk Don't call this junk! this is junk\")",
         "\"Don't call this junk!\""},
        {"(vl-string-trim \" \" \"   \")", "\"\""},
        {"(vl-string-trim \"\" \" a \")", "\" a \""},
        {"(vl-string-trim \" \" nil)", "error: bad argument type: stringp nil"},
    });
}

TEST(StringSearchBuiltins, mismatchGivesTheLengthOfTheCommonBeginning)
{
    expectAll({
        {"(vl-string-mismatch \"VL-FUN\" \"VL-VAR\")", "3"},
        {"(vl-string-mismatch \"vl-fun\" \"avl-var\")", "0"},
        {"(vl-string-mismatch \"vl-fun\" \"avl-var\" 0 1)", "3"},
        {"(vl-string-mismatch \"VL-FUN\" \"Vl-vAR\")", "1"},
        {"(vl-string-mismatch \"VL-FUN\" \"Vl-vAR\" 0 0 T)", "3"},
        {"(vl-string-mismatch \"abc\" \"abc\")", "3"},
        {"(vl-string-mismatch \"abc\" \"abc\" 9 9)", "0"},
        {"(vl-string-mismatch \"abc\" \"abc\" -1)", "error: bad argument value: non-negative -1"},
        {"(vl-string-mismatch \"abc\" 1)", "error: bad argument type: stringp 1"},
    });
}

TEST(StringSearchBuiltins, wcmatchMatchesPatterns)
{
    expectAll({
        {"(wcmatch \"Name\" \"N*\")", "T"},
        {"(wcmatch \"Name\" \"n*\")", "nil"},
        {"(wcmatch \"Name\" \"???,~*m*,N*\")", "T"},
        {"(wcmatch \"Name\" \"*`,*\")", "nil"},
        {"(wcmatch \"Na,me\" \"*`,*\")", "T"},
        {"(wcmatch \"A-17\" \"[A-C]-##\")", "T"},
        {"(wcmatch \"\" \"*\")", "T"},
        {"(wcmatch 1 \"*\")", "error: bad argument type: stringp 1"},
        {"(wcmatch \"a\" nil)", "error: bad argument type: stringp nil"},
        {"(wcmatch \"a\")", "error: too few arguments"},
    });
}
