// SPDX-License-Identifier: MIT
// The files that are installed for OpenPegasus name what the contract names, and the device lists
// where this build reads them.
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "base/DeviceListPaths.h"
#include "contract/Names.h"

namespace {

namespace classes = contract::classes;
using Texts = std::set<std::string>;

std::string contentOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Every text that the expression matches, once.
Texts matches(const std::string& content, const char* expression) {
    const std::regex wanted(expression);
    Texts found;
    for (std::sregex_iterator match(content.begin(), content.end(), wanted), end; match != end;
         ++match) {
        found.insert(match->str());
    }
    return found;
}

/// What the script assigns to the variable, in words.
Texts assigned(const std::string& script, const std::string& variable) {
    std::smatch assignment;
    const std::regex wanted("(^|\n)" + variable + "=(\"[^\"]*\"|\\S*)");
    EXPECT_TRUE(std::regex_search(script, assignment, wanted)) << variable;
    return matches(assignment.str(2), "[^\\s\"]+");
}

const Texts servedClasses = {classes::test,         classes::result,
                             classes::resultForMSE, classes::resultForTest,
                             classes::testForMSE,   classes::testSoftwareAssoc};
const Texts elementClasses = {classes::managedElement, classes::computerSystem,
                              classes::testSoftware, classes::setting};

TEST(RegistrationCommand, namesWhatTheLibraryServes) {
    const std::string script = contentOf(ZORVA_REGISTRATION_COMMAND);
    EXPECT_EQ(assigned(script, "namespace"), Texts{contract::nameSpace});
    EXPECT_EQ(assigned(script, "module"), Texts{contract::providerModule});
    EXPECT_EQ(assigned(script, "provider"), Texts{contract::provider});
    EXPECT_EQ(assigned(script, "test_class"), Texts{classes::test});
    EXPECT_EQ(assigned(script, "controller_class"), Texts{classes::managedElement});
    EXPECT_EQ(assigned(script, "served_classes"), servedClasses);
    EXPECT_EQ(assigned(script, "element_classes"), elementClasses);
}

TEST(RegistrationCommand, namesTheDeviceLists) {
    const std::string script = contentOf(ZORVA_REGISTRATION_COMMAND);
    EXPECT_EQ(assigned(script, "device_list"), Texts{base::deviceListPath});
    EXPECT_EQ(assigned(script, "kernel_list"), Texts{base::kernelListPath});
}

TEST(UnitDropIn, showsTheKernelsListWhereTheTestReads) {
    EXPECT_EQ(matches(contentOf(ZORVA_DROP_IN), "BindReadOnlyPaths=.*"),
              Texts{std::string("BindReadOnlyPaths=-") + base::kernelListPath + ":" +
                    base::deviceListPath});
}

}  // namespace
