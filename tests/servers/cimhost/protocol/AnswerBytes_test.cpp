// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/AnswerBytes.h"

#include <string>

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

namespace cimhost {
namespace {

constexpr AnswerLimits small{100, 150, 10};

class AnswerBytesTest : public testing::Test {
protected:
    AnswerBytes answer() const { return {small, total_}; }

    std::shared_ptr<AnswerTotal> total_ = std::make_shared<AnswerTotal>(0);
};

/// "" or the refusal.
std::string setting(AnswerBytes& answer, std::size_t bytes) {
    try {
        answer.set(bytes);
    } catch (const Pegasus::CIMException& refusal) {
        return std::to_string(refusal.getCode()) + " " +
               static_cast<const char*>(refusal.getMessage().getCString());
    }
    return "";
}

TEST_F(AnswerBytesTest, OneAnswerIsLimited) {
    AnswerBytes one = answer();
    EXPECT_EQ(setting(one, 100), "");
    EXPECT_EQ(setting(one, 101), "27 the answer would be larger than 100 bytes");
    AnswerBytes large({}, total_);
    EXPECT_EQ(setting(large, 64UL * 1024 * 1024), "");
    EXPECT_EQ(setting(large, 64UL * 1024 * 1024 + 1), "27 the answer would be larger than 64 MiB");
}

TEST_F(AnswerBytesTest, AllAreLimitedBeyondWhatEachHasFree) {
    AnswerBytes first = answer();
    AnswerBytes second = answer();
    EXPECT_EQ(setting(first, 100), "");
    EXPECT_EQ(setting(second, 70), "");
    EXPECT_EQ(setting(second, 71),
              "27 the large answers that are on their way would together be larger than 150 bytes");
    AnswerBytes third = answer();
    EXPECT_EQ(setting(third, 10), "");
    EXPECT_NE(setting(third, 11), "");
    EXPECT_EQ(*total_, 150U) << "what was refused does not count";
}

TEST_F(AnswerBytesTest, WhatIsGoneOrHasShrunkMakesRoom) {
    AnswerBytes first = answer();
    {
        AnswerBytes second = answer();
        EXPECT_EQ(setting(second, 100), "");
        EXPECT_NE(setting(first, 100), "");
    }
    EXPECT_EQ(setting(first, 100), "");
    EXPECT_EQ(setting(first, 30), "");
    EXPECT_EQ(*total_, 20U);
    EXPECT_EQ(setting(first, 5), "");
    EXPECT_EQ(*total_, 0U);
}

}  // namespace
}  // namespace cimhost
