// Files that lack whole changes at their end, and edited ones that do not.

#include "platform/RegistryNotice.h"
#include "tests/platform/registry/RegistryStoreTest.h"

namespace {

class RegistryLoss : public RegistryStoreTest
{
protected:
    RegistryLoss()
    {
        set(u"x", "1");
        set(u"y", "2");
        set(u"z", "3");
    }

    static QByteArray firstBlocks(const QByteArray &content, int count)
    {
        qsizetype end = 0;
        for (; count > 0; --count)
            end = content.indexOf("; end\n", end) + 6;
        return content.left(end);
    }
    void begin(const QByteArray &content)
    {
        write(hive(), content);
        restart();
    }
    void expectWhole(const QByteArray &content, const QByteArray &values)
    {
        begin(content);
        EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), values);
        EXPECT_EQ(warnings(), QStringList());
        EXPECT_EQ(copies(), QStringList());
        EXPECT_EQ(contentOf(hive()), content);
    }
    void expectLoss(const QByteArray &content, const QString &reason)
    {
        warnings().clear();
        begin(content);
        const QStringList before = files();
        get(u"x");
        EXPECT_EQ(files(), before);
        EXPECT_EQ(contentOf(hive()), content);
        ASSERT_EQ(warnings(),
                  QStringList(hive() + u": "_qs + reason + u"; the next change keeps the file under another name"_qs));
        EXPECT_EQ(set(u"change", "c"), 0);
        expectKept(content, reason);
    }
    void expectKept(const QByteArray &content, const QString &reason)
    {
        ASSERT_FALSE(warnings().isEmpty() || copies().isEmpty());
        EXPECT_EQ(warnings().constLast(),
                  hive() + u": "_qs + reason + u"; the file as it was is kept as "_qs + copies().constLast());
        EXPECT_EQ(contentOf(QFileInfo(hive()).path() + u'/' + copies().constLast()), content);
    }

    // So that the next call looks at the file.
    void announce() const { RegistryNotice(folder() + u"/registry"_qs).announce(); }

    // An editor empties the file and writes so much of it, then a program reads it, then the editor writes the rest.
    void expectSavedWhileItIsRead(const QByteArray &content, qsizetype first)
    {
        QFile editor(hive());
        ASSERT_TRUE(editor.open(QFile::WriteOnly | QFile::Unbuffered));
        ASSERT_EQ(editor.write(content.first(first)), first);
        warnings().clear();
        restart();
        const QStringList before = files();
        get(u"x");
        announce();
        get(u"x");
        EXPECT_EQ(warnings().size(), 1) << first;
        EXPECT_EQ(files(), before);
        EXPECT_EQ(contentOf(hive()), content.first(first));
        ASSERT_EQ(editor.write(content.sliced(first)), content.size() - first);
        editor.close();
        announce();
        EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), "923") << first;
        EXPECT_EQ(contentOf(hive()), content);
    }
};

} // namespace

TEST_F(RegistryLoss, OfTheLastChangeIsReportedUntilTheNextAndTheOthersCount)
{
    expectLoss(firstBlocks(contentOf(hive()), 2), u"the last change is missing"_qs);
    EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), "12missing");
    warnings().clear();
    restart();
    EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), "12missing");
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryLoss, OfSeveralChangesIsCounted)
{
    expectLoss(firstBlocks(contentOf(hive()), 1), u"the last 2 changes are missing"_qs);
}

TEST_F(RegistryLoss, IsKnownWithoutTheLastLinesEndToo)
{
    const QByteArray whole = contentOf(hive());
    expectWhole(whole.chopped(1), "123");
    expectLoss(firstBlocks(whole, 1).chopped(1), u"the last 2 changes are missing"_qs);
}

TEST_F(RegistryLoss, OfAllIsReportedByAProcessThatHasReadTheFile)
{
    write(hive(), "");
    EXPECT_EQ(set(u"new", "4"), 0);
    EXPECT_EQ(get(u"x") + get(u"new"), "missing4");
    expectKept("", u"the file is empty"_qs);
}

