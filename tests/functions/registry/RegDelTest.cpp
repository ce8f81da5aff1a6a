#include "tests/functions/registry/RegistryTest.h"

using namespace std::string_literals;

namespace {

class RegDel : public RegistryTest
{
};

Operations result(const char *operationName, const char *released)
{
    return {"getArgs", operationName, std::string("releaseRb ") + released};
}

} // namespace

TEST_F(RegDel, RemovesTheValueAndNoOther)
{
    set(u"x", REG_SZ, bytesOf(u"1\0"s));
    set(u"y", REG_SZ, bytesOf(u"2\0"s));
    EXPECT_EQ(call(acetRegDel, {text(Path), text(u"X")}), result("retT", "2"));
    EXPECT_EQ(data(u"x"), "missing");
    EXPECT_EQ(data(u"y"), bytesOf(u"2\0"s));
}

TEST_F(RegDel, DeletingAValueThatDoesNotExistYieldsNil)
{
    EXPECT_EQ(call(acetRegDel, {text(Path), text(u"missing")}), result("retNil", "2"));
    EXPECT_EQ(call(acetRegDel, {text(Path)}), result("retNil", "null"));
}

TEST_F(RegDel, DeletingInAKeyThatDoesNotExistYieldsNil)
{
    EXPECT_EQ(call(acetRegDel, {text(std::u16string(Path) + u"\\missing"), text(u"x")}), result("retNil", "2"));
}

TEST_F(RegDel, DeletingWithoutAValueNameWorksOnTheKeysUnnamedValue)
{
    set(u"", REG_SZ, bytesOf(u"1\0"s));
    EXPECT_EQ(call(acetRegDel, {text(Path)}), result("retT", "null"));
    EXPECT_EQ(data(u""), "missing");
    set(u"", REG_SZ, bytesOf(u"1\0"s));
    EXPECT_EQ(call(acetRegDel, {text(Path), shortInteger(1)}), result("retT", "2"));
    EXPECT_EQ(data(u""), "missing");
}

TEST_F(RegDel, NeverRemovesAKey)
{
    addKey(HKEY_CURRENT_USER, u"Software\\LispExtension tests\\below");
    EXPECT_EQ(call(acetRegDel, {text(Path), text(u"below")}), result("retNil", "2"));
    EXPECT_EQ(data(u"x", HKEY_CURRENT_USER, u"Software\\LispExtension tests\\below"), "missing");
}

TEST_F(RegDel, OfAPathOrANameOf32767CharactersYieldsNil)
{
    const std::u16string longText(32767, u'k');
    EXPECT_EQ(call(acetRegDel, {text(Path), text(longText)}), result("retNil", "2"));
    const std::u16string longPath = std::u16string(Path) + u'\\' + longText;
    EXPECT_EQ(call(acetRegDel, {text(longPath.substr(0, 32767)), text(u"x")}), result("retNil", "2"));
}

TEST_F(RegDel, OfANameWithANulTakesWhatIsInFrontOfIt)
{
    set(u"x", REG_SZ, bytesOf(u"1\0"s));
    EXPECT_EQ(call(acetRegDel, {text(Path), text(u"x\0y"s)}), result("retT", "2"));
    EXPECT_EQ(data(u"x"), "missing");
}

TEST_F(RegDel, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetRegDel, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetRegDel, {real(1), text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
