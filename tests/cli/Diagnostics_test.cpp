// SPDX-License-Identifier: MIT
// What the client makes of answers that the diagnostics provider does not usually give. The usual
// ones are tested against cimhost.
#include "cli/Diagnostics.h"

#include <functional>

#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

#include "cli/Errors.h"
#include "cli/ValueTexts.h"
#include "tests/support/CimXmlAnswers.h"
#include "wire/http/HttpServer.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using wire::HttpRequest;
using wire::HttpResponse;

std::string returned(unsigned code) {
    return "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>" + std::to_string(code) +
           "</VALUE></RETURNVALUE>";
}

std::string resultReference() {
    return "<PARAMVALUE NAME=\"Result\" PARAMTYPE=\"reference\"><VALUE.REFERENCE>"
           "<INSTANCENAME CLASSNAME=\"ZORVA_UsbHc_DiagResult\"><KEYBINDING NAME=\"ExecutionID\">"
           "<KEYVALUE VALUETYPE=\"string\">usb1</KEYVALUE></KEYBINDING></INSTANCENAME>"
           "</VALUE.REFERENCE></PARAMVALUE>";
}

std::string resultFiledUnder(const std::string& deviceId) {
    return results(
        "<INSTANCE CLASSNAME=\"ZORVA_UsbHc_DiagResult\"><PROPERTY NAME=\"ExecutionID\" "
        "TYPE=\"string\"><VALUE>" +
        deviceId + "</VALUE></PROPERTY></INSTANCE>");
}

class DiagnosticsTest : public testing::Test {
protected:
    static CIMInstance instanceOf(const char* className, const char* key) {
        CIMInstance instance{CIMName(className)};
        instance.addProperty(CIMProperty(CIMName(key), CIMValue(String("usb1"))));
        Array<CIMKeyBinding> keys;
        keys.append(CIMKeyBinding(CIMName(key), "usb1", CIMKeyBinding::STRING));
        instance.setPath(CIMObjectPath(String(), CIMNamespaceName(), CIMName(className), keys));
        return instance;
    }

    HttpResponse answer(const HttpRequest& request) {
        requests_.push_back(request.body);
        HttpResponse response;
        response.fields = {{"Content-Type", "application/xml; charset=utf-8"},
                           {"CIMOperation", "MethodResponse"}};
        response.body = answers_.at(requests_.size() - 1);
        return response;
    }

    std::string runFailure() {
        try {
            diagnostics_.run(test_, element_);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "(none)";
    }

    std::vector<std::string> answers_;
    std::vector<std::string> requests_;
    const CIMInstance test_ = instanceOf("ZORVA_UsbHc_DiagTest", "Name");
    const CIMInstance element_ = instanceOf("ZORVA_UsbHc", "DeviceID");
    wire::HttpServer server_{{"127.0.0.1", 0},
                             [this](HttpRequest&& request) { return answer(request); }};
    wire::CimClient client_{wire::ServerUrl::parse(server_.url())};
    Diagnostics diagnostics_{client_};
};

TEST_F(DiagnosticsTest, RunFetchesTheResultThatTheMethodNames) {
    answers_ = {methodAnswer("RunTest", returned(0) + resultReference()), resultFiledUnder("usb1")};
    EXPECT_EQ(textOf(diagnostics_.run(test_, element_), "ExecutionID"), "usb1");
    EXPECT_NE(requests_[0].find("<LOCALINSTANCEPATH>"), std::string::npos)
        << "the element's reference carries its namespace";
    EXPECT_NE(requests_[1].find("ZORVA_UsbHc_DiagResult"), std::string::npos);
}

TEST_F(DiagnosticsTest, RunRefusesTheResultOfAnotherElement) {
    answers_ = {methodAnswer("RunTest", returned(0) + resultReference()), resultFiledUnder("usb2")};
    EXPECT_EQ(runFailure(), "RunTest on usb1 led to a result that is filed under \"usb2\"");
}

TEST_F(DiagnosticsTest, RunExplainsReturnCodes) {
    for (const auto& [code, text] : std::vector<std::pair<unsigned, std::string>>{
             {1024, "there is no result record for this test and element"},
             {1028, "the test is already in progress on this element"},
             {1034, "a test that runs alone is already in progress on this element"},
             {1040, "a parameter is not a reference"},
             {1044, "the server cannot find the element, or it has no properties"},
             {1050, "a parameter is missing"},
             {7, "a code that this program does not know"}}) {
        requests_.clear();
        answers_ = {methodAnswer("RunTest", returned(code))};
        EXPECT_EQ(runFailure(), "RunTest answered " + std::to_string(code) + ": " + text);
    }
}

TEST_F(DiagnosticsTest, RunNeedsAReturnCodeAndAReference) {
    answers_ = {methodAnswer("RunTest", "")};
    EXPECT_EQ(runFailure(),
              "RunTest came back without a return code: is the provider registered for the methods "
              "of the test's class?");
    requests_.clear();
    answers_ = {methodAnswer("RunTest", returned(0))};
    EXPECT_EQ(runFailure(), "RunTest came back without a reference to its result");
}

TEST_F(DiagnosticsTest, ClearExplainsReturnCodes) {
    answers_ = {methodAnswer("ClearResults", returned(0)),
                methodAnswer("ClearResults", returned(1040))};
    diagnostics_.clear(test_, element_.getPath());
    try {
        diagnostics_.clear(test_, element_.getPath());
        ADD_FAILURE() << "taken for a success";
    } catch (const Failure& error) {
        EXPECT_STREQ(error.what(), "ClearResults answered 1040: a parameter is not a reference");
    }
}

TEST(TestState, IsNamed) {
    EXPECT_EQ(testStateText(0), "unknown");
    EXPECT_EQ(testStateText(2), "passed");
    EXPECT_EQ(testStateText(3), "failed");
    EXPECT_EQ(testStateText(4), "in progress");
    EXPECT_EQ(testStateText(7), "stopped");
    EXPECT_EQ(testStateText(11), "state 11");
}

}  // namespace
}  // namespace usbhcdiag
