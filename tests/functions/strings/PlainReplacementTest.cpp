#include "functions/PlainReplacement.h"

#include <gtest/gtest.h>

#include <random>

namespace {

// Few different characters, so that patterns are found often, in part more often still, and overlap.
class RandomTexts
{
public:
    QString text(int length, int letters)
    {
        std::uniform_int_distribution<int> letter(0, letters - 1);
        QString made(length, Qt::Uninitialized);
        for (QChar &unit : made)
            unit = QChar(static_cast<char16_t>(u'a' + letter(m_engine)));
        return made;
    }
    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_engine); }

private:
    std::mt19937 m_engine{20};
};

} // namespace

TEST(PlainReplacement, ReplacesWhatQStringReplaces)
{
    RandomTexts random;
    int changed = 0;
    for (int i = 0; i < 20000; ++i) {
        const int letters = random.number(1, 3), length = random.number(0, 18);
        const QString before = random.text(random.number(0, 60), letters);
        const int otherLength = random.number(0, 9) == 0 ? random.number(0, 18) : length;
        const QString pattern = random.text(length, letters), replacement = random.text(otherLength, letters);
        QString expected = before, found = before;
        expected.replace(pattern, replacement);
        replacePlainText(found, pattern, replacement);
        ASSERT_EQ(found, expected) << qPrintable(pattern) << " by " << qPrintable(replacement) << " in "
                                   << qPrintable(before);
        changed += found != before;
    }
    EXPECT_GT(changed, 2000) << "too few texts had the pattern";
}

TEST(PlainReplacement, LeavesTextsThatShareTheSameMemoryAsTheyAre)
{
    const QString before = QString::fromLatin1("a wall and a wall");
    QString found = before;
    replacePlainText(found, QStringLiteral("door"), QStringLiteral("gate"));
    EXPECT_TRUE(found.isSharedWith(before)) << "nothing was there to replace";
    replacePlainText(found, QStringLiteral("wall"), QStringLiteral("side"));
    EXPECT_EQ(found, QStringLiteral("a side and a side"));
    EXPECT_EQ(before, QStringLiteral("a wall and a wall"));
}
