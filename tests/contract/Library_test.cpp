// SPDX-License-Identifier: MIT
// The library answers to the names, and with the numbers, that everybody else uses.
#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "contract/Names.h"
#include "contract/ReturnCode.h"
#include "contract/TestState.h"
#include "diag/ProviderNamespace.h"
#include "diag/ReturnCode.h"
#include "diag/TestState.h"
#include "provider/PegasusCreateProvider.h"
#include "provider/ZORVA_UsbHc_DiagProvider.h"
#include "tests/support/Client.h"
#include "tests/support/LibraryTest.h"
#include "usbhc/ClassNames.h"

namespace Pegasus {
namespace {

namespace classes = contract::classes;
namespace methods = contract::methods;
namespace parameters = contract::parameters;
namespace properties = contract::properties;
using Code = contract::ReturnCode;
using State = contract::TestState;

template <class Enumeration>
Uint32 number(Enumeration value) {
    return static_cast<Uint32>(value);
}

TEST(LibraryConstants, nameTheNamespaceAndTheClasses) {
    using Provider = ZORVA_UsbHc_DiagProvider;
    EXPECT_STREQ(providerNamespace, contract::nameSpace);
    EXPECT_EQ(text(Provider::DIAG_TEST), classes::test);
    EXPECT_EQ(text(Provider::DIAG_RESULT), classes::result);
    EXPECT_EQ(text(Provider::DIAG_RESULT_FOR_MSE), classes::resultForMSE);
    EXPECT_EQ(text(Provider::DIAG_RESULT_FOR_TEST), classes::resultForTest);
    EXPECT_EQ(text(Provider::DIAG_TEST_FOR_MSE), classes::testForMSE);
    EXPECT_EQ(text(Provider::DIAG_TEST_SOFTWARE_ASSOC), classes::testSoftwareAssoc);
    EXPECT_EQ(text(Provider::DIAG_TEST_SOFTWARE), classes::testSoftware);
    EXPECT_STREQ(class_names::managedElement, classes::managedElement);
}

TEST(LibraryConstants, numberTheReturnCodes) {
    EXPECT_EQ(return_code::success, number(Code::success));
    EXPECT_EQ(return_code::noResultRecord, number(Code::noResultRecord));
    EXPECT_EQ(return_code::testInProgress, number(Code::testInProgress));
    EXPECT_EQ(return_code::exclusiveTestRunning, number(Code::exclusiveTestRunning));
    EXPECT_EQ(return_code::notAReference, number(Code::notAReference));
    EXPECT_EQ(return_code::noSuchElement, number(Code::noSuchElement));
    EXPECT_EQ(return_code::absentParameter, number(Code::absentParameter));
}

TEST(LibraryConstants, numberTheTestStates) {
    EXPECT_EQ(test_state::passed, number(State::passed));
    EXPECT_EQ(test_state::failed, number(State::failed));
    EXPECT_EQ(test_state::inProgress, number(State::inProgress));
    EXPECT_EQ(test_state::stopped, number(State::stopped));
}

/// The provider, made by its name, with a server that has one host controller.
class LibraryOnDuty : public LibraryTest {
protected:
    LibraryOnDuty() {
        testing::internal::CaptureStdout();
        server_->addElement("usb1");
        client_.provider().initialize(handle_);
    }
    ~LibraryOnDuty() override { testing::internal::GetCapturedStdout(); }

    std::string stateOfResult() {
        return propertyText(client_.instances(classes::result).at(0), properties::testState);
    }

    void setStateOfResult(State state) {
        table_.setResultProperty(usbTestName, "usb1", properties::testState,
                                 CIMValue(static_cast<Uint16>(state)));
    }

    Array<CIMParamValue> element() const {
        return parameter(parameters::systemElement, CIMValue(elementPath("usb1")));
    }

    Client client_{PegasusCreateProvider(contract::provider)};
};

TEST_F(LibraryOnDuty, asksTheServerForTheClassesOfItsRepository) {
    for (const char* served : {classes::test, classes::resultForMSE, classes::testSoftwareAssoc}) {
        client_.names(served);
    }
    const std::string request = std::string("enumerateInstanceNames ") + contract::nameSpace + " ";
    std::set<std::string> asked;
    for (const std::string& call : callTexts()) {
        if (call.rfind(request, 0) == 0) {
            asked.insert(call.substr(request.size()));
        }
    }
    EXPECT_EQ(asked, (std::set<std::string>{classes::computerSystem, classes::managedElement,
                                            classes::testSoftware}));
}

TEST_F(LibraryOnDuty, runsTheTestWithASetting) {
    server_->add(classes::setting, "InstanceID", "fast");
    Array<CIMParamValue> given = element();
    given.append(CIMParamValue(
        parameters::setting,
        CIMValue(CIMObjectPath(String(
            (std::string(contract::nameSpace) + ":" + classes::setting + ".InstanceID=\"fast\"")
                .c_str())))));
    EXPECT_EQ(client_.invoke(methods::runTest, given), "uint32 0");
    ASSERT_EQ(client_.outParameters().size(), 1U);
    EXPECT_EQ(client_.outParameters()[0].rfind(std::string(parameters::result) + "=reference ", 0),
              0U);
    EXPECT_EQ(stateOfResult(), "uint16 " + std::to_string(number(State::passed)));
    const Texts calls = callTexts();
    EXPECT_EQ(std::count(calls.begin(), calls.end(),
                         std::string("getInstance ") + contract::nameSpace + " " +
                             classes::setting + ".InstanceID=\"fast\""),
              1);
}

TEST_F(LibraryOnDuty, givesItsResultTheProperties) {
    client_.invoke(methods::runTest, element());
    const CIMInstance result = client_.instances(classes::result).at(0);
    for (const char* name :
         {properties::executionId, properties::diagnosticName, properties::testState,
          properties::testResults, properties::testStartTime, properties::testCompletionTime}) {
        EXPECT_NE(result.findProperty(CIMName(name)), PEG_NOT_FOUND) << name;
    }
    EXPECT_EQ(propertyText(result, properties::executionId), "string usb1");
}

TEST_F(LibraryOnDuty, saysWhichResultsAreNotCleared) {
    client_.invoke(methods::runTest, element());
    setStateOfResult(State::inProgress);
    EXPECT_EQ(client_.invoke(methods::clearResults, element()), "uint32 0");
    EXPECT_EQ(client_.outParameters(), Texts{std::string(parameters::resultsNotCleared) +
                                             "=string " + usbTestName + "usb1"});
}

TEST_F(LibraryOnDuty, stopsTheTest) {
    client_.invoke(methods::runTest, element());
    client_.invoke(methods::discontinueTest, element());
    EXPECT_EQ(stateOfResult(), "uint16 " + std::to_string(number(State::stopped)));
}

}  // namespace
}  // namespace Pegasus
