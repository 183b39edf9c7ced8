// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMProperty.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using modeltest::describe;
using namespace Pegasus;

namespace {

CIMProperty number() {
    return {"n", Uint16(1)};
}

TEST(CIMProperty, IsNullByDefault) {
    CIMProperty none;
    {
        ROW("property-001");
        EXPECT_TRUE(none.isUninitialized());
    }
    {
        ROW("property-002");
        EXPECT_THROWS(none.getName(), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("property-003");
        EXPECT_THROWS(none.getValue(), UninitializedObjectException, "uninitialized object");
    }
    {
        ROW("property-004");
        EXPECT_THROWS(none.setValue(Uint16(1)), UninitializedObjectException,
                      "uninitialized object");
    }
    EXPECT_THROWS(none.clone(), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(none.identical(none), UninitializedObjectException, "uninitialized object");
    EXPECT_THROWS(CIMConstProperty().getName(), UninitializedObjectException,
                  "uninitialized object");
}

TEST(CIMProperty, HasTheTypeOfItsFirstValue) {
    {
        ROW("property-005");
        const CIMProperty property = number();
        EXPECT_EQ(property.getName().getString(), "n");
        EXPECT_EQ(property.getType(), CIMTYPE_UINT16);
        EXPECT_FALSE(property.isArray());
        EXPECT_EQ(property.getArraySize(), 0U);
        EXPECT_TRUE(property.getClassOrigin().isNull());
        EXPECT_FALSE(property.getPropagated());
        EXPECT_TRUE(property.getReferenceClassName().isNull());
    }
    {
        ROW("property-006");
        EXPECT_THROWS(CIMProperty(CIMName(), Uint16(1)), UninitializedObjectException,
                      "uninitialized object");
    }
    {
        ROW("property-007");
        EXPECT_EQ(describe(CIMProperty("n", CIMValue()).getValue()), R"(boolean null toString "")");
    }
    EXPECT_TRUE(CIMProperty("n", Array<Uint16>()).isArray());
}

TEST(CIMProperty, ChecksReferenceClassAndArraySize) {
    const CIMValue reference(CIMObjectPath(String("C.k=1")));
    {
        ROW("property-008");
        const CIMProperty property("n", reference);
        EXPECT_TRUE(property.getReferenceClassName().isNull());
        EXPECT_EQ(describe(property.getValue()), R"(reference toString "C.k=1")");
    }
    {
        ROW("property-009");
        EXPECT_THROWS(CIMProperty("n", String("v"), 0, "D"), TypeMismatchException,
                      "type mismatch");
    }
    {
        ROW("property-011");
        EXPECT_THROWS(CIMProperty("n", Array<CIMObjectPath>(), 0, "D"), TypeMismatchException,
                      "type mismatch");
    }
    {
        ROW("property-012");
        EXPECT_THROWS(CIMProperty("n", Array<Uint16>(2), 3), TypeMismatchException,
                      "type mismatch");
    }
    {
        ROW("property-013");
        EXPECT_THROWS(CIMProperty("n", Uint16(1), 3), TypeMismatchException, "type mismatch");
    }
    EXPECT_EQ(CIMProperty("n", reference, 0, "D").getReferenceClassName().getString(), "D");
    CIMProperty fixed("n", Array<Uint16>(2), 2);
    EXPECT_EQ(fixed.getArraySize(), 2U);
    EXPECT_THROWS(fixed.setValue(Array<Uint16>(3)), TypeMismatchException, "type mismatch");
    fixed.setValue(CIMValue(CIMTYPE_UINT16, true));
    fixed.setValue(Array<Uint16>(2, 7));
    EXPECT_EQ(fixed.getValue().toString(), "7 7 ");
    EXPECT_EQ(CIMProperty("n", CIMValue(CIMTYPE_UINT16, true), 4).getArraySize(), 4U);
}

TEST(CIMProperty, AcceptsOnlyValuesOfItsType) {
    CIMProperty scalar = number();
    CIMProperty array("a", arrayOf<Uint16>({1}));
    {
        ROW("property-014");
        scalar.setValue(Uint16(2));
        EXPECT_EQ(describe(scalar.getValue()), R"(uint16 toString "2")");
    }
    scalar.setValue(Uint16(1));
    {
        ROW("property-015");
        EXPECT_THROWS(scalar.setValue(String("x")), TypeMismatchException, "type mismatch");
    }
    {
        ROW("property-017");
        EXPECT_THROWS(scalar.setValue(Array<Uint16>(1)), TypeMismatchException, "type mismatch");
    }
    {
        ROW("property-018");
        EXPECT_THROWS(array.setValue(Uint16(1)), TypeMismatchException, "type mismatch");
    }
    {
        ROW("property-020");
        EXPECT_THROWS(scalar.setValue(CIMValue(CIMTYPE_STRING, false)), TypeMismatchException,
                      "type mismatch");
    }
    {
        ROW("property-021");
        EXPECT_THROWS(scalar.setValue(CIMValue()), TypeMismatchException, "type mismatch");
    }
    {
        ROW("property-023");
        EXPECT_EQ(describe(scalar.getValue()), R"(uint16 toString "1")");
    }
    {
        ROW("property-019");
        scalar.setValue(CIMValue(CIMTYPE_UINT16, false));
        EXPECT_EQ(describe(scalar.getValue()), R"(uint16 null toString "")");
    }
    {
        ROW("property-022");
        CIMProperty boolean("b", true);
        boolean.setValue(CIMValue());
        EXPECT_EQ(describe(boolean.getValue()), R"(boolean null toString "")");
    }
    {
        ROW("property-024");
        CIMProperty date("d", CIMDateTime(String("20020308070100.000000-240")));
        date.setValue(CIMDateTime(String("00000001020304.000005:000")));
        EXPECT_EQ(describe(date.getValue()), R"(datetime toString "00000001020304.000005:000")");
    }
    {
        ROW("property-025");
        CIMProperty reference("r", CIMObjectPath(String("C.k=1")));
        EXPECT_THROWS(reference.setValue(String("C.k=1")), TypeMismatchException, "type mismatch");
    }
}

TEST(CIMProperty, IsSharedByCopiesAndNotByClones) {
    {
        ROW("property-026");
        const CIMProperty first = number();
        CIMProperty copy(first);
        copy.setValue(Uint16(2));
        EXPECT_EQ(describe(first.getValue()), R"(uint16 toString "2")");
    }
    {
        ROW("property-027");
        const CIMProperty first = number();
        CIMProperty clone = first.clone();
        clone.setValue(Uint16(2));
        EXPECT_EQ(describe(first.getValue()), R"(uint16 toString "1")");
    }
    const CIMProperty first = number();
    CIMProperty assigned;
    assigned = first;
    assigned.setName("m");
    EXPECT_EQ(first.getName().getString(), "m");
    EXPECT_EQ(CIMConstProperty(first).clone().getName().getString(), "m");
}

TEST(CIMProperty, ChangesItsAttributes) {
    CIMProperty property = number();
    {
        ROW("property-028");
        property.setName("m");
        EXPECT_EQ(property.getName().getString(), "m");
    }
    EXPECT_THROWS(property.setName(CIMName()), UninitializedObjectException,
                  "uninitialized object");
    property.setClassOrigin("C");
    property.setPropagated(true);
    const CIMConstProperty seen(property);
    EXPECT_EQ(seen.getName().getString(), "m");
    EXPECT_EQ(seen.getClassOrigin().getString(), "C");
    EXPECT_TRUE(seen.getPropagated());
    EXPECT_EQ(seen.getType(), CIMTYPE_UINT16);
    EXPECT_FALSE(seen.isArray());
    EXPECT_EQ(seen.getArraySize(), 0U);
    EXPECT_TRUE(seen.getReferenceClassName().isNull());
    EXPECT_FALSE(seen.isUninitialized());
    EXPECT_EQ(CIMConstProperty("n", Uint16(3)).getValue().toString(), "3");
}

TEST(CIMProperty, IsIdenticalWithTheSameNameValueAndAttributes) {
    const CIMProperty property = number();
    {
        ROW("property-029");
        EXPECT_TRUE(property.identical(number()));
        EXPECT_TRUE(property.identical(CIMProperty("N", Uint16(1))));
        EXPECT_FALSE(property.identical(CIMProperty("n", Uint16(2))));
    }
    EXPECT_FALSE(property.identical(CIMProperty("m", Uint16(1))));
    EXPECT_FALSE(property.identical(CIMProperty("n", Uint16(1), 0, CIMName(), "C")));
    EXPECT_FALSE(property.identical(CIMProperty("n", Uint16(1), 0, CIMName(), CIMName(), true)));
    EXPECT_TRUE(CIMConstProperty(property).identical(number()));
    const CIMValue reference(CIMObjectPath(String("C.k=1")));
    EXPECT_FALSE(CIMProperty("n", reference).identical(CIMProperty("n", reference, 0, "D")));
    EXPECT_FALSE(
        CIMProperty("n", Array<Uint16>(2)).identical(CIMProperty("n", Array<Uint16>(2), 2)));
}

}  // namespace
