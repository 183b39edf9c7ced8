// SPDX-License-Identifier: MIT
// Names and paths that many tests of the provider library expect.
#pragma once

#include <string>
#include <vector>

namespace Pegasus {

using Texts = std::vector<std::string>;

/// The name of the provider's test.
constexpr char usbTestName[] = "GetUsbDeviceInformation";

/// The paths, as text, of the test and of a result on the host of TestServer.
inline std::string testPathText() {
    return "ZORVA_UsbHc_DiagTest.CreationClassName=\"ZORVA_UsbHc_DiagTest\","
           "Name=\"GetUsbDeviceInformation\","
           "SystemCreationClassName=\"QUIRVO_ComputerSystem\",SystemName=\"host1\"";
}
inline std::string resultPathText(const std::string& name, const std::string& id) {
    return "ZORVA_UsbHc_DiagResult.DiagnosticCreationClassName=\"ZORVA_UsbHc_DiagTest\","
           "DiagnosticName=\"" +
           name +
           "\",DiagSystemCreationClassName=\"QUIRVO_ComputerSystem\","
           "DiagSystemName=\"host1\",ExecutionID=\"" +
           id + "\"";
}

}  // namespace Pegasus
