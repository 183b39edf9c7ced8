// SPDX-License-Identifier: MIT
// OpenPegasus is told of exactly the classes that the provider library serves.
#include <map>
#include <string>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

#include "contract/Names.h"
#include "servers/cimhost/loading/ServedClasses.h"
#include "servers/cimhost/mof/MofReader.h"
#include "tests/support/ObjectModelText.h"

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::String;
using Pegasus::Uint16;
using Pegasus::Uint32;

// What of OpenPegasus' registration classes the instances need.
const char* const registrationClasses = R"mof(
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
class PG_ProviderModule {
    [Key] string Name; string Vendor; string Version; string InterfaceType; string InterfaceVersion;
    string Location; uint16 UserContext;
};
class PG_Provider { [Key] string ProviderModuleName; [Key] string Name; };
class PG_ProviderCapabilities {
    [Key] string ProviderModuleName; [Key] string ProviderName; [Key] string CapabilityID;
    string ClassName; string Namespaces[]; uint16 ProviderType[];
};
)mof";

class RegistrationTest : public testing::Test {
protected:
    RegistrationTest() {
        MofReader(schema_, repository_, [](const std::string&) {
            return std::string(registrationClasses);
        }).readFile("classes", nameSpace_);
        MofReader(schema_, repository_)
            .readFile(ZORVA_MOF_FOLDER "/openpegasus-registration.mof", nameSpace_);
    }

    std::vector<CIMInstance> instances(const char* className) const {
        const auto found = repository_.enumerateInstances(nameSpace_, CIMName(className));
        std::vector<CIMInstance> result;
        for (Uint32 index = 0; index < found.size(); ++index) {
            result.push_back(found[index]);
        }
        return result;
    }

    template <class Value>
    static Value get(const CIMInstance& instance, const char* property) {
        Value value;
        instance.getProperty(instance.findProperty(CIMName(property))).getValue().get(value);
        return value;
    }

    static std::string getText(const CIMInstance& instance, const char* property) {
        return text(get<String>(instance, property));
    }

    const Pegasus::CIMNamespaceName nameSpace_{"root/PG_InterOp"};
    Schema schema_;
    Repository repository_{schema_};
};

TEST_F(RegistrationTest, TheProviderHasTheNameThatTheLibraryKnows) {
    const auto modules = instances("PG_ProviderModule");
    const auto providers = instances("PG_Provider");
    ASSERT_EQ(modules.size(), 1U);
    ASSERT_EQ(providers.size(), 1U);
    EXPECT_EQ(getText(providers[0], "Name"), contract::provider);
    EXPECT_EQ(getText(providers[0], "ProviderModuleName"), contract::providerModule);
    EXPECT_EQ(getText(modules[0], "Name"), contract::providerModule);
    EXPECT_EQ("lib" + getText(modules[0], "Location") + ".so", ZORVA_OWN_LIBRARY_NAME);
}

TEST_F(RegistrationTest, ExactlyTheServedClassesAreRegistered) {
    std::map<std::string, std::vector<Uint16>> expected;
    for (const ServedClass& served : servedClasses) {
        expected[served.name] = {2, 3};
    }
    expected[contract::classes::test] = {2, 5};
    expected[contract::classes::result] = {2};

    std::map<std::string, std::vector<Uint16>> registered;
    for (const CIMInstance& capability : instances("PG_ProviderCapabilities")) {
        const auto types = get<Array<Uint16>>(capability, "ProviderType");
        auto& list = registered[getText(capability, "ClassName")];
        for (Uint32 index = 0; index < types.size(); ++index) {
            list.push_back(types[index]);
        }
        const auto nameSpaces = get<Array<String>>(capability, "Namespaces");
        ASSERT_EQ(nameSpaces.size(), 1U);
        EXPECT_EQ(text(nameSpaces[0]), contract::nameSpace);
        EXPECT_EQ(getText(capability, "ProviderName"), contract::provider);
        EXPECT_EQ(getText(capability, "ProviderModuleName"), contract::providerModule);
    }
    EXPECT_EQ(registered, expected);
}

}  // namespace
}  // namespace cimhost
