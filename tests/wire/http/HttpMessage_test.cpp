// SPDX-License-Identifier: MIT
#include "wire/http/HttpMessage.h"

#include <gtest/gtest.h>

using namespace wire;

TEST(HttpMessage, findsFieldsInAnyCase) {
    const HttpFields fields{{"Host", "h"}, {"CIMMethod", "GetInstance"}};
    EXPECT_EQ(findField(fields, "cimmethod"), "GetInstance");
    EXPECT_EQ(findField(fields, "CIM"), std::nullopt);
}

TEST(HttpMessage, joinsRepeatedFields) {
    const HttpFields fields{{"A", "1"}, {"B", "x"}, {"a", "2"}};
    EXPECT_EQ(findField(fields, "A"), "1, 2");
}

TEST(HttpMessage, namesTheStatus) {
    EXPECT_EQ(reasonPhrase(431), "Request Header Fields Too Large");
    EXPECT_EQ(reasonPhrase(299), "Unknown");
}
