// What startapp asks of the shell. The shell is a stand-in here.

#include "functions/processes.h"

#include "platform/Shell.h"
#include "tests/support/HandlerTest.h"
#include "tests/support/StandIn.h"

namespace {

std::vector<std::string> launches;
std::intptr_t number = 42;

std::string described(LPCWSTR text)
{
    return text != nullptr ? '"' + QStringView(text).toString().toStdString() + '"' : "null";
}

} // namespace

STAND_IN(HINSTANCE, ShellExecuteW,
         (HWND owner, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, int show))
{
    launches.push_back(std::string(owner == nullptr ? "no owner" : "an owner") + ' ' + described(verb) + ' ' +
                       described(file) + ' ' + described(parameters) + ' ' + described(folder) + ' ' +
                       std::to_string(show));
    return reinterpret_cast<HINSTANCE>(number);
}

class StartappCall : public HandlerTest
{
protected:
    StartappCall() { launches.clear(); }
};

TEST_F(StartappCall, OpensWithoutAnOwnerAndAFolderInAWindowOfNormalSize)
{
    EXPECT_EQ(call(startapp, {text(u"program"), text(u"a b")}), (Operations{"getArgs", "retInt 42", "releaseRb 2"}));
    call(startapp, {text(u"readme.txt")});
    constexpr char normalSize[] = "1"; // SW_SHOWNORMAL
    EXPECT_EQ(launches,
              (std::vector<std::string>{std::string("no owner \"open\" \"program\" \"a b\" null ") + normalSize,
                                        std::string("no owner \"open\" \"readme.txt\" \"\" null ") + normalSize}));
}

TEST_F(StartappCall, GivesTheLow32BitsOfTheNumberWithoutJudgingIt)
{
    for (const auto &[given, result] : {std::pair{std::intptr_t{0}, 0},
                                        {std::intptr_t{31}, 31},
                                        {std::intptr_t{0x1'0000'0021}, 33},
                                        {std::intptr_t{0xffff'fffe}, -2}}) {
        number = given;
        EXPECT_EQ(call(startapp, {text(u"x")}).at(1), "retInt " + std::to_string(result));
    }
}

TEST_F(StartappCall, TextsOf32767CharactersGoToTheShellAsAWholeAndOthersUpToANul)
{
    const std::u16string longText(32767, u'x');
    call(startapp, {text(longText), text(longText)});
    const std::string x(32767, 'x');
    call(startapp, {text(std::u16string(u"a\0b", 3)), text(std::u16string(u"c\0d", 3))});
    EXPECT_EQ(launches, (std::vector<std::string>{"no owner \"open\" \"" + x + "\" \"" + x + "\" null 1",
                                                  "no owner \"open\" \"a\" \"c\" null 1"}));
}
