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

/// The properties of a new result, as propertiesOf() writes them, without those that identify it.
inline const Texts defaultResultProperties = {
    "TimeStamp: datetime 00000000000000.000000:000",
    "TestStartTime: datetime 00000000000000.000000:000",
    "TestCompletionTime: datetime 00000000000000.000000:000",
    "IsPackage: boolean FALSE",
    "TestState: uint16 0",
    "OtherStateDescription: string ",
    "EstimatedTimeOfPerforming: uint32 0",
    "TestResults: string[] ",
    "PercentComplete: uint8 0",
    "TestWarningLevel: uint16 0",
    "ReportSoftErrors: boolean FALSE",
    "ReportStatusMessages: boolean FALSE",
    "HaltOnError: boolean FALSE",
    "QuickMode: boolean FALSE",
    "PercentOfTestCoverage: uint8 0",
    "LoopControlParameter: string[] ",
    "LoopControl: uint16[] ",
    "OtherLoopControlDescription: string ",
    "ErrorCode: string[] ",
    "ErrorCount: uint32[] ",
    "LoopsFailed: uint32 0",
    "LoopsPassed: uint32 0"};

}  // namespace Pegasus
