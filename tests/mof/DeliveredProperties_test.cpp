// SPDX-License-Identifier: MIT
// What the provider library delivers is what the class definitions declare.
#include <set>
#include <string>

#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

#include "contract/Names.h"
#include "servers/cimhost/loading/ServedClasses.h"
#include "servers/cimhost/program/Host.h"
#include "tests/support/ObjectModelText.h"

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMParamValue;
using Pegasus::CIMValue;
using Pegasus::Uint32;

const Pegasus::CIMNamespaceName nameSpace(contract::nameSpace);

/// A host with the real library and one result, so that every class has an instance.
class DeliveredPropertiesTest : public testing::TestWithParam<ServedClass> {
protected:
    void SetUp() override {
        const auto tests = operations_.enumerateInstanceNames(nameSpace, contract::classes::test);
        const auto elements =
            operations_.enumerateInstanceNames(nameSpace, contract::classes::managedElement);
        Array<CIMParamValue> parameters;
        parameters.append(
            CIMParamValue(contract::parameters::systemElement, CIMValue(elements[0]), true));
        const wire::MethodResult result =
            operations_.invokeMethod(nameSpace, tests[0], contract::methods::runTest, parameters);
        ASSERT_EQ(result.returnValue, CIMValue(Uint32(0)));
    }

    Array<CIMInstance> delivered() {
        return operations_.enumerateInstances(nameSpace, CIMName(GetParam().name), true, {});
    }

    wire::ClassDefinition declared() {
        ElementOptions options;
        options.includeQualifiers = true;
        return operations_.getClass(nameSpace, CIMName(GetParam().name), options);
    }

    Host host_{HostSettings{
        {ZORVA_MOF_FOLDER "/cimhost.mof"}, ZORVA_OWN_LIBRARY, "box", {"0000:00:14.0"}}};
    Operations& operations_ = host_.operations();
};

TEST_P(DeliveredPropertiesTest, EveryPropertyIsDeclaredWithItsType) {
    const wire::ClassDefinition definition = declared();
    const auto instances = delivered();
    ASSERT_GT(instances.size(), 0U);
    for (Uint32 index = 0; index < instances.size(); ++index) {
        for (Uint32 position = 0; position < instances[index].getPropertyCount(); ++position) {
            const Pegasus::CIMConstProperty property =
                CIMInstance(instances[index]).getProperty(position);
            const wire::PropertyDefinition* const declaration =
                definition.findProperty(property.getName());
            ASSERT_NE(declaration, nullptr) << text(property.getName());
            EXPECT_EQ(text(declaration->name), text(property.getName())) << "letter by letter";
            EXPECT_EQ(declaration->type, property.getType()) << text(property.getName());
            EXPECT_EQ(declaration->isArray, property.isArray()) << text(property.getName());
            EXPECT_EQ(text(declaration->referenceClass), text(property.getReferenceClassName()))
                << text(property.getName());
        }
    }
}

TEST_P(DeliveredPropertiesTest, TheKeysOfThePathAreTheKeysOfTheClass) {
    std::set<std::string> declaredKeys;
    for (const wire::PropertyDefinition& property : declared().properties) {
        if (property.isKey()) {
            declaredKeys.insert(text(property.name));
        }
    }
    const auto names = operations_.enumerateInstanceNames(nameSpace, CIMName(GetParam().name));
    ASSERT_GT(names.size(), 0U);
    for (Uint32 index = 0; index < names.size(); ++index) {
        std::set<std::string> keys;
        for (Uint32 key = 0; key < names[index].getKeyBindings().size(); ++key) {
            keys.insert(text(names[index].getKeyBindings()[key].getName()));
        }
        EXPECT_EQ(keys, declaredKeys);
    }
}

TEST_P(DeliveredPropertiesTest, EveryElementIsDescribed) {
    const wire::ClassDefinition definition = declared();
    EXPECT_NE(findQualifier(definition.qualifiers, "Description"), nullptr);
    for (const wire::PropertyDefinition& property : definition.properties) {
        EXPECT_NE(findQualifier(property.qualifiers, "Description"), nullptr)
            << text(property.name);
    }
    for (const wire::MethodDefinition& method : definition.methods) {
        EXPECT_NE(findQualifier(method.qualifiers, "Description"), nullptr) << text(method.name);
        for (const wire::ParameterDefinition& parameter : method.parameters) {
            EXPECT_NE(findQualifier(parameter.qualifiers, "Description"), nullptr)
                << text(parameter.name);
        }
    }
}

TEST_P(DeliveredPropertiesTest, ValueMapsHaveAsManyValues) {
    const wire::ClassDefinition definition = declared();
    const auto check = [](const wire::Qualifiers& qualifiers, const CIMName& element) {
        const wire::Qualifier* const map = findQualifier(qualifiers, "ValueMap");
        const wire::Qualifier* const values = findQualifier(qualifiers, "Values");
        ASSERT_EQ(map == nullptr, values == nullptr) << text(element);
        if (map != nullptr) {
            EXPECT_EQ(map->value.getArraySize(), values->value.getArraySize()) << text(element);
        }
    };
    for (const wire::PropertyDefinition& property : definition.properties) {
        check(property.qualifiers, property.name);
    }
    for (const wire::MethodDefinition& method : definition.methods) {
        check(method.qualifiers, method.name);
    }
}

INSTANTIATE_TEST_SUITE_P(ServedClasses, DeliveredPropertiesTest, testing::ValuesIn(servedClasses),
                         [](const testing::TestParamInfo<ServedClass>& info) {
                             return std::string(info.param.name);
                         });

}  // namespace
}  // namespace cimhost
