// Files that are cut short or make no sense: what can be read counts, a line on standard error says so, and the next
// change keeps the file under another name.

#include "tests/platform/registry/RegistryStoreTest.h"
#include "tests/support/Unprivileged.h"

#include <sys/stat.h>

namespace {

class RegistryDamage : public RegistryStoreTest
{
protected:
    static QByteArray header() { return "Windows Registry Editor Version 5.00\n"; }
    static QByteArray block(const QByteArray &values)
    {
        return "\n[HKEY_CURRENT_USER\\Software\\Test]\n" + values + "; end\n";
    }

    // Together with its folder, for everybody but root.
    void makeReadOnly() const
    {
        chmod(QFile::encodeName(folder()).constData(), 0755);
        chmod(QFile::encodeName(hive()).constData(), 0644);
        chmod(QFile::encodeName(QFileInfo(hive()).path()).constData(), 0555);
    }
    void begin(const QByteArray &content)
    {
        write(hive(), content);
        restart();
    }
    // The file has just been read.
    void expectReported(const QByteArray &content, const QString &reason)
    {
        EXPECT_EQ(contentOf(hive()), content);
        EXPECT_EQ(copies(), QStringList());
        EXPECT_EQ(warnings(),
                  QStringList(hive() + u": "_qs + reason + u"; the next change keeps the file under another name"_qs));
    }
    void expectKept(const QByteArray &content, const QString &reason)
    {
        expectReported(content, reason);
        warnings().clear();
        EXPECT_EQ(set(u"change", "c"), 0);
        ASSERT_EQ(copies().size(), 1) << copies().join(u' ').toStdString();
        EXPECT_EQ(contentOf(hive() + u".damaged-1"_qs), content);
        EXPECT_EQ(warnings(), QStringList(hive() + u": "_qs + reason +
                                          u"; the file as it was is kept as HKEY_CURRENT_USER.reg.damaged-1"_qs));
    }
};

} // namespace

TEST_F(RegistryDamage, ALineThatMakesNoSenseIsNamedAndTheOthersCount)
{
    const QByteArray content = header() + block("\"x\"=hex:31\n\"y\"=nonsense\n\"z\"=hex:33\n");
    begin(content);
    EXPECT_EQ(get(u"x") + get(u"y") + get(u"z"), "1missing3");
    expectKept(content, u"line 5: no data of a known form"_qs);
}

// Nothing could be kept under another name there; nothing is dropped, and it is said.
TEST_F(RegistryDamage, AFileThatCannotBeRepairedIsReportedAndWhatCanBeReadOfItCounts)
{
    const QByteArray line = "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:31\n";
    const std::pair<QByteArray, QString> files[] = {
        {header() + line, u"the file is cut short"_qs},
        {header() + line + "nonsense\n; end\n", u"line 5: neither a key, a value nor a comment"_qs},
        {header() + line + "; end\n" + line, u"the last change is not finished and does not count"_qs}};
    for (const auto &[content, reason] : files) {
        begin(content);
        makeReadOnly();
        EXPECT_TRUE(holdsUnprivileged([&, reason = reason] {
            const bool isRead = get(u"x") == "1" && get(u"x") == "1" && set(u"x", "2") != 0 && get(u"x") == "1";
            return isRead && warnings().size() == 2 &&
                   warnings()[0] ==
                       hive() + u": "_qs + reason + u"; the next change keeps the file under another name"_qs &&
                   warnings()[1] == hive() + u".lock: Permission denied"_qs;
        })) << reason.toStdString();
        EXPECT_EQ(contentOf(hive()), content);
        chmod(QFile::encodeName(QFileInfo(hive()).path()).constData(), 0755);
    }
}

// Each refused change would leave one more.
TEST_F(RegistryDamage, OfAFileThatMayNotBeReplacedNoCopiesPileUp)
{
    const QByteArray content = header() + block("\"x\"=hex:31\nnonsense\n");
    begin(content);
    chmod(QFile::encodeName(folder()).constData(), 0755);
    chmod(QFile::encodeName(QFileInfo(hive()).path()).constData(), 0777);
    chmod(QFile::encodeName(hive()).constData(), 0444);
    EXPECT_TRUE(holdsUnprivileged([this] {
        for (int run = 0; run < 3; ++run) {
            restart();
            if (get(u"x") != "1" || set(u"x", "2") == 0 || set(u"x", "2") == 0 || get(u"x") != "1")
                return false;
        }
        return warnings().size() == 6 && warnings()[1] == hive() + u": it may not be written"_qs;
    }));
    EXPECT_EQ(contentOf(hive()), content);
    EXPECT_EQ(files(), QStringList({u"HKEY_CURRENT_USER.reg"_qs, u"HKEY_CURRENT_USER.reg.lock"_qs}));
}

