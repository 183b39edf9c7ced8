// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMInstance.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using modeltest::describe;
using modeltest::quoted;
using namespace Pegasus;

namespace {

/// Class "C" with the properties "b" and "a", both Uint16 1.
CIMInstance sample() {
    CIMInstance instance("C");
    instance.addProperty(CIMProperty("b", Uint16(1)));
    instance.addProperty(CIMProperty("a", Uint16(1)));
    return instance;
}

std::string valueAt(const CIMInstance& instance, Uint32 index) {
    return describe(instance.getProperty(index).getValue());
}

TEST(CIMInstance, IsNullByDefault) {
    CIMInstance none;
    {
        ROW("instance-001");
        EXPECT_TRUE(none.isUninitialized());
    }
    {
        ROW("instance-002");
        EXPECT_THROWS(none.getPropertyCount(), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("instance-003");
        EXPECT_THROWS(none.getClassName(), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("instance-004");
        EXPECT_THROWS(none.getPath(), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("instance-005");
        EXPECT_THROWS(none.findProperty("x"), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("instance-006");
        EXPECT_THROWS(none.addProperty(CIMProperty("p", true)), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("instance-007");
        EXPECT_THROWS(none.setPath(CIMObjectPath()), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("instance-010");
        EXPECT_THROWS(CIMInstance(CIMName()), UninitializedObjectException, "uninitialized object");
    }
    EXPECT_THROWS(none.getProperty(0), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(none.removeProperty(0), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(none.identical(none), UninitializedObjectException, "uninitialized object");
}

TEST(CIMInstance, ThrowsWhenANullHandleIsCloned) {
    EXPECT_THROWS(CIMInstance().clone(), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(CIMConstInstance().clone(), UninitializedObjectException, "uninitialized object");
}

TEST(CIMInstance, KeepsItsPropertiesInTheOrderAdded) {
    CIMInstance instance = sample();
    {
        ROW("instance-011");
        EXPECT_EQ(instance.getProperty(0).getName().getString(), "b");
        EXPECT_EQ(instance.getProperty(1).getName().getString(), "a");
    }
    {
        ROW("instance-012");
        EXPECT_THROWS(instance.addProperty(CIMProperty("a", true)), AlreadyExistsException,
                      "already exists: property \"a\"");
    }
    {
        ROW("instance-013");
        EXPECT_THROWS(instance.addProperty(CIMProperty("A", true)), AlreadyExistsException,
                      "already exists: property \"A\"");
    }
    {
        ROW("instance-014");
        EXPECT_EQ(instance.getPropertyCount(), 2U);
    }
    {
        ROW("instance-015");
        EXPECT_THROWS(instance.addProperty(CIMProperty()), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("instance-017");
        EXPECT_EQ(instance.findProperty("A"), 1U);
    }
    {
        ROW("instance-018");
        EXPECT_EQ(instance.findProperty("zz"), 4294967295U);
    }
    {
        ROW("instance-019");
        EXPECT_EQ(instance.findProperty(CIMName()), 4294967295U);
    }
}

TEST(CIMInstance, ChecksIndices) {
    CIMInstance instance = sample();
    const CIMInstance& constant = instance;
    {
        ROW("instance-020");
        EXPECT_THROWS(instance.getProperty(2), IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("instance-021");
        EXPECT_THROWS(instance.getProperty(PEG_NOT_FOUND), IndexOutOfBoundsException,
                      "index out of bounds");
    }
    {
        ROW("instance-022");
        EXPECT_THROWS(constant.getProperty(2), IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("instance-036");
        EXPECT_THROWS(instance.removeProperty(2), IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("instance-037");
        const CIMProperty removed = instance.getProperty(0);
        instance.removeProperty(0);
        EXPECT_EQ(describe(removed.getValue()), R"(uint16 toString "1")");
        EXPECT_EQ(instance.getPropertyCount(), 1U);
    }
}

TEST(CIMInstance, SharesThePropertiesThatWereAdded) {
    {
        ROW("instance-024");
        CIMInstance instance("C");
        CIMProperty property("p", Uint16(1));
        instance.addProperty(property);
        property.setValue(Uint16(5));
        EXPECT_EQ(valueAt(instance, 0), R"(uint16 toString "5")");
    }
    {
        ROW("instance-029");
        const CIMProperty property("p", Uint16(1));
        CIMInstance first("C");
        CIMInstance second("C");
        first.addProperty(property);
        second.addProperty(property);
        first.getProperty(0).setValue(Uint16(5));
        EXPECT_EQ(valueAt(second, 0), R"(uint16 toString "5")");
    }
    {
        ROW("instance-030");
        CIMInstance instance = sample();
        EXPECT_THROWS(instance.getProperty(0).setValue(String("x")), TypeMismatchException,
                      "type mismatch");
    }
}

TEST(CIMInstance, IsSharedByCopiesAndNotByClones) {
    {
        ROW("instance-025");
        const CIMInstance first = sample();
        CIMInstance copy(first);
        copy.getProperty(0).setValue(Uint16(9));
        EXPECT_EQ(valueAt(first, 0), R"(uint16 toString "9")");
    }
    {
        ROW("instance-026");
        const CIMInstance first = sample();
        CIMInstance assigned;
        assigned = first;
        assigned.addProperty(CIMProperty("c", true));
        EXPECT_EQ(first.getPropertyCount(), 3U);
    }
    {
        ROW("instance-027");
        const CIMInstance first = sample();
        CIMInstance clone = first.clone();
        clone.getProperty(0).setValue(Uint16(9));
        clone.addProperty(CIMProperty("c", true));
        clone.setPath(CIMObjectPath(String("C.k=9")));
        EXPECT_EQ(valueAt(first, 0), R"(uint16 toString "1")");
        EXPECT_EQ(first.getPropertyCount(), 2U);
        EXPECT_EQ(first.getPath().toString(), "C");
    }
    {
        ROW("instance-028");
        const CIMInstance first = sample();
        CIMInstance copy(first);
        copy.setPath(CIMObjectPath(String("C.k=9")));
        EXPECT_EQ(first.getPath().toString(), "C.k=9");
    }
}

TEST(CIMInstance, HasThePathOfItsClass) {
    CIMInstance instance("C");
    {
        ROW("instance-031");
        EXPECT_EQ(describe(instance.getPath()), R"(host "" ns null class "C" keys [])");
        EXPECT_EQ(instance.getPath().toString(), "C");
    }
    {
        ROW("instance-032");
        instance.setPath(CIMObjectPath(String("//h/root/x:C.k=1")));
        EXPECT_EQ(instance.getPath().toString(), "//h/root/x:C.k=1");
    }
    EXPECT_THROWS(instance.setPath(CIMObjectPath(String("D.k=1"))), TypeMismatchException,
                  "type mismatch");
    EXPECT_EQ(instance.getPath().toString(), "//h/root/x:C.k=1");
    instance.setPath(CIMObjectPath(String("c.k=2")));
    EXPECT_EQ(instance.getClassName().getString(), "c");
}

TEST(CIMInstance, IsIdenticalWithTheSamePathAndProperties) {
    const CIMInstance first = sample();
    {
        ROW("instance-038");
        EXPECT_TRUE(first.identical(sample()));
    }
    {
        ROW("instance-039");
        CIMInstance moved = sample();
        moved.setPath(CIMObjectPath(String("C.k=1")));
        EXPECT_FALSE(first.identical(moved));
    }
    {
        ROW("instance-040");
        CIMInstance turned("C");
        turned.addProperty(CIMProperty("a", Uint16(1)));
        turned.addProperty(CIMProperty("b", Uint16(1)));
        EXPECT_FALSE(first.identical(turned));
    }
    CIMInstance longer = sample();
    longer.addProperty(CIMProperty("c", true));
    EXPECT_FALSE(first.identical(longer));
}

TEST(CIMInstance, IsFilteredByAPropertyList) {
    {
        ROW("instance-041");
        CIMInstance instance = sample();
        instance.instanceFilter(false, false, arrayOf<CIMName>({"a"}));
        EXPECT_EQ(instance.getPropertyCount(), 1U);
        EXPECT_EQ(instance.getProperty(0).getName().getString(), "a");
    }
    {
        ROW("instance-042");
        CIMInstance instance = sample();
        instance.instanceFilter(false, false, Array<CIMName>());
        EXPECT_EQ(instance.getPropertyCount(), 0U);
    }
    {
        ROW("instance-043");
        CIMInstance instance = sample();
        instance.instanceFilter(false, false, CIMPropertyList());
        EXPECT_EQ(instance.getPropertyCount(), 2U);
    }
    CIMInstance instance("C");
    instance.addProperty(CIMProperty("p", true, 0, CIMName(), "Base"));
    instance.instanceFilter(false, true, CIMPropertyList());
    EXPECT_EQ(instance.getProperty(0).getClassOrigin().getString(), "Base");
    instance.instanceFilter(false, false, CIMPropertyList());
    EXPECT_TRUE(instance.getProperty(0).getClassOrigin().isNull());
}

TEST(CIMConstInstance, ReadsAnInstance) {
    const CIMInstance instance = sample();
    const CIMConstInstance seen(instance);
    {
        ROW("instance-051");
        EXPECT_EQ(describe(seen.getProperty(0).getValue()), R"(uint16 toString "1")");
    }
    EXPECT_EQ(seen.getClassName().getString(), "C");
    EXPECT_EQ(seen.getPath().toString(), "C");
    EXPECT_EQ(seen.findProperty("a"), 1U);
    EXPECT_EQ(seen.getPropertyCount(), 2U);
    EXPECT_TRUE(seen.identical(instance));
    EXPECT_TRUE(seen.clone().identical(instance));
    EXPECT_FALSE(seen.isUninitialized());
    EXPECT_EQ(CIMConstInstance("D").getPropertyCount(), 0U);
}

}  // namespace
