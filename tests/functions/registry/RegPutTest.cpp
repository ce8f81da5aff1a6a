#include "tests/functions/registry/RegistryTest.h"

using namespace std::string_literals;

namespace {

class RegPut : public RegistryTest
{
protected:
    // Of what stands in the registry, in bytes.
    static DWORD size(const char16_t *name)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, windowsText(Key), 0, KEY_READ, &key), 0);
        DWORD bytes = 0;
        EXPECT_EQ(RegQueryValueExW(key, windowsText(name), nullptr, nullptr, nullptr, &bytes), 0);
        RegCloseKey(key);
        return bytes;
    }
    Operations put(const Arguments &arguments)
    {
        Arguments all = {text(Path)};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return call(acetRegPut, all);
    }
};

Operations result(const char *operationName, const char *released)
{
    return {"getArgs", operationName, std::string("releaseRb ") + released};
}

} // namespace

// As many bytes as the text has characters.
TEST_F(RegPut, StoresAsManyBytesAsTheTextHasCharacters)
{
    EXPECT_EQ(put({text(u"x"), text(u"abcdef")}), result("retT", "3"));
    EXPECT_EQ(data(u"x"), bytesOf(u"abc"));
}

TEST_F(RegPut, OfAnOddNumberOfCharactersCutsACharacter)
{
    EXPECT_EQ(put({text(u"x"), text(u"abc")}), result("retT", "3"));
    EXPECT_EQ(data(u"x"), QByteArray("a\0b", 3));
}

TEST_F(RegPut, IsReadBackAsTheFirstHalf)
{
    put({text(u"x"), text(u"Zürich 図面!")});
    EXPECT_EQ(call(acetRegGet, {text(Path), text(u"x")}),
              (Operations{"getArgs", operation("retWStr", "Züric"), "releaseRb 2"}));
}

#ifndef _WIN32 // Wine puts the terminator elsewhere behind an odd number of bytes
TEST_F(RegPut, OfAnOddNumberOfCharactersIsReadBackWithWhatALongerTextHasLeft)
{
    set(u"long", REG_SZ, bytesOf(u"図図図図図\0"s));
    put({text(u"odd"), text(u"abc")});
    put({text(u"even"), text(u"abcd")});
    EXPECT_EQ(call(acetRegGet, {text(Path), text(u"long")}).at(1), operation("retWStr", "図図図図図"));
    EXPECT_EQ(call(acetRegGet, {text(Path), text(u"even")}).at(1), operation("retWStr", "ab"));
    call(acetRegGet, {text(Path), text(u"long")});
    // The byte behind the terminator's two is left from the first 図 that was not overwritten.
    EXPECT_EQ(call(acetRegGet, {text(Path), text(u"odd")}).at(1), operation("retWStr", "ab\u5600図図"));
}
#endif

TEST_F(RegPut, WithoutDataStoresTheEmptyString)
{
    EXPECT_EQ(put({text(u"x")}), result("retT", "null"));
    EXPECT_EQ(data(u"x"), "");
    EXPECT_EQ(put({text(u"y"), text(u"")}), result("retT", "3"));
    EXPECT_EQ(data(u"y"), "");
    EXPECT_EQ(put({text(u"z"), shortInteger(7)}), result("retT", "3"));
    EXPECT_EQ(data(u"z"), "");
}

TEST_F(RegPut, WithoutANameWritesTheUnnamedValueAndTakesNoData)
{
    EXPECT_EQ(put({}), result("retT", "null"));
    EXPECT_EQ(data(u""), "");
    EXPECT_EQ(put({nil(), text(u"abcd")}), result("retT", "2"));
    EXPECT_EQ(data(u""), "");
}

TEST_F(RegPut, OfAnEmptyNameWritesTheUnnamedValue)
{
    EXPECT_EQ(put({text(u""), text(u"abcd")}), result("retT", "3"));
    EXPECT_EQ(data(u""), bytesOf(u"ab"));
}

TEST_F(RegPut, ReplacesAValueOfAnotherType)
{
    set(u"x", REG_DWORD, QByteArray(4, '\1'));
    EXPECT_EQ(put({text(u"X"), text(u"abcd")}), result("retT", "3"));
    EXPECT_EQ(data(u"x"), bytesOf(u"ab"));
}

TEST_F(RegPut, WritingToAKeyThatDoesNotExistYieldsNilAndCreatesNothing)
{
    EXPECT_EQ(call(acetRegPut, {text(std::u16string(Path) + u"\\missing"), text(u"x"), text(u"abcd")}),
              result("retNil", "3"));
    EXPECT_EQ(data(u"x", HKEY_CURRENT_USER, u"Software\\LispExtension tests\\missing"), "no key");
}

TEST_F(RegPut, OfANameThatIsTooLongYieldsNil)
{
    EXPECT_EQ(put({text(std::u16string(16384, u'n')), text(u"abcd")}), result("retNil", "3"));
}

TEST_F(RegPut, OfATextOf32767CharactersStoresAsManyBytes)
{
    EXPECT_EQ(put({text(u"x"), text(std::u16string(32767, u'x'))}), result("retT", "3"));
    EXPECT_EQ(size(u"x"), 32767U);
}

TEST_F(RegPut, OfAPathOrANameOf32767CharactersYieldsNilAndWritesNothing)
{
    const std::u16string longText(32767, u'k');
    EXPECT_EQ(put({text(longText), text(u"abcd")}), result("retNil", "3"));
    const std::u16string longPath = std::u16string(Path) + u'\\' + longText;
    EXPECT_EQ(call(acetRegPut, {text(longPath.substr(0, 32767)), text(u"x"), text(u"abcd")}), result("retNil", "3"));
    EXPECT_EQ(data(u"x"), "missing");
}

// Where a function's text ends, whatever the LISP text holds behind it.
TEST_F(RegPut, OfTextsWithANulTakesWhatIsInFrontOfIt)
{
    EXPECT_EQ(put({text(u"x\0y"s), text(u"abcd\0ef"s)}), result("retT", "3"));
    EXPECT_EQ(data(u"x"), bytesOf(u"ab"));
}

TEST_F(RegPut, ReleasesTheThirdNodeAndLeavesTheRestAlone)
{
    EXPECT_EQ(put({text(u"x"), text(u"abcd"), text(u"surplus")}), result("retT", "3"));
}

TEST_F(RegPut, WithoutAPathIsRefused)
{
    EXPECT_EQ(call(acetRegPut, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetRegPut, {nil(), text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
