#include "lisp/LispHost.h"
#include "tests/support/VirtualTable.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

TEST(LispHostOrder, HasItsFiftyOperationsInTheOrderOfTheHostsTable)
{
    const std::vector<std::size_t> places = {placeOf(&LispHost::regApp),
                                             placeOf(&LispHost::defun),
                                             placeOf(&LispHost::undefun),
                                             placeOf(&LispHost::getArgsNarrow),
                                             placeOf(&LispHost::getArgs),
                                             placeOf(&LispHost::retInt),
                                             placeOf(&LispHost::retReal),
                                             placeOf(&LispHost::retNil),
                                             placeOf(&LispHost::retT),
                                             placeOf(&LispHost::retStr),
                                             placeOf(&LispHost::retWStr),
                                             placeOf(&LispHost::retList),
                                             placeOf(&LispHost::retVal),
                                             placeOf(&LispHost::evaluate),
                                             placeOf(&LispHost::buildListNarrow),
                                             placeOf(&LispHost::buildList),
                                             placeOf(&LispHost::newRb),
                                             placeOf(&LispHost::releaseRbNarrow),
                                             placeOf(&LispHost::releaseRb),
                                             placeOf(&LispHost::commandNarrow),
                                             placeOf(&LispHost::getEnvVar),
                                             placeOf(&LispHost::setVar),
                                             placeOf(&LispHost::getVar),
                                             placeOf(&LispHost::wcMatch),
                                             placeOf(&LispHost::prompt),
                                             placeOf(&LispHost::progressStart),
                                             placeOf(&LispHost::progressEnd),
                                             placeOf(&LispHost::progressSet),
                                             placeOf(&LispHost::entGet),
                                             placeOf(&LispHost::entGetX),
                                             placeOf(&LispHost::entMod),
                                             placeOf(&LispHost::tblSearch),
                                             placeOf(&LispHost::angle),
                                             placeOf(&LispHost::initGet),
                                             placeOf(&LispHost::getInt),
                                             placeOf(&LispHost::getInput),
                                             placeOf(&LispHost::getString),
                                             placeOf(&LispHost::menuCmd),
                                             placeOf(&LispHost::findFile),
                                             placeOf(&LispHost::getFileDialog),
                                             placeOf(&LispHost::dragSelection),
                                             placeOf(&LispHost::setTabletMode),
                                             placeOf(&LispHost::compileShape),
                                             placeOf(&LispHost::getEntityExtents),
                                             placeOf(&LispHost::helpTrap),
                                             placeOf(&LispHost::getProfileString),
                                             placeOf(&LispHost::setProfileString),
                                             placeOf(&LispHost::dictSearch),
                                             placeOf(&LispHost::namedObjDict),
                                             placeOf(&LispHost::prependRb)};
    std::vector<std::size_t> expected(50);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(places, expected);
}
