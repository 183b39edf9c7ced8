// SPDX-License-Identifier: MIT
// The device information test.
#include <utility>

#include "diag/DeviceText.h"
#include "diag/LogValue.h"
#include "diag/TestState.h"
#include "diag/ZORVA_DiagUtils.h"
#include "usbdevices/result.h"
#include "usbhc/DeviceInformation.h"
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

namespace Pegasus {

void ZORVA_UsbHc_DiagRunTestMethod::UsbHc_GetUsbDeviceInformation(std::string text) {
    ZORVA_DiagUtils::DEBUG_PRINT("In GetUsbDeviceInformation Test  \n");
    ZORVA_DiagUtils::DEBUG_PRINT("         in UsbHc_ \n");
    ZORVA_DiagUtils::DEBUG_PRINT("DeviceID is: ");
    ZORVA_DiagUtils::DEBUG_PRINT(logValue(textFromBytes(text)));
    ZORVA_DiagUtils::DEBUG_PRINT("\n");

    const auto writeLine = [this](String line) { writeTestResults(std::move(line)); };
    result reader;
    for (std::queue<UsbDevice> devices = reader.GetUsbDeviceInfomation(); !devices.empty();
         devices.pop()) {
        forEachReportLine(devices.front(), writeLine);
    }
    writeToResults("TestState", CIMValue(test_state::passed));
}

}  // namespace Pegasus
