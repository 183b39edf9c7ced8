// SPDX-License-Identifier: MIT
#include <Pegasus/Provider/Pair.h>
#include <gtest/gtest.h>

#include "tests/support/Thrown.h"

using namespace Pegasus;

namespace {

using Numbers = Array<Pair<int, int>>;

Numbers numbers(int count) {
    Numbers all;
    for (int i = 0; i < count; ++i) {
        all.append(Pair<int, int>(i, 10 * i));
    }
    return all;
}

std::vector<int> firstsOf(const Numbers& all) {
    std::vector<int> firsts;
    for (Uint32 i = 0; i < all.size(); ++i) {
        firsts.push_back(all[i].first);
    }
    return firsts;
}

TEST(Pair, BeginsWithDefaultValues) {
    const Pair<int, String> pair;
    EXPECT_EQ(pair.first, 0);
    EXPECT_EQ(text(pair.second), "");
}

TEST(PairArray, KeepsItsElementsInOrder) {
    const Numbers all = numbers(3);
    EXPECT_EQ(firstsOf(all), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(all[2].second, 20);
}

TEST(PairArray, ElementsAfterARemovedOneMoveUp) {
    Numbers all = numbers(3);
    all.remove(0);
    EXPECT_EQ(firstsOf(all), (std::vector<int>{1, 2}));
    all.remove(1);
    EXPECT_EQ(firstsOf(all), std::vector<int>{1});
    all.clear();
    EXPECT_EQ(all.size(), 0U);
}

TEST(PairArray, IndexPastTheEndIsOutOfBoundsAndChangesNothing) {
    Numbers all = numbers(2);
    const Numbers& constant = all;
    for (const Uint32 index : {2U, 77777777U, PEG_NOT_FOUND}) {
        const std::string message = "index out of bounds";
        EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { all[index].first = 9; }), message);
        EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { constant[index]; }), message);
        EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { all.remove(index); }), message);
    }
    EXPECT_EQ(firstsOf(all), (std::vector<int>{0, 1}));
}

TEST(PairArray, CopiesAreIndependent) {
    Numbers all = numbers(2);
    const Numbers copy = all;
    all[0].first = 9;
    all.remove(1);
    EXPECT_EQ(firstsOf(copy), (std::vector<int>{0, 1}));
}

}  // namespace
