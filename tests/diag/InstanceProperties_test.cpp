// SPDX-License-Identifier: MIT
#include "diag/InstanceProperties.h"

#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

#include "tests/support/Thrown.h"

namespace Pegasus {
namespace {

CIMInstance instanceWithNumber() {
    CIMInstance instance("C");
    addProperty(instance, "Number", CIMValue(Uint16(1)));
    return instance;
}

TEST(InstanceProperties, NullInstanceHasNoProperties) {
    EXPECT_FALSE(hasProperties(CIMInstance()));
    EXPECT_FALSE(hasProperties(CIMInstance("C")));
    EXPECT_TRUE(hasProperties(instanceWithNumber()));
}

TEST(InstanceProperties, PropertyIsFoundIgnoringCase) {
    EXPECT_EQ(text(propertyValueOf(instanceWithNumber(), "nUMBER")), "uint16 1");
}

TEST(InstanceProperties, PropertyIsAHandleOnTheInstance) {
    CIMInstance instance = instanceWithNumber();
    propertyOf(instance, "Number").setValue(CIMValue(Uint16(2)));
    EXPECT_EQ(propertyText(instance, "Number"), "uint16 2");
}

TEST(InstanceProperties, AbsentPropertyIsNamed) {
    CIMInstance instance = instanceWithNumber();
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { propertyOf(instance, "Other"); }),
              "no such property: Other");
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { propertyValueOf(instance, "Other"); }),
              "no such property: Other");
}

TEST(InstanceProperties, TextThatIsNoLegalNameIsAnAbsentProperty) {
    EXPECT_EQ(text(toPropertyName("Number")), "Number");
    EXPECT_EQ(thrownBy<NoSuchProperty>([] { toPropertyName(""); }), "no such property: ");
    EXPECT_EQ(thrownBy<NoSuchProperty>([] { toPropertyName("a b"); }), "no such property: a b");
}

TEST(InstanceProperties, ValueIsComparedWithItsType) {
    const CIMInstance instance = instanceWithNumber();
    EXPECT_TRUE(hasPropertyValue(instance, "number", CIMValue(Uint16(1))));
    EXPECT_FALSE(hasPropertyValue(instance, "Number", CIMValue(Uint16(2))));
    EXPECT_FALSE(hasPropertyValue(instance, "Number", CIMValue(Uint32(1))));
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { hasPropertyValue(instance, "Other", CIMValue()); }),
              "no such property: Other");
}

TEST(InstanceProperties, AddedPropertyHasNoFurtherAttributes) {
    CIMInstance instance = instanceWithNumber();
    const CIMProperty property = propertyOf(instance, "Number");
    EXPECT_EQ(property.getArraySize(), 0U);
    EXPECT_TRUE(property.getReferenceClassName().isNull());
    EXPECT_TRUE(property.getClassOrigin().isNull());
    EXPECT_FALSE(property.getPropagated());
}

}  // namespace
}  // namespace Pegasus
