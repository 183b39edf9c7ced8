// SPDX-License-Identifier: MIT
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

// Used for every line of a report, so they are made once.
const CIMName diagnosticNameProperty("DiagnosticName");
const CIMName executionIdProperty("ExecutionID");
const CIMName testResultsProperty("TestResults");
const CIMValue noLines{Array<String>()};

struct DefaultProperty {
    CIMName name;
    CIMValue value;
};

// The properties of every new result. Made once, so that all results share the names.
const CIMValue noTime{CIMDateTime()};
const CIMValue no(Boolean(false));
const CIMValue noText{String()};
const DefaultProperty defaultProperties[] = {
    {"TimeStamp", noTime},
    {"TestStartTime", noTime},
    {"TestCompletionTime", noTime},
    {"IsPackage", no},
    {"TestState", CIMValue(Uint16(0))},
    {"OtherStateDescription", noText},
    {"EstimatedTimeOfPerforming", CIMValue(Uint32(0))},
    {testResultsProperty, noLines},
    {"PercentComplete", CIMValue(Uint8(0))},
    {"TestWarningLevel", CIMValue(Uint16(0))},
    {"ReportSoftErrors", no},
    {"ReportStatusMessages", no},
    {"HaltOnError", no},
    {"QuickMode", no},
    {"PercentOfTestCoverage", CIMValue(Uint8(0))},
    {"LoopControlParameter", noLines},
    {"LoopControl", CIMValue(Array<Uint16>())},
    {"OtherLoopControlDescription", noText},
    {"ErrorCode", noLines},
    {"ErrorCount", CIMValue(Array<Uint32>())},
    {"LoopsFailed", CIMValue(Uint32(0))},
    {"LoopsPassed", CIMValue(Uint32(0))},
};

// Without "TestResults", to which lines are only appended, and "ErrorCode", which nothing sets.
constexpr const char* writableProperties[] = {"TimeStamp",
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
    return std::any_of(std::begin(writableProperties), std::end(writableProperties),
                       [&](const char* name) { return propertyName == name; });
}

}  // namespace

InstanceTable ZORVA_DiagnosticResultBuilder::res_ref_inst;
ZORVA_DiagnosticResultBuilder::Found ZORVA_DiagnosticResultBuilder::lastFound_ = {
    resultNotFound, String(), String(), CIMProperty()};

ZORVA_DiagnosticResultBuilder::~ZORVA_DiagnosticResultBuilder() = default;

// The keys name a placeholder test and another system class than the properties, and one key is
// spelt without "Name". Both are kept because clients may rely on them; concrete results override
// this.
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
    for (const DefaultProperty& property : defaultProperties) {
        addProperty(instance, property.name, property.value);
    }
}

bool ZORVA_DiagnosticResultBuilder::checkForTestResult(CIMOMHandle handle, String diagnosticName,
                                                       String executionId, bool replace) {
    const Uint32 index = firstResultOf(diagnosticName, executionId);
    const bool exists = index != resultNotFound;
    if (!exists || replace) {
        buildTestResult(handle, diagnosticName, executionId);
    }
    if (exists && replace) {
        removeResult(index);
    }
    return firstResultOf(diagnosticName, executionId) != resultNotFound;
}

Array<CIMInstance> ZORVA_DiagnosticResultBuilder::getResultInstance(CIMObjectPath reference) {
    ZORVA_DiagUtils::DEBUG_PRINT("before bad reference \n");
    const Uint32 index = findPath(res_ref_inst, reference);
    if (index == PEG_NOT_FOUND) {
        ZORVA_DiagUtils::DEBUG_PRINT("bad reference \n");
        throw BadReference("ZORVA_DiagnosticResultbuilder - Invalid Reference");
    }
    ZORVA_DiagUtils::DEBUG_PRINT("return instance \n");
    return cloneOfInstance(res_ref_inst, index);
}

Array<CIMInstance> ZORVA_DiagnosticResultBuilder::enumResultInstances() {
    return clonesOfInstances(res_ref_inst);
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
    if (lastFound_.lines.isUninitialized()) {
        lastFound_.lines = propertyOf(instance, testResultsProperty);
    }
    CIMProperty& property = lastFound_.lines;
    Array<String> lines;
    property.getValue().get(lines);
    // A shared array is copied when it is written. Without the property's reference the line is
    // appended in place, instead of copying the array for every line. What can fail, making room,
    // is done before that.
    if (lines.size() == lines.getCapacity()) {
        lines.reserveCapacity(lines.size() + 1);
    }
    property.setValue(noLines);
    lines.append(line);
    property.setValue(CIMValue(lines));
}

Uint32 ZORVA_DiagnosticResultBuilder::getRefInstIndex(String diagnosticName, String executionId) {
    return firstResultOf(diagnosticName, executionId);
}

// A run searches for its result hundreds of times, so the last answer is cached, with the property
// that takes the lines. It is valid until a result is removed: the table grows at its end only, and
// what identifies a result never changes.
Uint32 ZORVA_DiagnosticResultBuilder::firstResultOf(const String& diagnosticName,
                                                    const String& executionId) {
    if (lastFound_.index == resultNotFound || lastFound_.diagnosticName != diagnosticName ||
        lastFound_.executionId != executionId) {
        lastFound_ = {nextResultOf(diagnosticName, executionId, 0), diagnosticName, executionId,
                      CIMProperty()};
    }
    return lastFound_.index;
}

Uint32 ZORVA_DiagnosticResultBuilder::nextResultOf(const String& diagnosticName,
                                                   const String& executionId, Uint32 first) {
    const CIMValue name(diagnosticName);
    const CIMValue id(executionId);
    const InstanceTable& results = res_ref_inst;
    for (Uint32 i = first; i < results.size(); ++i) {
        const CIMInstance& result = results[i].second;
        if (hasPropertyValue(result, diagnosticNameProperty, name) &&
            hasPropertyValue(result, executionIdProperty, id)) {
            return i;
        }
    }
    return resultNotFound;
}

void ZORVA_DiagnosticResultBuilder::removeResult(Uint32 index) {
    res_ref_inst.remove(index);
    lastFound_ = {resultNotFound, String(), String(), CIMProperty()};
}

CIMValue ZORVA_DiagnosticResultBuilder::getPropertyValue(Uint32 index, String propertyName) {
    return propertyValueOf(res_ref_inst[index].second, toPropertyName(propertyName));
}

CIMValue ZORVA_DiagnosticResultBuilder::clearResultElement(String diagnosticName,
                                                           Array<CIMParamValue> inParameters,
                                                           Array<CIMParamValue>& outParameters) {
    ZORVA_InParameterHandler parameters(inParameters);
    const CIMValue value = parameters.getInParameterValue("SystemElement");
    if (value == CIMValue(return_code::absentParameter)) {
        return CIMValue(return_code::absentParameter);
    }
    if (!parameters.isParamTypeReference(value)) {
        return CIMValue(return_code::notAReference);
    }
    CIMObjectPath element;
    value.get(element);
    String deviceId;
    readLastKeyValue(element, "DeviceID", deviceId);

    const CIMValue inProgress(test_state::inProgress);
    Uint32 i = nextResultOf(diagnosticName, deviceId, 0);
    while (i != resultNotFound) {
        if (getPropertyValue(i, "TestState") == inProgress) {
            outParameters.append(CIMParamValue("ResultsNotCleared",
                                               CIMValue(String(diagnosticName + deviceId)), true));
            ++i;
        } else {
            removeResult(i);
        }
        i = nextResultOf(diagnosticName, deviceId, i);
    }
    return CIMValue(return_code::success);
}

}  // namespace Pegasus
