#include "functions/associations.h"

#include "tests/support/Associations.h"
#include "tests/support/HandlerTest.h"

namespace {

class AssociatedApp : public HandlerTest
{
protected:
#ifdef _WIN32
    static inline const QString program = QStringLiteral("C:\\windows\\notepad.exe");
    const RegisteredProgram m_association{QStringLiteral("lhtest"), program};
#else
    static inline const QString program = QStringLiteral("/bin/true");
    static void SetUpTestSuite()
    {
        static const DesktopSettings settings(u"text/x-lisphost-test"_qs, u"lhtest"_qs, program);
    }
#endif

    QString write(const QString &name)
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(AssociatedApp, IsTheFullPathOfTheAssociatedProgram)
{
    EXPECT_EQ(call(acetFilenameAssociatedApp, {text(write(u"a.lhtest"_qs))}),
              (Operations{"getArgs", operation("retWStr", program), "releaseRb 1"}));
}

TEST_F(AssociatedApp, OnAMissingFileYields2)
{
    EXPECT_EQ(call(acetFilenameAssociatedApp, {text(m_folder.filePath(u"none.txt"_qs))}),
              (Operations{"getArgs", "retInt 2", "releaseRb 1"}));
}

TEST_F(AssociatedApp, OnAFileTypeWithoutAnAssociatedProgramYields31)
{
    EXPECT_EQ(call(acetFilenameAssociatedApp, {text(write(u"a.unheardof"_qs))}),
              (Operations{"getArgs", "retInt 31", "releaseRb 1"}));
}

TEST_F(AssociatedApp, OfAPathOf32767CharactersIsAnErrorCode)
{
    for (const QString &path :
         {QString(32767, u'x'), u'/' + QString(32766, u'x'), m_folder.path() + QString(32767, u'/')}) {
        const Operations operations = call(acetFilenameAssociatedApp, {text(path)});
        ASSERT_EQ(operations.size(), 3U);
        ASSERT_TRUE(operations[1].starts_with("retInt ")) << operations[1];
        EXPECT_LT(std::stoi(operations[1].substr(7)), 32) << operations[1];
    }
}

TEST_F(AssociatedApp, OfAPathWithANulIsThatOfWhatIsInFrontOfIt)
{
    const std::u16string path = write(u"a.lhtest"_qs).toStdU16String();
    EXPECT_EQ(call(acetFilenameAssociatedApp, {text(path + std::u16string(1, u'\0') + u".unheardof")}),
              (Operations{"getArgs", operation("retWStr", program), "releaseRb 1"}));
}

TEST_F(AssociatedApp, AMissingOrWrongPathEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(acetFilenameAssociatedApp, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetFilenameAssociatedApp, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
