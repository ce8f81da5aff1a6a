#include "tests/functions/registry/RegistryTest.h"

using namespace std::string_literals;

namespace {

class RegGet : public RegistryTest
{
protected:
    Operations get(const char16_t *name) { return call(acetRegGet, {text(Path), text(name)}); }

    static Operations gives(const QString &value) { return {"getArgs", operation("retWStr", value), "releaseRb 2"}; }
};

const Operations givesNothing = {"getArgs", "releaseRb 2"};

} // namespace

TEST_F(RegGet, APathUnderHkeyCurrentUserWithABackslashAfterItOpensExactlyTheSubkeyThatFollows)
{
    set(u"size", REG_SZ, bytesOf(u"10\0"s));
    EXPECT_EQ(get(u"size"), gives(u"10"_qs));
    EXPECT_EQ(get(u"SIZE"), gives(u"10"_qs));
}

TEST_F(RegGet, ReadingWithoutAValueNameWorksOnTheKeysUnnamedValue)
{
    set(u"", REG_SZ, bytesOf(u"unnamed\0"s));
    set(u"other", REG_SZ, bytesOf(u"named\0"s));
    const Operations fromNull = {"getArgs", operation("retWStr", "unnamed"), "releaseRb null"};
    EXPECT_EQ(call(acetRegGet, {text(Path)}), fromNull);
    EXPECT_EQ(call(acetRegGet, {text(Path), nil()}), gives(u"unnamed"_qs));
    EXPECT_EQ(call(acetRegGet, {text(Path), shortInteger(1)}), gives(u"unnamed"_qs));
    EXPECT_EQ(get(u""), gives(u"unnamed"_qs));
}

TEST_F(RegGet, ReadsTextsOfEveryTypeAsTheyStand)
{
    set(u"expandable", REG_EXPAND_SZ, bytesOf(u"%PATH%\0"s));
    set(u"several", REG_MULTI_SZ, bytesOf(u"first\0second\0\0"s));
    set(u"bytes", REG_BINARY, bytesOf(u"\u4e2d\u6587\0"s));
    EXPECT_EQ(get(u"expandable"), gives(u"%PATH%"_qs));
    EXPECT_EQ(get(u"several"), gives(u"first"_qs));
    EXPECT_EQ(get(u"bytes"), gives(u"\u4e2d\u6587"_qs));
}

TEST_F(RegGet, ReadingARegDwordValueYieldsAStringMadeOfItsFourBytesAndWhateverFollowedThemInTheBufferNotANumber)
{
    set(u"earlier", REG_SZ, bytesOf(u"abcdef\0"s));
    set(u"number", REG_DWORD, QByteArray("A\0B\0", 4));
    set(u"zero", REG_DWORD, QByteArray(4, '\0'));
    EXPECT_EQ(get(u"earlier"), gives(u"abcdef"_qs));
    EXPECT_EQ(get(u"number"), gives(u"ABcdef"_qs));
    EXPECT_EQ(get(u"zero"), gives(u""_qs));
}

TEST_F(RegGet, AValueOfNoBytesLeavesWhatFollowedInTheBuffer)
{
    set(u"earlier", REG_SZ, bytesOf(u"before\0"s));
    set(u"empty", REG_SZ, QByteArray("", 0));
    EXPECT_EQ(get(u"earlier"), gives(u"before"_qs));
    EXPECT_EQ(get(u"empty"), gives(u"before"_qs));
}

TEST_F(RegGet, AValueOf4094BytesIsReadAndEndsBehindThem)
{
    set(u"x", REG_SZ, bytesOf(std::u16string(2047, u'x')));
    EXPECT_EQ(get(u"x"), gives(QString(2047, u'x')));
}

TEST_F(RegGet, AValueOf4096BytesIsReadAndNothingBeyondTheBuffer)
{
    set(u"x", REG_SZ, bytesOf(std::u16string(2048, u'x')));
    EXPECT_EQ(get(u"x"), gives(QString(2048, u'x')));
}

TEST_F(RegGet, AValueOf4098BytesYieldsNil)
{
    set(u"x", REG_SZ, bytesOf(std::u16string(2049, u'x')));
    EXPECT_EQ(get(u"x"), givesNothing);
}

TEST_F(RegGet, AMissingKeyOrValueYieldsNilWithoutAMessage)
{
    EXPECT_EQ(get(u"missing"), givesNothing);
    EXPECT_EQ(call(acetRegGet, {text(u"HKEY_CURRENT_USER\\Software\\Missing"), text(u"x")}), givesNothing);
    const Operations fromNull = {"getArgs", "releaseRb null"};
    EXPECT_EQ(call(acetRegGet, {text(u"HKEY_CURRENT_USER\\Software\\Missing")}), fromNull);
}

TEST_F(RegGet, SurplusArgumentsAreIgnored)
{
    set(u"x", REG_SZ, bytesOf(u"1\0"s));
    EXPECT_EQ(call(acetRegGet, {text(Path), text(u"x"), text(u"surplus")}), gives(u"1"_qs));
}

TEST_F(RegGet, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetRegGet, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetRegGet, {shortInteger(1), text(u"x")}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