TEST_F(RegistryDamage, AFileThatCouldNotBeRepairedIsRepairedBeforeTheFirstChange)
{
    const QByteArray content = header() + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:31\n";
    begin(content);
    makeReadOnly();
    EXPECT_TRUE(holdsUnprivileged([] {
        const bool isRead = get(u"x") == "1";
        return isRead && warnings().size() == 1;
    }));
    chmod(QFile::encodeName(QFileInfo(hive()).path()).constData(), 0755);
    EXPECT_EQ(set(u"y", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "12");
    EXPECT_EQ(contentOf(hive() + u".damaged-1"_qs), content);
}

TEST_F(RegistryDamage, AChangeRepairsTheFileSoThatItIsNotReportedAgain)
{
    const QByteArray content = header() + block("\"x\"=hex:31\n\"y\"=nonsense\n");
    begin(content);
    EXPECT_EQ(get(u"x") + get(u"y"), "1missing");
    expectKept(content, u"line 5: no data of a known form"_qs);
    warnings().clear();
    restart();
    EXPECT_EQ(get(u"x"), "1");
    EXPECT_EQ(set(u"x", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x"), "2");
    EXPECT_EQ(warnings(), QStringList());
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(RegistryDamage, EveryDamagedFileIsKept)
{
    for (int round = 1; round <= 3; ++round) {
        begin(header() + block("nonsense " + QByteArray::number(round) + "\n"));
        EXPECT_EQ(set(u"x", "1"), 0);
        EXPECT_EQ(copies().size(), round);
    }
}

TEST_F(RegistryDamage, AnUnfinishedChangeDoesNotCountAtAll)
{
    const QByteArray whole = header() + block("\"x\"=hex:31\n");
    const QByteArray content = whole + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:32\n\"y\"=hex:3";
    begin(content);
    EXPECT_EQ(get(u"x") + get(u"y"), "1missing");
    expectKept(content, u"the last change is not finished and does not count"_qs);
    EXPECT_EQ(set(u"y", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "12");
}

TEST_F(RegistryDamage, OfAFileCutShortAnywhereNothingIsLostWithoutAWord)
{
    set(u"first", "1");
    set(u"second", "2");
    const QByteArray whole = contentOf(hive());
    const qsizetype firstBlock = whole.indexOf("; end\n") + 6;
    const QByteArray history = contentOf(hive() + u".lock"_qs);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        if (length % 3 != 0 && length != firstBlock && length != firstBlock - 1)
            continue; // takes long enough
        for (const QString &copy : copies())
            QFile::remove(QFileInfo(hive()).path() + u'/' + copy);
        warnings().clear();
        write(hive() + u".lock"_qs, history);
        begin(whole.left(length));
        const bool hasLine = length >= whole.indexOf("\"first\"=hex:31\n") + 15;
        EXPECT_EQ(get(u"first"), hasLine ? "1" : "missing") << length;
        EXPECT_EQ(get(u"second"), length == whole.size() - 1 ? "2" : "missing") << length;
        if (length != whole.size() - 1) {
            EXPECT_EQ(warnings().size(), 1) << length;
            EXPECT_EQ(contentOf(hive()), whole.left(length));
            EXPECT_EQ(set(u"third", "3"), 0);
            ASSERT_EQ(copies().size(), 1) << length;
            EXPECT_EQ(contentOf(hive() + u".damaged-1"_qs), whole.left(length));
        }
    }
}

TEST_F(RegistryDamage, OfAFileCutShortInItsFirstBlockTheLinesCountThatAreThere)
{
    const QByteArray content = header() + "\n[HKEY_CURRENT_USER\\Software\\Test]\n\"x\"=hex:31\n";
    begin(content);
    EXPECT_EQ(get(u"x"), "1");
    expectKept(content, u"the file is cut short"_qs);
}

// A program writes all eight.
TEST_F(RegistryDamage, ANumberThatLacksDigitsIsReported)
{
    const QByteArray content = header() + block("\"x\"=dword:0000002\n\"y\"=dword:00000031\n");
    begin(content);
    EXPECT_EQ(get(u"x") + get(u"y"), QByteArray("missing1\0\0\0", 11));
    expectKept(content, u"line 4: a number of eight hexadecimal digits is missing"_qs);
}

TEST_F(RegistryDamage, AMissingFirstLineIsReported)
{
    const QByteArray content = block("\"x\"=hex:31\n");
    begin(content);
    EXPECT_EQ(get(u"x"), "1");
    expectKept(content, u"line 1: the first line does not say that this is a registry text"_qs);
}

TEST_F(RegistryDamage, BytesThatAreNoUtf8AreReported)
{
    const QByteArray content = header() + block("\"x\xff\"=hex:31\n\"y\"=hex:32\n");
    begin(content);
    EXPECT_EQ(get(u"y"), "2");
    expectKept(content, u"line 1: not in UTF-8"_qs);
}

TEST_F(RegistryDamage, KeysOfAnotherRootAreReported)
{
    const QByteArray content = header() + "\n[HKEY_USERS\\x]\n\"x\"=hex:31\n" + block("\"y\"=hex:32\n");
    begin(content);
    EXPECT_EQ(get(u"y"), "2");
    expectKept(content, u"line 1: keys of another root"_qs);
}

TEST_F(RegistryDamage, ManyErrorsAreCounted)
{
    begin(header() + block("a\nb\nc\n"));
    get(u"x");
    ASSERT_EQ(warnings().size(), 1);
    EXPECT_TRUE(warnings()[0].contains(u"line 4: neither a key, a value nor a comment (and 2 more);"_qs))
        << warnings()[0].toStdString();
}

// No program writes one.
TEST_F(RegistryDamage, AnEmptyFileIsReportedAndAnEmptyRoot)
{
    begin("");
    EXPECT_EQ(get(u"x"), "missing");
    expectKept("", u"the file is empty"_qs);
    restart();
    EXPECT_EQ(get(u"x") + get(u"change"), "missingc");
}

TEST_F(RegistryDamage, AFileThatVanishesWhileItIsUsedIsAnEmptyRoot)
{
    set(u"x", "1");
    QFile::remove(hive());
    EXPECT_EQ(set(u"y", "2"), 0);
    restart();
    EXPECT_EQ(get(u"x") + get(u"y"), "missing2");
}
