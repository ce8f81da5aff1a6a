#include "app/sandbox/FileRules.h"

#include <gtest/gtest.h>

namespace {

// The versions of Landlock in Linux 6.2, 6.11 and 6.12.
constexpr long Linux6_2 = 3, Linux6_11 = 5, Linux6_12 = 6;

const FileRules withoutPrograms{{u"/usr/lib"_qs}, {u"/tmp"_qs}, {}};
const FileRules withPrograms{{u"/usr/lib"_qs}, {u"/tmp"_qs}, {u"/bin/sh"_qs}};

} // namespace

TEST(FileRules, NeedAKernelThatKeepsFilesFromBeingCutOff)
{
    const QString lack = u"the sandbox needs a kernel with Landlock (Linux 6.2 or later)"_qs;
    for (const FileRules &rules : {withoutPrograms, withPrograms}) {
        EXPECT_EQ(lackForRules(rules, -1), lack);
        EXPECT_EQ(lackForRules(rules, Linux6_2 - 1), lack);
    }
    EXPECT_EQ(lackForRules(withoutPrograms, Linux6_2), QString());
}

TEST(FileRules, WithProgramsNeedAKernelThatKeepsTheirSignalsIn)
{
    const QString lack = u"to run programs in the sandbox needs Linux 6.12 or later, which can keep their signals in "
                         "(Landlock ABI 6)"_qs;
    EXPECT_EQ(lackForRules(withPrograms, Linux6_2), lack);
    EXPECT_EQ(lackForRules(withPrograms, Linux6_11), lack);
    EXPECT_EQ(lackForRules(withPrograms, Linux6_12), QString());
    EXPECT_EQ(lackForRules(withoutPrograms, Linux6_11), QString());
}
