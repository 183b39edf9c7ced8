// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMPropertyList.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using namespace Pegasus;

namespace {

TEST(CIMPropertyList, IsNullOrEmptyOrAList) {
    {
        ROW("propertylist-001");
        EXPECT_TRUE(CIMPropertyList().isNull());
        EXPECT_EQ(CIMPropertyList().size(), 0U);
    }
    const CIMPropertyList none{Array<CIMName>()};
    {
        ROW("propertylist-002");
        EXPECT_FALSE(none.isNull());
        EXPECT_EQ(none.size(), 0U);
    }
    {
        ROW("propertylist-003");
        const CIMPropertyList list(arrayOf<CIMName>({"a", "B"}));
        EXPECT_EQ(list.size(), 2U);
        EXPECT_EQ(list[1].getString(), "B");
        EXPECT_TRUE(list.contains("b"));
        EXPECT_FALSE(list.contains("c"));
        EXPECT_EQ(list.getPropertyNameArray().size(), 2U);
    }
    {
        ROW("propertylist-007");
        EXPECT_EQ(CIMPropertyList(arrayOf<CIMName>({"a", "A"})).size(), 2U);
    }
    {
        ROW("propertylist-008");
        EXPECT_FALSE(CIMPropertyList().contains("x"));
    }
    {
        ROW("propertylist-009");
        EXPECT_TRUE(CIMPropertyList().useThisProperty("x"));
        EXPECT_FALSE(none.useThisProperty("x"));
    }
    {
        ROW("propertylist-010");
        CIMPropertyList list(arrayOf<CIMName>({"a"}));
        list.clear();
        EXPECT_TRUE(list.isNull());
        EXPECT_EQ(list.size(), 0U);
    }
}

TEST(CIMPropertyList, ChecksIndicesAndNames) {
    CIMPropertyList list(arrayOf<CIMName>({"a"}));
    {
        ROW("propertylist-004");
        EXPECT_THROWS(list[1], IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("propertylist-005");
        EXPECT_THROWS(CIMPropertyList()[0], IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("propertylist-006");
        EXPECT_THROWS(CIMPropertyList(Array<CIMName>(1)), UninitializedObjectException,
                      "uninitialized object");
    }
    EXPECT_THROWS(list.set(Array<CIMName>(1)), UninitializedObjectException,
                  "uninitialized object");
    EXPECT_TRUE(list.contains("a"));
}

}  // namespace
