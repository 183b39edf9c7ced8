// SPDX-License-Identifier: MIT
// The table of the results of all diagnostic runs.
#include "diag/ZORVA_DiagnosticResultBuilder.h"

#include <algorithm>
#include <iterator>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Provider/KeyBinding.h>
#include <Pegasus/Provider/ProviderExceptions.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "diag/ReturnCode.h"
#include "diag/TestState.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_InParameterHandler.h"

namespace Pegasus {
namespace {

// Every line of a report needs these, so they are made once.
const CIMName DIAGNOSTIC_NAME("DiagnosticName");
const CIMName EXECUTION_ID("ExecutionID");
const CIMName TEST_RESULTS("TestResults");
const CIMValue NO_LINES{Array<String>()};

struct DefaultProperty {
    CIMName name;
    CIMValue value;
};

// Every result begins with these. Made once, so that all results share the names.
const CIMValue NO_TIME{CIMDateTime()};
const CIMValue NO(Boolean(false));
const CIMValue NO_TEXT{String()};
const DefaultProperty DEFAULT_PROPERTIES[] = {
    {"TimeStamp", NO_TIME},
    {"TestStartTime", NO_TIME},
    {"TestCompletionTime", NO_TIME},
    {"IsPackage", NO},
    {"TestState", CIMValue(Uint16(0))},
    {"OtherStateDescription", NO_TEXT},
    {"EstimatedTimeOfPerforming", CIMValue(Uint32(0))},
    {TEST_RESULTS, NO_LINES},
    {"PercentComplete", CIMValue(Uint8(0))},
    {"TestWarningLevel", CIMValue(Uint16(0))},
    {"ReportSoftErrors", NO},
    {"ReportStatusMessages", NO},
    {"HaltOnError", NO},
    {"QuickMode", NO},
    {"PercentOfTestCoverage", CIMValue(Uint8(0))},
    {"LoopControlParameter", NO_LINES},
    {"LoopControl", CIMValue(Array<Uint16>())},
    {"OtherLoopControlDescription", NO_TEXT},
    {"ErrorCode", NO_LINES},
    {"ErrorCount", CIMValue(Array<Uint32>())},
    {"LoopsFailed", CIMValue(Uint32(0))},
    {"LoopsPassed", CIMValue(Uint32(0))},
};

// "TestResults" is missing because it only grows, "ErrorCode" because nothing ever sets it.
constexpr const char* WRITABLE_PROPERTIES[] = {"TimeStamp",
                                               "TestStartTime",
                                               "TestCompletionTime",
                                               "TestState",
                                               "OtherStateDescription",
                                               "PercentComplete",
                                               "TestWarningLevel",
                                               "ReportSoftErrors",
                                               "ReportStatusMessages",
                                               "PercentOfTestCoverage",
                                               "QuickMode",
                                               "HaltOnError",
                                               "LoopControlParameter",
                                               "LoopControl",
                                               "OtherLoopControlDescription",
                                               "ErrorCount",
                                               "LoopsFailed",
                                               "LoopsPassed"};

bool isWritable(const String& propertyName) {
    return std::any_of(std::begin(WRITABLE_PROPERTIES), std::end(WRITABLE_PROPERTIES),
                       [&](const char* name) { return propertyName == name; });
}

}  // namespace

InstanceTable ZORVA_DiagnosticResultBuilder::res_ref_inst;
ZORVA_DiagnosticResultBuilder::Found ZORVA_DiagnosticResultBuilder::last_found = {
    RESULT_NOT_FOUND, String(), String(), CIMProperty()};

ZORVA_DiagnosticResultBuilder::~ZORVA_DiagnosticResultBuilder() = default;

// The keys name a placeholder test and another system class than the properties do, and one key is
// spelt without "Name". Clients may rely on either, so both stay; no concrete result inherits them.
void ZORVA_DiagnosticResultBuilder::buildTestResult(CIMOMHandle /*handle*/, String diagnosticName,
                                                    String executionId) {
    CIMInstance instance("CIM_DiagnosticResult");
    addProperty(instance, "DiagnosticName", CIMValue(diagnosticName));
    addProperty(instance, "DiagnosticCreationClassName", CIMValue(String("CIM_DiagnosticTest")));
    addProperty(instance, "ExecutionID", CIMValue(executionId));
    addProperty(instance, "DiagSystemName", CIMValue(String("Zalt")));
    addProperty(instance, "DiagSystemCreationClassName", CIMValue(String("CIM_System")));
    buildDefaultResultProperties(instance);

    Array<KeyBinding> keys;
    keys.append(stringKey("DiagnosticName", "TestA"));
    keys.append(stringKey("DiagnosticCreationClass", "CIM_DiagnosticTest"));
    keys.append(stringKey("ExecutionID", executionId));
    keys.append(stringKey("DiagSystemName", "Zalt"));
    keys.append(stringKey("DiagSystemCreationClassName", "PegasusSystem"));
    appendTo(res_ref_inst, tablePath("CIM_DiagnosticResult", keys), instance);
}

void ZORVA_DiagnosticResultBuilder::buildDefaultResultProperties(CIMInstance& instance) {
    for (const DefaultProperty& property : DEFAULT_PROPERTIES) {
        addProperty(instance, property.name, property.value);
    }
}

bool ZORVA_DiagnosticResultBuilder::checkForTestResult(CIMOMHandle handle, String diagnosticName,
                                                       String executionId, bool replace) {
    const Uint32 index = firstResultOf(diagnosticName, executionId);
    const bool exists = index != RESULT_NOT_FOUND;
    if (!exists || replace) {
        buildTestResult(handle, diagnosticName, executionId);
    }
    if (exists && replace) {
        removeResult(index);
    }
    return firstResultOf(diagnosticName, executionId) != RESULT_NOT_FOUND;
}

Array<CIMInstance> ZORVA_DiagnosticResultBuilder::getResultInstance(CIMObjectPath reference) {
    ZORVA_DiagUtils::DEBUG_PRINT("before bad reference \n");
    const Uint32 index = findPath(res_ref_inst, reference);
    if (index == PEG_NOT_FOUND) {
        ZORVA_DiagUtils::DEBUG_PRINT("bad reference \n");
        throw BadReference("ZORVA_DiagnosticResultbuilder - Invalid Reference");
    }
    ZORVA_DiagUtils::DEBUG_PRINT("return instance \n");
    return copyOfInstance(res_ref_inst, index);
}

Array<CIMInstance> ZORVA_DiagnosticResultBuilder::enumResultInstances() {
    return copiesOfInstances(res_ref_inst);
}

Array<CIMObjectPath> ZORVA_DiagnosticResultBuilder::enumResultReferences() {
    return copiesOfPaths(res_ref_inst);
}

CIMObjectPath ZORVA_DiagnosticResultBuilder::getTestResultReference(String diagnosticName,
                                                                    String executionId) {
    return res_ref_inst[firstResultOf(diagnosticName, executionId)].first;
}

CIMValue ZORVA_DiagnosticResultBuilder::getResultProperty(String diagnosticName, String executionId,
                                                          String propertyName) {
    return getPropertyValue(firstResultOf(diagnosticName, executionId), propertyName);
}

void ZORVA_DiagnosticResultBuilder::setResultProperty(String diagnosticName, String executionId,
                                                      String propertyName, CIMValue value) {
    if (!isWritable(propertyName)) {
        throw NotImplemented("ZORVA_DiagnosticResult property not writable");
    }
    CIMInstance& instance = res_ref_inst[firstResultOf(diagnosticName, executionId)].second;
    propertyOf(instance, CIMName(propertyName)).setValue(value);
}

void ZORVA_DiagnosticResultBuilder::setResultPropertyTestResults(const String& diagnosticName,
                                                                 const String& executionId,
                                                                 const String& line) {
    CIMInstance& instance = res_ref_inst[firstResultOf(diagnosticName, executionId)].second;
    if (last_found.lines.isUninitialized()) {
        last_found.lines = propertyOf(instance, TEST_RESULTS);
    }
    CIMProperty& property = last_found.lines;
    Array<String> lines;
    property.getValue().get(lines);
    // Arrays are copied on the first write while they are shared: with the property's hold on it
    // gone, the array takes the line in place instead of being copied for every one. What can fail,
    // making room, comes before that.
    if (lines.size() == lines.getCapacity()) {
        lines.reserveCapacity(lines.size() + 1);
    }
    property.setValue(NO_LINES);
    lines.append(line);
    property.setValue(CIMValue(lines));
}

Uint32 ZORVA_DiagnosticResultBuilder::getRefInstIndex(String diagnosticName, String executionId) {
    return firstResultOf(diagnosticName, executionId);
}

// A run asks for its one result hundreds of times, so the answer to the last question is kept, with
// the property that takes the lines. It stays right until a result is removed: the table grows at
// its end, and what identifies a result never changes.
Uint32 ZORVA_DiagnosticResultBuilder::firstResultOf(const String& diagnosticName,
                                                    const String& executionId) {
    if (last_found.index == RESULT_NOT_FOUND || last_found.diagnosticName != diagnosticName ||
        last_found.executionId != executionId) {
        last_found = {nextResultOf(diagnosticName, executionId, 0), diagnosticName, executionId,
                      CIMProperty()};
    }
    return last_found.index;
}

Uint32 ZORVA_DiagnosticResultBuilder::nextResultOf(const String& diagnosticName,
                                                   const String& executionId, Uint32 first) {
    const CIMValue name(diagnosticName);
    const CIMValue id(executionId);
    const InstanceTable& results = res_ref_inst;
    for (Uint32 i = first; i < results.size(); ++i) {
        const CIMInstance& result = results[i].second;
        if (hasPropertyValue(result, DIAGNOSTIC_NAME, name) &&
            hasPropertyValue(result, EXECUTION_ID, id)) {
            return i;
        }
    }
    return RESULT_NOT_FOUND;
}

void ZORVA_DiagnosticResultBuilder::removeResult(Uint32 index) {
    res_ref_inst.remove(index);
    last_found = {RESULT_NOT_FOUND, String(), String(), CIMProperty()};
}

CIMValue ZORVA_DiagnosticResultBuilder::getPropertyValue(Uint32 index, String propertyName) {
    return propertyValueOf(res_ref_inst[index].second, toPropertyName(propertyName));
}

CIMValue ZORVA_DiagnosticResultBuilder::clearResultElement(String diagnosticName,
                                                           Array<CIMParamValue> inParameters,
                                                           Array<CIMParamValue>& outParameters) {
    ZORVA_InParameterHandler parameters(inParameters);
    const CIMValue value = parameters.getInParameterValue("SystemElement");
    if (value == CIMValue(ReturnCode::ABSENT_PARAMETER)) {
        return CIMValue(ReturnCode::ABSENT_PARAMETER);
    }
    if (!parameters.isParamTypeReference(value)) {
        return CIMValue(ReturnCode::NOT_A_REFERENCE);
    }
    CIMObjectPath element;
    value.get(element);
    String deviceId;
    readLastKeyValue(element, "DeviceID", deviceId);

    const CIMValue inProgress(TestState::IN_PROGRESS);
    Uint32 i = nextResultOf(diagnosticName, deviceId, 0);
    while (i != RESULT_NOT_FOUND) {
        if (getPropertyValue(i, "TestState") == inProgress) {
            outParameters.append(CIMParamValue("ResultsNotCleared",
                                               CIMValue(String(diagnosticName + deviceId)), true));
            ++i;
        } else {
            removeResult(i);
        }
        i = nextResultOf(diagnosticName, deviceId, i);
    }
    return CIMValue(ReturnCode::SUCCESS);
}

}  // namespace Pegasus
