// SPDX-License-Identifier: MIT
#include "base/Parts.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(Parts, StandAfterASeparatorButTheFirst) {
    std::string text;
    appendPart(text, "; ", "a");
    EXPECT_EQ(text, "a");
    appendPart(text, "; ", "b");
    EXPECT_EQ(text, "a; b");
}

TEST(Parts, AreJoined) {
    EXPECT_EQ(joined({}, ", "), "");
    EXPECT_EQ(joined({"a"}, ", "), "a");
    EXPECT_EQ(joined({"a", "", "b"}, ", "), "a, , b");
}

}  // namespace
}  // namespace base
