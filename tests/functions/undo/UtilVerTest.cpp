#include "functions/undo.h"

#include "tests/support/HandlerTest.h"

#include <QRegularExpression>

namespace {

class UtilVer : public HandlerTest
{
};

} // namespace

TEST_F(UtilVer, IsTheProductWithItsBuildDateAndArgumentsAreIgnored)
{
    const Operations operations = call(acetUtilVer, {text(u"any")});
    ASSERT_EQ(operations.size(), 1u);
    const QRegularExpression version(
        u"^retStr \"LispExtension Version: "
        u"(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) ( [1-9]|[1-3][0-9]) 20[0-9][0-9]\"$"_qs);
    EXPECT_TRUE(version.match(QString::fromStdString(operations[0])).hasMatch()) << operations[0];
}
