// SPDX-License-Identifier: MIT
#include "wire/http/BasicAuthentication.h"

#include <gtest/gtest.h>

using namespace wire;

TEST(BasicAuthentication, encodesEveryLength) {
    EXPECT_EQ(basicAuthorization("me:secret"), "Basic bWU6c2VjcmV0");
    EXPECT_EQ(basicAuthorization("a:b"), "Basic YTpi");
    EXPECT_EQ(basicAuthorization("a:bc"), "Basic YTpiYw==");
    EXPECT_EQ(basicAuthorization("a:bcd"), "Basic YTpiY2Q=");
    EXPECT_EQ(basicAuthorization("\xff\xfe\xfd\xfc"), "Basic //79/A==");
    EXPECT_EQ(basicAuthorization(""), "Basic ");
}

TEST(BasicAuthentication, findsTheTokenBehindTheScheme) {
    EXPECT_EQ(basicToken("Basic YTpi"), "YTpi");
    EXPECT_EQ(basicToken("bASIC   YTpi"), "YTpi");
    EXPECT_EQ(basicToken("Basic "), "");
    EXPECT_EQ(basicToken("Basic"), "");
    EXPECT_EQ(basicToken("Bearer YTpi"), "");
    EXPECT_EQ(basicToken(""), "");
}
