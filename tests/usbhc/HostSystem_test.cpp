// SPDX-License-Identifier: MIT
#include "usbhc/HostSystem.h"

#include <gtest/gtest.h>

#include "tests/support/Thrown.h"

namespace Pegasus {
namespace {

Array<CIMProperty> properties(const std::vector<std::pair<const char*, CIMValue>>& values) {
    Array<CIMProperty> all;
    for (const auto& value : values) {
        all.append(CIMProperty(CIMName(value.first), value.second));
    }
    return all;
}

CIMValue string(const char* value) {
    return CIMValue(String(value));
}

TEST(HostSystem, BothNamesAreTaken) {
    const HostSystem system =
        hostSystemOf(properties({{"Name", string("n")}, {"CreationClassName", string("c")}}));
    EXPECT_EQ(text(system.name), "n");
    EXPECT_EQ(text(system.creationClassName), "c");
}

TEST(HostSystem, PropertyNamesIgnoreCase) {
    const HostSystem system =
        hostSystemOf(properties({{"CREATIONCLASSNAME", string("c")}, {"name", string("n")}}));
    EXPECT_EQ(text(system.name), "n");
    EXPECT_EQ(text(system.creationClassName), "c");
}

TEST(HostSystem, MissingNamesAreEmpty) {
    const HostSystem none = hostSystemOf(Array<CIMProperty>());
    EXPECT_EQ(text(none.name), "");
    EXPECT_EQ(text(none.creationClassName), "");
    EXPECT_EQ(text(hostSystemOf(properties({{"Other", string("x")}})).name), "");
}

TEST(HostSystem, LaterPropertyOfANameCounts) {
    EXPECT_EQ(text(hostSystemOf(properties({{"Name", string("a")}, {"NAME", string("b")}})).name),
              "b");
}

TEST(HostSystem, NullIsIgnored) {
    EXPECT_EQ(text(hostSystemOf(properties({{"Name", CIMValue(CIMTYPE_STRING, false)}})).name), "");
}

TEST(HostSystem, NameThatIsNoStringIsATypeMismatch) {
    EXPECT_EQ(thrownBy<TypeMismatchException>([] {
                  hostSystemOf(properties({{"Name", CIMValue(Uint8(1))}}));
              }),
              "type mismatch");
}

}  // namespace
}  // namespace Pegasus
