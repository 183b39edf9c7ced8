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

constexpr bool IN_USE = true;
constexpr bool EXCLUSIVE = true;
constexpr bool EXCLUSIVE_FOR_ELEMENT = true;

Uint32 check(const ExclusivityFacts& facts, ExclusiveRuns& runs) {
    return checkExclusivity(facts, runs, "usb1", "Test");
}

TEST(ExclusiveRuns, ExclusiveTestInUseIsRefusedWithoutTouchingTheTable) {
    ExclusiveRuns runs = table({{"usb2", "Other"}});
    EXPECT_EQ(check({IN_USE, EXCLUSIVE, EXCLUSIVE_FOR_ELEMENT}, runs), 1034U);
    EXPECT_EQ(check({IN_USE, EXCLUSIVE, false}, runs), 1034U);
    EXPECT_EQ(texts(runs), Texts{"usb2/Other"});
}

TEST(ExclusiveRuns, TestThatIsNotInUseMayRunWhateverElseHolds) {
    ExclusiveRuns runs = table({{"usb1", "Test"}});
    EXPECT_EQ(check({false, EXCLUSIVE, EXCLUSIVE_FOR_ELEMENT}, runs), 0U);
    EXPECT_EQ(check({false, false, false}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts{"usb1/Test"});
}

TEST(ExclusiveRuns, TestInUseThatIsNotExclusiveForTheElementMayRun) {
    ExclusiveRuns runs = table({{"usb1", "Test"}});
    EXPECT_EQ(check({IN_USE, false, false}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts{"usb1/Test"});
}

TEST(ExclusiveRuns, EmptyTableLetsTheTestRunAndStaysEmpty) {
    ExclusiveRuns runs;
    EXPECT_EQ(check({IN_USE, false, EXCLUSIVE_FOR_ELEMENT}, runs), 0U);
    EXPECT_EQ(texts(runs), Texts());
}

TEST(ExclusiveRuns, OneForeignEntryAppendsThePairAndRefuses) {
    ExclusiveRuns runs = table({{"usb2", "Test"}});
    EXPECT_EQ(check({IN_USE, false, EXCLUSIVE_FOR_ELEMENT}, runs), 1034U);
    EXPECT_EQ(texts(runs), (Texts{"usb2/Test", "usb1/Test"}));
}

TEST(ExclusiveRuns, EveryForeignEntryBeforeTheOwnOneAppendsThePair) {
    ExclusiveRuns runs = table({{"usb2", "Test"}, {"usb1", "Other"}, {"usb1", "Test"}});
    EXPECT_EQ(recordExclusiveRun(runs, "usb1", "Test"), 1034U);
    EXPECT_EQ(texts(runs),
              (Texts{"usb2/Test", "usb1/Other", "usb1/Test", "usb1/Test", "usb1/Test"}));
}

TEST(ExclusiveRuns, OwnEntryRefusesIgnoringCase) {
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

TEST(ExclusiveRuns, ForgettingWhatIsNotThereChangesNothing) {
    ExclusiveRuns runs;
    forgetExclusiveRun(runs, "usb1", "Test");
    EXPECT_EQ(texts(runs), Texts());
}

}  // namespace
}  // namespace Pegasus
