#include "host/ui/gui/CommandHistory.h"

#include <gtest/gtest.h>

namespace {

CommandHistory historyOf(const QStringList &entries)
{
    CommandHistory history;
    for (const QString &entry : entries)
        history.add(entry);
    return history;
}

const QString a = QStringLiteral("a"), b = QStringLiteral("b"), typing = QStringLiteral("typing");

} // namespace

TEST(CommandHistory, GoesBackToTheOldestAndForthToWhatWasBeingTyped)
{
    CommandHistory history = historyOf({a, b});
    EXPECT_EQ(history.older(typing), b);
    EXPECT_EQ(history.older(b), a);
    EXPECT_EQ(history.older(a), a);
    EXPECT_EQ(history.newer(a), b);
    EXPECT_EQ(history.newer(b), typing);
    EXPECT_EQ(history.newer(typing), typing);
}

TEST(CommandHistory, WithoutEntriesLeavesTheLineAlone)
{
    CommandHistory history;
    EXPECT_EQ(history.older(typing), typing);
    EXPECT_EQ(history.newer(typing), typing);
}

TEST(CommandHistory, KeepsRepeatedEntriesOnceAndEmptyOnesNever)
{
    CommandHistory history = historyOf({a, b, b, QString()});
    EXPECT_EQ(history.older(typing), b);
    EXPECT_EQ(history.older(b), a);
}

TEST(CommandHistory, StartsOverBehindANewEntry)
{
    CommandHistory history = historyOf({a, b});
    history.older(typing);
    history.older(b);
    history.add(typing);
    EXPECT_EQ(history.older(QString()), typing);
}
