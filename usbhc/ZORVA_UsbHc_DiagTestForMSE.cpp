// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTestForMSE.h"

#include "diag/InstanceProperties.h"
#include "diag/ReturnCode.h"
#include "usbhc/ClassNames.h"
#include "usbhc/RoleReferences.h"

namespace Pegasus {
namespace {

// Not the name of the test, which is "GetUsbDeviceInformation", but the one that these look-ups
// use.
bool isKnownTest(const String& testName) {
    return String::equalNoCase(testName, "UsbHc_GetUsbDeviceInformation");
}

}  // namespace

ZORVA_UsbHc_DiagTestForMSE::ZORVA_UsbHc_DiagTestForMSE(CIMOMHandle& handle, String associationClass,
                                                       String role1Property, String role2Property,
                                                       String role1ReferenceClass,
                                                       String role2ReferenceClass) {
    describe(handle, associationClass, role1Property, role2Property, role1ReferenceClass,
             role2ReferenceClass);
    const Array<CIMObjectPath> tests = ZORVA_UsbHc_DiagTestForMSE::getRole1References();
    const Array<CIMObjectPath> elements = ZORVA_UsbHc_DiagTestForMSE::getRole2References();
    associations_ = getTestForMSEAssociations(tests, elements);
}

ZORVA_UsbHc_DiagTestForMSE::~ZORVA_UsbHc_DiagTestForMSE() = default;

Array<CIMObjectPath> ZORVA_UsbHc_DiagTestForMSE::getRole1References() {
    return testReferences(handle_);
}

Array<CIMObjectPath> ZORVA_UsbHc_DiagTestForMSE::getRole2References() {
    return instanceReferences(handle_, class_names::managedElement);
}

Array<Pair<CIMObjectPath, CIMInstance>> ZORVA_UsbHc_DiagTestForMSE::getTestForMSEAssociations(
    Array<CIMObjectPath> tests, Array<CIMObjectPath> elements) {
    InstanceTable table = ZORVA_AssociationBuilder::getAssociations(tests, elements);
    // The tests are the inner loop of the pairs, so the first test has every tests.size()-th entry.
    for (Uint32 i = 0; i < table.size(); i += tests.size()) {
        CIMInstance& instance = table[i].second;
        addProperty(instance, "EstimatedTimeOfPerforming", CIMValue(estimatedTimeOfPerforming_));
        addProperty(instance, "IsExclusiveForMSE", CIMValue(isExclusiveForMSE_));
    }
    return table;
}

Uint32 ZORVA_UsbHc_DiagTestForMSE::getEstimatedTimeOfPerforming(String testName) {
    return isKnownTest(testName) ? estimatedTimeOfPerforming_ : return_code::notAReference;
}

Boolean ZORVA_UsbHc_DiagTestForMSE::getIsExclusiveForMSE(String testName) {
    return isKnownTest(testName) ? isExclusiveForMSE_ : true;
}

}  // namespace Pegasus
