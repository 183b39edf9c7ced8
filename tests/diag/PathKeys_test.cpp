// SPDX-License-Identifier: MIT
#include "diag/PathKeys.h"

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

CIMObjectPath path(const char* text) {
    return CIMObjectPath(String(text));
}

TEST(PathKeys, FirstOfSeveralKeysIsTaken) {
    EXPECT_EQ(text(firstKeyValue(path("C.k=\"a\",k=\"b\",l=\"c\""), "k")), "a");
}

TEST(PathKeys, LastOfSeveralKeysIsTaken) {
    String value("before");
    readLastKeyValue(path("C.k=\"a\",k=\"b\",l=\"c\""), "k", value);
    EXPECT_EQ(text(value), "b");
}

TEST(PathKeys, NamesIgnoreCase) {
    EXPECT_EQ(text(firstKeyValue(path("C.DeviceID=\"a\""), "deviceid")), "a");
    String value;
    readLastKeyValue(path("C.deviceid=\"a\""), "DeviceID", value);
    EXPECT_EQ(text(value), "a");
}

TEST(PathKeys, AbsentKeyHasAnEmptyFirstValueAndLeavesTheLastValueUnchanged) {
    EXPECT_EQ(text(firstKeyValue(path("C.k=\"a\""), "x")), "");
    String value("before");
    readLastKeyValue(path("C.k=\"a\""), "x", value);
    EXPECT_EQ(text(value), "before");
}

TEST(PathKeys, PathWithoutKeysHasAnEmptyFirstValue) {
    EXPECT_EQ(text(firstKeyValue(CIMObjectPath(), "k")), "");
}

TEST(PathKeys, StringKeyIsOfTheTypeString) {
    const CIMKeyBinding key = stringKey("Name", "5");
    EXPECT_EQ(text(key.getName()), "Name");
    EXPECT_EQ(text(key.getValue()), "5");
    EXPECT_EQ(key.getType(), CIMKeyBinding::STRING);
}

}  // namespace
}  // namespace Pegasus
