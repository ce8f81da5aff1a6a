#include "storage/ProfileFolder.h"

#include "tests/storage/StorageTest.h"

#include <QScopeGuard>

using ProfileFolder = StorageTest;

TEST_F(ProfileFolder, IsTheUsersOwnUnlessAnotherIsChosen)
{
    const QString own = profileFolder();
    EXPECT_TRUE(own.endsWith(u"/lisphost"_qs)) << qPrintable(own);
    setProfileFolder(path(u"other"_qs));
    EXPECT_EQ(profileFolder(), path(u"other"_qs));
    setProfileFolder(QString());
    EXPECT_EQ(profileFolder(), own);
}

TEST_F(ProfileFolder, StaysWhereItWasWhenTheCurrentDirectoryChanges)
{
    const auto restore = qScopeGuard([before = QDir::currentPath()] {
        QDir::setCurrent(before);
        setProfileFolder(QString());
    });
    ASSERT_TRUE(QDir::setCurrent(path(u"."_qs)));
    const QString here = QDir::currentPath();
    setProfileFolder(u"my/../profile/"_qs);
    QDir::setCurrent(u"/"_qs);
    EXPECT_EQ(profileFolder(), here + u"/profile"_qs);
}

TEST_F(ProfileFolder, IsNotMadeByAskingForIt)
{
    setProfileFolder(path(u"other"_qs));
    EXPECT_FALSE(QDir(profileFolder()).exists());
    setProfileFolder(QString());
}
