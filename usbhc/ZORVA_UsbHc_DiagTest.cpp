// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHc_DiagTest.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Provider/KeyBinding.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "diag/ZORVA_DiagUtils.h"
#include "diag/ZORVA_SystemInfo.h"
#include "usbhc/ClassNames.h"
#include "usbhc/HostSystem.h"

namespace Pegasus {
namespace {

CIMValue text(const char* value) {
    return CIMValue(String(value));
}

CIMValue numbers(std::initializer_list<Uint16> values) {
    Array<Uint16> array;
    for (const Uint16 value : values) {
        array.append(value);
    }
    return CIMValue(array);
}

}  // namespace

bool ZORVA_UsbHc_DiagTest::GetUsbDeviceInformation_IsInUse = false;
bool ZORVA_UsbHc_DiagTest::GetUsbDeviceInformation_Started = false;

ZORVA_UsbHc_DiagTest::ZORVA_UsbHc_DiagTest(CIMOMHandle cimom) {
    ZORVA_DiagUtils::DEBUG_PRINT("   In ZORVA_UsbHc_DiagTest constructor\n");
    _cimom = cimom;
    tests_ = ZORVA_UsbHc_DiagTest::buildTests();
    ZORVA_DiagUtils::DEBUG_PRINT("   Leaving ZORVA_UsbHc_DiagTest constructor\n");
}

ZORVA_UsbHc_DiagTest::~ZORVA_UsbHc_DiagTest() = default;

Array<Pair<CIMObjectPath, CIMInstance>> ZORVA_UsbHc_DiagTest::buildTests() {
    ZORVA_DiagUtils::DEBUG_PRINT("      In ZORVA_UsbHc_DiagTest::buildTests\n");
    const HostSystem system = hostSystemOf(ZORVA_SystemInfo().getSystemInfo(_cimom));
    ZORVA_DiagUtils::DEBUG_PRINT("      Retrieved system information...building tests...\n");

    CIMInstance instance(class_names::test);
    addProperty(instance, "Name", text(deviceInformationTestName));
    addProperty(instance, "SystemName", CIMValue(system.name));
    addProperty(instance, "SystemCreationClassName", CIMValue(system.creationClassName));
    addProperty(instance, "CreationClassName", text(class_names::test));
    // Clients rely on this text, so it keeps its "Cdrom" and its trailing blank.
    addProperty(instance, "Description", text("ZORVA USB Cdrom Diagnostics "));
    addProperty(instance, "Caption", text("Usb SubSystem Information"));
    addProperty(instance, "Status", text("Unknown"));
    addProperty(instance, "StartMode", text("Manual"));
    addProperty(instance, "OtherCharacteristicDescription", text(""));
    addProperty(instance, "Characteristics", numbers({2, 5, 8}));
    addProperty(instance, "ResourcesUsed", numbers({0, 1, 8, 3}));
    addProperty(instance, "IsInUse", CIMValue(Boolean(GetUsbDeviceInformation_IsInUse)));
    addProperty(instance, "Started", CIMValue(Boolean(GetUsbDeviceInformation_Started)));
    addProperty(instance, "InstallDate", CIMValue(CIMDateTime("20020308070100.000000-240")));

    Array<KeyBinding> keys;
    keys.append(stringKey("Name", deviceInformationTestName));
    keys.append(stringKey("CreationClassName", class_names::test));
    keys.append(stringKey("SystemName", system.name));
    keys.append(stringKey("SystemCreationClassName", system.creationClassName));

    InstanceTable table;
    appendTo(table, tablePath(class_names::test, keys), instance);
    ZORVA_DiagUtils::DEBUG_PRINT("      Leaving ZORVA_UsbHc_DiagTest::buildTests\n");
    return table;
}

bool ZORVA_UsbHc_DiagTest::getDiagTestProperty(String /*testName*/, String /*propertyName*/) {
    return false;
}

void ZORVA_UsbHc_DiagTest::setDiagTestProperty(String /*testName*/, String /*propertyName*/,
                                               bool /*value*/) {}

}  // namespace Pegasus
