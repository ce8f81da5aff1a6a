#include "functions/associations.h"

#include "tests/support/HandlerTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

namespace {

class Translator final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *disambiguation, int number) const override
    {
        const bool isMessage = qstrcmp(context, "QObject") == 0 && qstrcmp(source, "Error. Too much arguments") == 0;
        return isMessage && disambiguation == nullptr && number == -1 ? u"Fehler. Zu viele Argumente"_qs : QString();
    }
};

} // namespace

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

TEST_F(AcadRoot, TheTextIsTranslatedWhenATranslationIsInstalled)
{
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    host().setArguments({nil()});
    EXPECT_EQ(acetFilenameAcadRoot(), StatusError);
    EXPECT_EQ(host().operations(), (Operations{"getArgs", operation("retWStr", "Fehler. Zu viele Argumente")}));
}
