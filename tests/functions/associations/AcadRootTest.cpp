#include "functions/associations.h"

#include "tests/support/HandlerTest.h"

#include <QCoreApplication>
#include <QDir>

class AcadRoot : public HandlerTest
{
};

TEST_F(AcadRoot, WithNoArgumentsYieldsTheHostFolderEndingInABackslash)
{
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u'\\');
    ASSERT_GT(folder.size(), 1);
    EXPECT_EQ(call(acetFilenameAcadRoot, {}), (Operations{"getArgs", operation("retWStr", folder)}));
}

TEST_F(AcadRoot, WithAnyArgumentYieldsTheTextAndTheCallCountsAsFailed)
{
    for (const Argument &argument : {text(u"a"), nil(), shortInteger(1)}) {
        host().setArguments({argument});
        EXPECT_EQ(acetFilenameAcadRoot(), StatusError);
        EXPECT_EQ(host().operations(), (Operations{"getArgs", operation("retWStr", "Error. Too much arguments")}));
    }
}
