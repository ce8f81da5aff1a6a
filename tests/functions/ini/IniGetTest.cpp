#include "tests/functions/ini/IniTest.h"

namespace {

class IniGet : public IniTest
{
protected:
    const Argument m_file = text(newFile("[Paths]\nzebra=1\nSupport=C:/x y\nempty=\n[apples]\nred=2\n"));
};

// A list of two names, as it is built.
Operations names(const char *first, const char *second)
{
    return {"getArgs",
            "newRb 5016",
            operation("prependRb 5005", second),
            operation("prependRb 5005", first),
            "retList 5016" + operation(" 5005", first) + operation(" 5005", second),
            "releaseRb list"};
}

} // namespace

TEST_F(IniGet, YieldsTheValue)
{
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"Support"), text(u"none")}), stringValue("C:/x y"));
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"apples"), text(u"red")}), stringValue("2"));
}

TEST_F(IniGet, OfAKeyWithAnEmptyValueYieldsTheEmptyStringAndNotTheDefault)
{
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"empty"), text(u"none")}), stringValue(""));
}

TEST_F(IniGet, OfAMissingKeyOfAnExistingSectionYieldsTheDefault)
{
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"missing"), text(u"none")}), stringValue("none"));
}

TEST_F(IniGet, OfAMissingKeyWithoutADefaultYieldsNil)
{
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"missing")}), noValue);
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"missing"), text(u"")}), noValue);
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"Paths"), text(u"missing"), shortInteger(10)}), noValue);
}

TEST_F(IniGet, WithOnlyTheFileYieldsTheListOfSectionNames)
{
    EXPECT_EQ(call(acetIniGet, {m_file}), names("Paths", "apples"));
}

TEST_F(IniGet, WithTheFileAndASectionYieldsItsKeyNames)
{
    const Argument file = text(newFile("[Main]\nb=1\na=2\n[Other]\nc=3\n"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main")}), names("a", "b"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main"), nil(), text(u"none")}), names("a", "b"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main"), text(u"")}), names("a", "b"));
}

TEST_F(IniGet, WithAnEmptyStringOrNilAsSectionYieldsTheListOfSectionsAgain)
{
    EXPECT_EQ(call(acetIniGet, {m_file, text(u"")}), names("Paths", "apples"));
    EXPECT_EQ(call(acetIniGet, {m_file, nil(), text(u"Support"), text(u"none")}), names("Paths", "apples"));
}

TEST_F(IniGet, OfAFileWithoutSectionsGivesAListWithoutElements)
{
    EXPECT_EQ(call(acetIniGet, {text(newFile("; nothing\n"))}),
              (Operations{"getArgs", "newRb 5016", "retList 5016", "releaseRb list"}));
}

TEST_F(IniGet, OfAnEscapedOrQuotedValueYieldsWhatWasMeant)
{
    const Argument file = text(newFile("[Main]\nquoted=\"a;b, c\"\nescaped=\\x4e2d\\n\nlist=a, b\n"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main"), text(u"quoted")}), stringValue("a;b, c"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main"), text(u"escaped")}), stringValue("中\n"));
    EXPECT_EQ(call(acetIniGet, {file, text(u"Main"), text(u"list")}), stringValue(""))
        << "several values are no string";
}
