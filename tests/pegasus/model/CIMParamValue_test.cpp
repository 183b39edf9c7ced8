// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMParamValue.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::describe;
using namespace Pegasus;

namespace {

CIMParamValue sample() {
    return {"p", Uint16(1)};
}

TEST(CIMParamValue, IsNullByDefault) {
    CIMParamValue none;
    {
        ROW("paramvalue-001");
        EXPECT_TRUE(none.isUninitialized());
    }
    {
        ROW("paramvalue-002");
        EXPECT_THROWS(none.getParameterName(), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("paramvalue-003");
        EXPECT_THROWS(none.getValue(), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("paramvalue-004");
        EXPECT_THROWS(none.isTyped(), UninitializedObjectException, "uninitialized object");
    }
    CIMValue value;
    EXPECT_THROWS(none.setValue(value), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(none.setIsTyped(true), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(none.clone(), UninitializedObjectException, "uninitialized object");
}

TEST(CIMParamValue, HasANameAndAValueOfAnyType) {
    CIMParamValue parameter = sample();
    {
        ROW("paramvalue-005");
        EXPECT_EQ(parameter.getParameterName(), "p");
        EXPECT_EQ(describe(parameter.getValue()), R"(uint16 toString "1")");
        EXPECT_TRUE(parameter.isTyped());
    }
    {
        ROW("paramvalue-006");
        EXPECT_FALSE(CIMParamValue("p", Uint16(1), false).isTyped());
    }
    {
        ROW("paramvalue-007");
        EXPECT_THROWS(CIMParamValue("", Uint16(1)), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("paramvalue-012");
        CIMValue value(String("x"));
        parameter.setValue(value);
        EXPECT_EQ(describe(parameter.getValue()), R"(string toString "x")");
    }
    {
        ROW("paramvalue-013");
        String name;
        EXPECT_THROWS(parameter.setParameterName(name), UninitializedObjectException,
                      "uninitialized object");
    }
    String name("q");
    parameter.setParameterName(name);
    EXPECT_EQ(parameter.getParameterName(), "q");
}

TEST(CIMParamValue, IsSharedByCopiesAndNotByClones) {
    CIMValue two(Uint16(2));
    {
        ROW("paramvalue-009");
        const CIMParamValue first = sample();
        CIMParamValue copy(first);
        copy.setIsTyped(false);
        EXPECT_FALSE(first.isTyped());
    }
    {
        ROW("paramvalue-010");
        const CIMParamValue first = sample();
        CIMParamValue copy;
        copy = first;
        copy.setValue(two);
        EXPECT_EQ(describe(first.getValue()), R"(uint16 toString "2")");
    }
    {
        ROW("paramvalue-011");
        const CIMParamValue first = sample();
        first.clone().setValue(two);
        EXPECT_EQ(describe(first.getValue()), R"(uint16 toString "1")");
    }
}

}  // namespace
