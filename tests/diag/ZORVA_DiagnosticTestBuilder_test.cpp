// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagnosticTestBuilder.h"

#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

class TwoTests : public ZORVA_DiagnosticTestBuilder {
public:
    TwoTests() {
        add("First", {2, 5});
        add("Second", {});
    }

private:
    void add(const char* name, std::initializer_list<Uint16> characteristics) {
        Array<Uint16> values;
        for (const Uint16 value : characteristics) {
            values.append(value);
        }
        CIMInstance instance("Test");
        addProperty(instance, "Name", CIMValue(String(name)));
        addProperty(instance, "Caption", CIMValue(String("a test")));
        addProperty(instance, "Characteristics", CIMValue(values));
        addProperty(instance, "IsInUse", CIMValue(Boolean(false)));
        addProperty(instance, "Started", CIMValue(Boolean(false)));
        Array<CIMKeyBinding> keys;
        keys.append(stringKey("Name", name));
        appendTo(tests_, tablePath("Test", keys), instance);
    }
};

class ZorvaDiagnosticTestBuilder : public testing::Test {
protected:
    TwoTests tests_;
};

CIMObjectPath path(const char* text) {
    return CIMObjectPath(String(text));
}

TEST_F(ZorvaDiagnosticTestBuilder, TestIsFoundByItsPath) {
    const Array<CIMInstance> found = tests_.getTestInstance(path("Test.Name=\"Second\""));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(propertyText(found[0], "Name"), "string Second");
}

TEST_F(ZorvaDiagnosticTestBuilder, TestIsFoundIgnoringHostAndNamespace) {
    EXPECT_EQ(tests_.getTestInstance(path("root/x:Test.Name=\"First\"")).size(), 1U);
    EXPECT_EQ(tests_.getTestInstance(path("//h/root/x:test.name=\"First\"")).size(), 1U);
}

TEST_F(ZorvaDiagnosticTestBuilder, UnknownPathIsABadReference) {
    for (const char* unknown : {"Test.Name=\"first\"", "Other.Name=\"First\"", "Test",
                                "Test.Name=\"First\",More=\"x\""}) {
        EXPECT_EQ(thrownBy<BadReference>([&] { tests_.getTestInstance(path(unknown)); }),
                  "bad reference: Invalid Reference")
            << unknown;
    }
}

TEST_F(ZorvaDiagnosticTestBuilder, EnumerationsAreInTableOrder) {
    const Array<CIMInstance> all = tests_.enumTestInstances();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(propertyText(all[0], "Name"), "string First");
    EXPECT_EQ(propertyText(all[1], "Name"), "string Second");
    EXPECT_EQ(texts(tests_.enumTestReferences()),
              (Texts{"Test.Name=\"First\"", "Test.Name=\"Second\""}));
}

TEST_F(ZorvaDiagnosticTestBuilder, IndexOfANameIsExact) {
    EXPECT_EQ(tests_.getInstanceIndex("First"), 0U);
    EXPECT_EQ(tests_.getInstanceIndex("Second"), 1U);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { tests_.getInstanceIndex("second"); }),
              "no such property: ZORVA_Diagnostic getIsInUse NAME second");
}

TEST_F(ZorvaDiagnosticTestBuilder, EveryLookupOfAnUnknownNameNamesGetIsInUse) {
    const std::string message = "no such property: ZORVA_Diagnostic getIsInUse NAME Third";
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { tests_.getInstanceIndex("Third"); }), message);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { tests_.getTestProperty("Third", "Caption"); }),
              message);
    EXPECT_EQ(thrownBy<NoSuchProperty>(
                  [&] { tests_.setTestProperty("Third", "IsInUse", CIMValue(Boolean(true))); }),
              message);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { tests_.getHasCharacteristic("Third", 2); }), message);
}

TEST_F(ZorvaDiagnosticTestBuilder, PropertyOfATestIsRead) {
    EXPECT_EQ(text(tests_.getTestProperty("First", "caption")), "string a test");
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { tests_.getTestProperty("First", "Other"); }),
              "no such property: Other");
}

