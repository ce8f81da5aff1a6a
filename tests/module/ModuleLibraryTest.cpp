#include "sdk/oda/OdRxModule.h"
#include "tests/module/FakeDocumentManager.h"
#include "tests/module/OpenLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

// The library as it is built, loaded as a host loads it.

namespace {

const QString images[] = {u":/images/ok.png"_qs, u":/images/cancel.png"_qs};

class ModuleLibrary : public testing::Test
{
protected:
    ~ModuleLibrary() override { EXPECT_TRUE(closeLibrary(m_library)); }

    template <typename Function> Function entryPoint(const char *name)
    {
        return reinterpret_cast<Function>(functionOf(m_library, name));
    }

    OdRxModule *createModule()
    {
        void *sysData = m_library;
        return entryPoint<OdRxModuleFactory>("odrxCreateModuleObject")(&sysData);
    }

    void *m_library = openLibrary(MODULE_FILE);
};

// An image's header says its size: two big-endian words behind signature and chunk head.
QByteArray sizeOfImage(const QString &name)
{
    QFile file(name);
    return file.open(QFile::ReadOnly) && file.read(8) == "\x89PNG\r\n\x1a\n" ? file.read(16).mid(8) : QByteArray();
}

} // namespace

TEST_F(ModuleLibrary, TellsTheVersionItIsBuiltFor)
{
    int version[4] = {};
    entryPoint<OdRxApiVersionQuery>("odrxGetAPIVersion")(&version[0], &version[1], &version[2], &version[3]);
    EXPECT_EQ(std::vector<int>(version, version + 4), (std::vector<int>{26, 8, 0, 54758}));
}

TEST_F(ModuleLibrary, KnowsTheFullPathOfItsFile)
{
    OdRxModule *module = createModule();
    EXPECT_EQ(module->sysData(), m_library);
    EXPECT_EQ(QDir::fromNativeSeparators(QString::fromUtf16(module->moduleName().c_str())).toStdString(),
              QFileInfo(QStringLiteral(MODULE_FILE)).absoluteFilePath().toStdString());
    module->deleteModule();
}

TEST_F(ModuleLibrary, DefinesAndRemovesItsFunctions)
{
    FakeDocumentManager manager;
    RecordingHost &document = manager.open();
    OdRxModule *module = createModule();
    module->initApp();
    EXPECT_EQ(document.operations().size(), 75u);
    document.setArguments({});
    module->uninitApp();
    EXPECT_EQ(document.operations().size(), 74u);
    module->deleteModule();
}

TEST_F(ModuleLibrary, HoldsTheImagesOfTheDialogs)
{
    for (const QString &image : images)
        EXPECT_EQ(sizeOfImage(image), QByteArray("\0\0\0\x10\0\0\0\x10", 8)) << image.toStdString();
}

TEST(ModuleUnload, TakesTheImagesAway)
{
    ASSERT_FALSE(QFile::exists(images[0]));
    void *library = openLibrary(MODULE_FILE);
    ASSERT_NE(library, nullptr);
    EXPECT_TRUE(QFile::exists(images[0]) && QFile::exists(images[1]));
    ASSERT_TRUE(closeLibrary(library));
    EXPECT_FALSE(isOpen(MODULE_FILE)) << "the library stayed";
    EXPECT_FALSE(QFile::exists(images[0]) || QFile::exists(images[1]));
}