TEST_F(RegistryLoss, IsSeenByTheProcessThatChangesNext)
{
    const QByteArray cut = firstBlocks(contentOf(hive()), 2);
    write(hive(), cut);
    EXPECT_EQ(set(u"new", "4"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"y") + get(u"z") + get(u"new"), "12missing4");
    expectKept(cut, u"the last change is missing"_qs);
}

TEST_F(RegistryLoss, IsNotWhatAnEditorHasMadeShorter)
{
    const QByteArray whole = contentOf(hive());
    expectWhole(QByteArray(whole).replace("\"y\"=hex:32\n", ""), "1missing3");
    expectWhole(QByteArray(whole).replace("; end\n\n[HKEY_CURRENT_USER\\Software\\Test]\n\"z\"", "\"z\""), "123");
    expectWhole(whole.left(whole.indexOf("\n[")) + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:39\n; end\n",
                "9missingmissing");
}

// Of an edited file, and of one to which an editor has added something.
TEST_F(RegistryLoss, IsKnownOfWhatFollowsOnAnEditorsWork)
{
    const QByteArray edited = contentOf(hive()).replace("\"y\"=hex:32\n", "");
    begin(edited);
    set(u"y", "4");
    const QByteArray added = contentOf(hive()) + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"z\"=hex:35\n; end\n";
    begin(added);
    set(u"x", "6");
    const QByteArray history = contentOf(hive() + u".lock"_qs);
    for (const auto &[content, reason] : {std::pair(edited, u"the last 3 changes are missing"_qs),
                                          std::pair(added, u"the last change is missing"_qs)}) {
        write(hive() + u".lock"_qs, history);
        expectLoss(content, reason);
    }
}

TEST_F(RegistryLoss, IsKnownFromTheFirstChangeOnOfAFileWithoutAHistory)
{
    QFile::remove(hive() + u".lock"_qs);
    const QByteArray before = contentOf(hive());
    begin(before);
    set(u"new", "4");
    expectLoss(before, u"the last change is missing"_qs);
}

// It is how one gets rid of a root.
TEST_F(RegistryLoss, OfTheFileItselfIsAnEmptyRoot)
{
    QFile::remove(hive());
    restart();
    EXPECT_EQ(get(u"x"), "missing");
    EXPECT_EQ(set(u"new", "4"), 0);
    restart();
    EXPECT_EQ(get(u"new"), "4");
    EXPECT_EQ(warnings(), QStringList());
}

TEST_F(RegistryLoss, IsNotRepairedByAReaderSoThatWhatAnEditorIsJustSavingStays)
{
    const QByteArray whole = contentOf(hive());
    const QByteArray saved = whole + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:39\n; end\n";
    const qsizetype twoBlocks = firstBlocks(whole, 2).size();
    const QByteArray history = contentOf(hive() + u".lock"_qs);
    for (const qsizetype first : {qsizetype(0), qsizetype(20), whole.indexOf("\"x\"") + 9, twoBlocks, twoBlocks + 10}) {
        write(hive() + u".lock"_qs, history);
        expectSavedWhileItIsRead(saved, first);
        EXPECT_EQ(set(u"x", "7"), 0);
        EXPECT_TRUE(contentOf(hive()).startsWith(saved));
        restart();
        EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), "723");
        EXPECT_EQ(warnings().size(), 1);
        EXPECT_EQ(copies(), QStringList());
    }
}

TEST_F(RegistryLoss, IsReportedAgainWhenItHappensAgain)
{
    const QByteArray whole = contentOf(hive());
    for (int round = 1; round <= 3; ++round) {
        write(hive(), "");
        announce();
        EXPECT_EQ(get(u"x"), "missing");
        announce();
        EXPECT_EQ(get(u"x"), "missing");
        EXPECT_EQ(warnings().size(), round);
        write(hive(), whole);
        announce();
        EXPECT_EQ(get(u"x"), "1");
    }
}

TEST_F(RegistryLoss, OfAFileWrittenAnewIsReported)
{
    for (int change = 0; change < 2; ++change)
        set(u"large", QByteArray(60'000, static_cast<char>('a' + change)));
    ASSERT_EQ(contentOf(hive()).count("; end\n"), 1);
    const QByteArray anew = contentOf(hive());
    set(u"x", "4");
    expectLoss(anew, u"the last change is missing"_qs);
}
