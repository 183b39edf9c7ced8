// SPDX-License-Identifier: MIT
#include "cli/Diagnostics.h"

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>

#include "cli/Errors.h"
#include "cli/TerminalText.h"
#include "cli/ValueTexts.h"
#include "contract/Names.h"
#include "contract/ReturnCode.h"
#include "contract/TestState.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using namespace contract;

/// The code that a method answered. A server that has no provider for the method answers none.
Uint32 returnCode(const wire::MethodResult& answer, const char* method) {
    Uint32 code = 0;
    if (!answer.returnValue.has_value() || answer.returnValue->getType() != CIMTYPE_UINT32 ||
        answer.returnValue->isArray() || answer.returnValue->isNull()) {
        throw Failure(std::string(method) +
                      " came back without a return code: is the provider registered for the "
                      "methods of the test's class?");
    }
    answer.returnValue->get(code);
    return code;
}

void requireSuccess(const wire::MethodResult& answer, const char* method) {
    const Uint32 code = returnCode(answer, method);
    if (static_cast<ReturnCode>(code) != ReturnCode::success) {
        throw Failure(std::string(method) + " answered " + std::to_string(code) + ": " +
                      returnCodeText(code));
    }
}

CIMObjectPath resultReference(const wire::MethodResult& answer) {
    for (Uint32 i = 0; i < answer.outParameters.size(); ++i) {
        const CIMParamValue& parameter = answer.outParameters[i];
        const CIMValue value = parameter.getValue();
        if (String::equalNoCase(parameter.getParameterName(), parameters::result) &&
            value.getType() == CIMTYPE_REFERENCE && !value.isArray() && !value.isNull()) {
            CIMObjectPath path;
            value.get(path);
            return path;
        }
    }
    throw Failure("RunTest came back without a reference to its result");
}

}  // namespace

std::string testStateText(std::uint16_t state) {
    switch (static_cast<TestState>(state)) {
        case TestState::unknown:
            return "unknown";
        case TestState::passed:
            return "passed";
        case TestState::failed:
            return "failed";
        case TestState::inProgress:
            return "in progress";
        case TestState::stopped:
            return "stopped";
    }
    return "state " + std::to_string(state);
}

std::string returnCodeText(std::uint32_t code) {
    switch (static_cast<ReturnCode>(code)) {
        case ReturnCode::success:
            return "success";
        case ReturnCode::noResultRecord:
            return "there is no result record for this test and element";
        case ReturnCode::testInProgress:
            return "the test is already in progress on this element";
        case ReturnCode::exclusiveTestRunning:
            return "a test that runs alone is already in progress on this element";
        case ReturnCode::notAReference:
            return "a parameter is not a reference";
        case ReturnCode::noSuchElement:
            return "the server cannot find the element, or it has no properties";
        case ReturnCode::absentParameter:
            return "a parameter is missing";
    }
    return "a code that this program does not know";
}

Array<CIMInstance> Diagnostics::instances(const char* className) {
    return client_.enumerateInstances(nameSpace, CIMName(className));
}

Array<CIMInstance> Diagnostics::tests() {
    return instances(classes::test);
}

Array<CIMInstance> Diagnostics::elements() {
    return instances(classes::managedElement);
}

Array<CIMInstance> Diagnostics::results() {
    return instances(classes::result);
}

Array<CIMInstance> Diagnostics::managedObjects() {
    Array<CIMInstance> all = instances(classes::computerSystem);
    all.appendArray(elements());
    all.appendArray(instances(classes::testSoftware));
    return all;
}

CIMInstance Diagnostics::run(const CIMInstance& test, const CIMInstance& element) {
    const wire::MethodResult answer = invoke(test, methods::runTest, element.getPath());
    requireSuccess(answer, methods::runTest);
    const CIMObjectPath reference = resultReference(answer);
    CIMInstance result = client_.getInstance(nameSpace, reference);
    const std::string filedUnder = textOf(result, properties::executionId);
    if (filedUnder != textOf(element, properties::deviceId)) {
        throw Failure("RunTest on " + withoutControls(textOf(element, properties::deviceId)) +
                      " led to a result that is filed under \"" + withoutControls(filedUnder) +
                      "\"");
    }
    return result;
}

void Diagnostics::clear(const CIMInstance& test, const CIMObjectPath& element) {
    requireSuccess(invoke(test, methods::clearResults, element), methods::clearResults);
}

wire::MethodResult Diagnostics::invoke(const CIMInstance& test, const char* method,
                                       const CIMObjectPath& element) {
    CIMObjectPath reference = element;
    reference.setNameSpace(nameSpace);
    Array<CIMParamValue> parameters;
    parameters.append(CIMParamValue(parameters::systemElement, CIMValue(reference), true));
    return client_.invokeMethod(nameSpace, test.getPath(), CIMName(method), parameters);
}

}  // namespace usbhcdiag
