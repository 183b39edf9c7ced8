// SPDX-License-Identifier: MIT
// The class definitions declare what the contract names, and no class of ours that it does not.
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "contract/Names.h"
#include "contract/ReturnCode.h"
#include "contract/TestState.h"
#include "servers/cimhost/mof/MofReader.h"
#include "tests/support/ObjectModelText.h"

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMName;
using Pegasus::String;
namespace classes = contract::classes;
namespace methods = contract::methods;
namespace parameters = contract::parameters;
namespace properties = contract::properties;

class ClassDefinitionsTest : public testing::Test {
protected:
    ClassDefinitionsTest() {
        MofReader(schema_, repository_).readFile(ZORVA_MOF_FOLDER "/cimhost.mof", "root/other");
    }

    Schema::ClassPointer definition(const char* className) const {
        return schema_.requireClass(contract::nameSpace, CIMName(className));
    }

    const wire::MethodDefinition* method(const char* name) const {
        return definition(classes::test)->findMethod(CIMName(name));
    }

    void expectProperty(const char* className, const char* name) const {
        const wire::PropertyDefinition* const property = definition(className)->findProperty(name);
        ASSERT_NE(property, nullptr) << name;
        EXPECT_EQ(text(property->name), name) << "letter by letter";
    }

    static std::set<std::string> valueMap(const wire::Qualifiers& qualifiers) {
        Array<String> values;
        wire::findQualifier(qualifiers, "ValueMap")->value.get(values);
        std::set<std::string> texts;
        for (Pegasus::Uint32 i = 0; i < values.size(); ++i) {
            texts.insert(text(values[i]));
        }
        return texts;
    }

    template <class Enumeration>
    static std::string number(Enumeration value) {
        return std::to_string(static_cast<unsigned>(value));
    }

    Schema schema_;
    Repository repository_{schema_};
};

TEST_F(ClassDefinitionsTest, declareOurClasses) {
    std::set<std::string> declared;
    for (const CIMName& name : schema_.subclasses(contract::nameSpace, CIMName(), true)) {
        if (text(name).rfind("CIM_", 0) != 0) {
            declared.insert(text(name));
        }
    }
    EXPECT_EQ(declared,
              (std::set<std::string>{
                  classes::test, classes::result, classes::resultForMSE, classes::resultForTest,
                  classes::testForMSE, classes::testSoftwareAssoc, classes::managedElement,
                  classes::computerSystem, classes::testSoftware, classes::setting}));
}

TEST_F(ClassDefinitionsTest, declareTheMethodsWithTheirParameters) {
    for (const char* name : {methods::runTest, methods::clearResults, methods::discontinueTest}) {
        ASSERT_NE(method(name), nullptr) << name;
        EXPECT_EQ(text(method(name)->name), name) << "letter by letter";
        EXPECT_NE(method(name)->findParameter(parameters::systemElement), nullptr) << name;
    }
    EXPECT_NE(method(methods::runTest)->findParameter(parameters::setting), nullptr);
    EXPECT_NE(method(methods::runTest)->findParameter(parameters::result), nullptr);
    EXPECT_NE(method(methods::clearResults)->findParameter(parameters::resultsNotCleared), nullptr);
}

TEST_F(ClassDefinitionsTest, declareTheProperties) {
    expectProperty(classes::managedElement, properties::deviceId);
    for (const char* name :
         {properties::executionId, properties::diagnosticName, properties::testState,
          properties::testResults, properties::testStartTime, properties::testCompletionTime}) {
        expectProperty(classes::result, name);
    }
}

TEST_F(ClassDefinitionsTest, explainEveryReturnCode) {
    using Code = contract::ReturnCode;
    ASSERT_NE(method(methods::runTest), nullptr);
    EXPECT_EQ(valueMap(method(methods::runTest)->qualifiers),
              (std::set<std::string>{
                  number(Code::success), number(Code::noResultRecord), number(Code::testInProgress),
                  number(Code::exclusiveTestRunning), number(Code::notAReference),
                  number(Code::noSuchElement), number(Code::absentParameter)}));
}

TEST_F(ClassDefinitionsTest, explainEveryTestState) {
    using State = contract::TestState;
    const wire::PropertyDefinition* const property =
        definition(classes::result)->findProperty(properties::testState);
    ASSERT_NE(property, nullptr);
    const auto explained = valueMap(property->qualifiers);
    for (const State state :
         {State::unknown, State::passed, State::failed, State::inProgress, State::stopped}) {
        EXPECT_EQ(explained.count(number(state)), 1U) << number(state);
    }
}

}  // namespace
}  // namespace cimhost