TEST_F(ZorvaDiagnosticTestBuilder, IsInUseAndStartedAreWritten) {
    tests_.setTestProperty("Second", "IsInUse", CIMValue(Boolean(true)));
    tests_.setTestProperty("Second", "Started", CIMValue(Boolean(true)));
    EXPECT_EQ(text(tests_.getTestProperty("Second", "IsInUse")), "boolean TRUE");
    EXPECT_EQ(text(tests_.getTestProperty("Second", "Started")), "boolean TRUE");
    EXPECT_EQ(text(tests_.getTestProperty("First", "IsInUse")), "boolean FALSE");
}

TEST_F(ZorvaDiagnosticTestBuilder, NameInAnotherCaseIsNotWritable) {
    for (const char* name : {"isInUse", "ISINUSE", "started", "Name", "Caption", "Other", ""}) {
        EXPECT_EQ(thrownBy<NotImplemented>(
                      [&] { tests_.setTestProperty("First", name, CIMValue(Boolean(true))); }),
                  "not implemented: ZORVA_DiagnosticTest property not writable")
            << name;
    }
}

TEST_F(ZorvaDiagnosticTestBuilder, ValueOfAnotherTypeIsRejectedAndNothingChanges) {
    EXPECT_EQ(thrownBy<TypeMismatchException>(
                  [&] { tests_.setTestProperty("First", "IsInUse", CIMValue(String("TRUE"))); }),
              "type mismatch");
    EXPECT_EQ(text(tests_.getTestProperty("First", "IsInUse")), "boolean FALSE");
}

TEST_F(ZorvaDiagnosticTestBuilder, CharacteristicIsAnyElementOfTheList) {
    EXPECT_TRUE(tests_.getHasCharacteristic("First", 2));
    EXPECT_TRUE(tests_.getHasCharacteristic("First", 5));
    EXPECT_FALSE(tests_.getHasCharacteristic("First", 8));
    EXPECT_FALSE(tests_.getHasCharacteristic("Second", 2));
}

TEST_F(ZorvaDiagnosticTestBuilder, EmptyTableMakesEveryLookupThrow) {
    ZORVA_DiagnosticTestBuilder empty;
    EXPECT_EQ(empty.enumTestInstances().size(), 0U);
    EXPECT_EQ(empty.enumTestReferences().size(), 0U);
    EXPECT_EQ(thrownBy<BadReference>([&] { empty.getTestInstance(path("Test.Name=\"First\"")); }),
              "bad reference: Invalid Reference");
    const std::string message = "no such property: ZORVA_Diagnostic getIsInUse NAME First";
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { empty.getInstanceIndex("First"); }), message);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { empty.getTestProperty("First", "Name"); }), message);
    EXPECT_EQ(thrownBy<NoSuchProperty>(
                  [&] { empty.setTestProperty("First", "Started", CIMValue(Boolean(true))); }),
              message);
    EXPECT_EQ(thrownBy<NoSuchProperty>([&] { empty.getHasCharacteristic("First", 2); }), message);
}

TEST_F(ZorvaDiagnosticTestBuilder, BaseOffersNoTests) {
    ZORVA_DiagnosticTestBuilder base;
    EXPECT_EQ(base.buildTests().size(), 0U);
}

TEST_F(ZorvaDiagnosticTestBuilder, ReturnedInstancesAreClones) {
    CIMInstance one = tests_.getTestInstance(path("Test.Name=\"First\""))[0];
    propertyOf(one, "IsInUse").setValue(CIMValue(Boolean(true)));
    EXPECT_EQ(text(tests_.getTestProperty("First", "IsInUse")), "boolean FALSE");
    EXPECT_EQ(text(one.getPath()), "Test.Name=\"First\"");
}

TEST_F(ZorvaDiagnosticTestBuilder, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_DiagnosticTestBuilder::buildTests), 2U);
}

}  // namespace
}  // namespace Pegasus
