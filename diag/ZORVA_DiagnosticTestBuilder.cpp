// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagnosticTestBuilder.h"

#include <Pegasus/Provider/ProviderExceptions.h>

#include "diag/InstanceProperties.h"

namespace Pegasus {

ZORVA_DiagnosticTestBuilder::~ZORVA_DiagnosticTestBuilder() = default;

Array<Pair<CIMObjectPath, CIMInstance>> ZORVA_DiagnosticTestBuilder::buildTests() {
    return InstanceTable();
}

Array<CIMInstance> ZORVA_DiagnosticTestBuilder::getTestInstance(CIMObjectPath path) {
    return cloneOfInstance(tests_, path);
}

Array<CIMInstance> ZORVA_DiagnosticTestBuilder::enumTestInstances() {
    return clonesOfInstances(tests_);
}

Array<CIMObjectPath> ZORVA_DiagnosticTestBuilder::enumTestReferences() {
    return copiesOfPaths(tests_);
}

Uint32 ZORVA_DiagnosticTestBuilder::getInstanceIndex(String testName) {
    const CIMValue wanted(testName);
    for (Uint32 i = 0; i < tests_.size(); ++i) {
        if (hasPropertyValue(tests_[i].second, "Name", wanted)) {
            return i;
        }
    }
    throw NoSuchProperty(String("ZORVA_Diagnostic getIsInUse NAME ") + testName);
}

CIMValue ZORVA_DiagnosticTestBuilder::getTestProperty(String testName, String propertyName) {
    const CIMInstance& test = tests_[getInstanceIndex(testName)].second;
    return propertyValueOf(test, toPropertyName(propertyName));
}

void ZORVA_DiagnosticTestBuilder::setTestProperty(String testName, String propertyName,
                                                  CIMValue value) {
    if (propertyName != "IsInUse" && propertyName != "Started") {
        throw NotImplemented("ZORVA_DiagnosticTest property not writable");
    }
    CIMInstance& test = tests_[getInstanceIndex(testName)].second;
    propertyOf(test, CIMName(propertyName)).setValue(value);
}

bool ZORVA_DiagnosticTestBuilder::getHasCharacteristic(String testName, Uint16 characteristic) {
    Array<Uint16> characteristics;
    getTestProperty(testName, "Characteristics").get(characteristics);
    for (Uint32 i = 0; i < characteristics.size(); ++i) {
        if (characteristics[i] == characteristic) {
            return true;
        }
    }
    return false;
}

}  // namespace Pegasus
