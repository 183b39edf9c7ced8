// SPDX-License-Identifier: MIT
#include "diag/ExclusiveRuns.h"

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

ExclusiveRuns table(const std::vector<std::pair<const char*, const char*>>& entries) {
    ExclusiveRuns runs;
    for (const auto& entry : entries) {
        runs.append(Pair<String, String>(entry.first, entry.second));
    }
    return runs;
}

Texts texts(const ExclusiveRuns& runs) {
    Texts all;
    for (Uint32 i = 0; i < runs.size(); ++i) {
        all.push_back(text(runs[i].first) + "/" + text(runs[i].second));
    }
    return all;
}

constexpr bool inUse = true;
constexpr bool exclusive = true;
constexpr bool exclusiveForElement = true;

Uint32 check(const ExclusivityFacts& facts, ExclusiveRuns& runs) {
    return checkExclusivity(facts, runs, "usb1", "Test");
}

TEST(ExclusiveRuns, ExclusiveTestInUseIsRejectedWithoutChangingTheTable) {
    ExclusiveRuns runs = table({{"usb2", "Other"}});
    EXPECT_EQ(check({inUse, exclusive, exclusiveForElement}, runs), 1034U);
    EXPECT_EQ(check({inUse, exclusive, false}, runs), 1034U);
    EXPECT_EQ(texts(runs), Texts{"usb2/Other"});
}

TEST(ExclusiveRuns, TestThatIsNotInUseMayAlwaysRun) {
    ExclusiveRuns runs = table({{"usb1", "Test"}});
    EXPECT_EQ(check({false, exclusive, exclusiveForElement}, runs), 0U);
    EXPECT_EQ(check({false, false, false}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts{"usb1/Test"});
}

TEST(ExclusiveRuns, TestInUseThatIsNotExclusiveForTheElementMayRun) {
    ExclusiveRuns runs = table({{"usb1", "Test"}});
    EXPECT_EQ(check({inUse, false, false}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts{"usb1/Test"});
}

TEST(ExclusiveRuns, EmptyTableLetsTheTestRunAndStaysEmpty) {
    ExclusiveRuns runs;
    EXPECT_EQ(check({inUse, false, exclusiveForElement}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts());
}

TEST(ExclusiveRuns, EntryOfAnotherRunAppendsThePairAndRejectsTheTest) {
    ExclusiveRuns runs = table({{"usb2", "Test"}});
    EXPECT_EQ(check({inUse, false, exclusiveForElement}, runs), 1034U);
    EXPECT_EQ(texts(runs), (Texts{"usb2/Test", "usb1/Test"}));
}

TEST(ExclusiveRuns, EveryEntryOfAnotherRunBeforeTheOwnOneAppendsThePair) {
    ExclusiveRuns runs = table({{"usb2", "Test"}, {"usb1", "Other"}, {"usb1", "Test"}});
    EXPECT_EQ(recordExclusiveRun(runs, "usb1", "Test"), 1034U);
    EXPECT_EQ(texts(runs),
              (Texts{"usb2/Test", "usb1/Other", "usb1/Test", "usb1/Test", "usb1/Test"}));
}

TEST(ExclusiveRuns, OwnEntryRejectsTheTestIgnoringCase) {
    ExclusiveRuns runs = table({{"USB1", "tEST"}});
    EXPECT_EQ(recordExclusiveRun(runs, "usb1", "Test"), 1034U);
    EXPECT_EQ(texts(runs), Texts{"USB1/tEST"});
}

TEST(ExclusiveRuns, ForgettingRemovesTheOwnEntryIgnoringCase) {
    ExclusiveRuns runs = table({{"usb2", "Test"}, {"USB1", "test"}, {"usb1", "Other"}});
    forgetExclusiveRun(runs, "usb1", "Test");
    EXPECT_EQ(texts(runs), (Texts{"usb2/Test", "usb1/Other"}));
}

TEST(ExclusiveRuns, SecondOfTwoAdjacentEntriesStays) {
    ExclusiveRuns runs = table({{"usb1", "Test"}, {"usb1", "Test"}, {"usb2", "Test"}});
    forgetExclusiveRun(runs, "usb1", "Test");
    EXPECT_EQ(texts(runs), (Texts{"usb1/Test", "usb2/Test"}));
}

TEST(ExclusiveRuns, EntriesThatAreNotAdjacentAreAllRemoved) {
    ExclusiveRuns runs = table({{"usb1", "Test"}, {"usb2", "Test"}, {"usb1", "Test"}});
    forgetExclusiveRun(runs, "usb1", "Test");
    EXPECT_EQ(texts(runs), Texts{"usb2/Test"});
}

TEST(ExclusiveRuns, ForgettingAnUnknownRunChangesNothing) {
    ExclusiveRuns runs;
    forgetExclusiveRun(runs, "usb1", "Test");
    EXPECT_EQ(texts(runs), Texts());
}

}  // namespace
}  // namespace Pegasus
