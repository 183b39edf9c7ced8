// SPDX-License-Identifier: MIT
// The names by which servers, clients and installations know the provider library and what it
// serves. Those of the common model ("Name", "Caption") are not among them.
#pragma once

/// Constants: any thread may read them, at any time.
namespace contract {

/// The CIM namespace of all classes.
constexpr char nameSpace[] = "root/kavex";

/// The provider, as the library's factory knows it. The library's file is named after it.
constexpr char provider[] = "ZORVA_UsbHc_DiagProvider";

/// The module that the provider belongs to in an OpenPegasus registration.
constexpr char providerModule[] = "ZORVA_UsbHc_DiagProviderModule";

namespace classes {

// Served by the library.
constexpr char test[] = "ZORVA_UsbHc_DiagTest";
constexpr char result[] = "ZORVA_UsbHc_DiagResult";
constexpr char resultForMSE[] = "ZORVA_UsbHc_DiagResultForMSE";
constexpr char resultForTest[] = "ZORVA_UsbHc_DiagResultForTest";
constexpr char testForMSE[] = "ZORVA_UsbHc_DiagTestForMSE";
constexpr char testSoftwareAssoc[] = "ZORVA_UsbHc_DiagTestSoftwareAssoc";

// Of the server's own repository.
constexpr char managedElement[] = "ZORVA_UsbHc";
constexpr char computerSystem[] = "QUIRVO_ComputerSystem";
constexpr char testSoftware[] = "ZORVA_UsbHc_TestSoftware";
constexpr char setting[] = "ZORVA_UsbHc_DiagSetting";

}  // namespace classes

/// Of the test.
namespace methods {

constexpr char runTest[] = "RunTest";
constexpr char clearResults[] = "ClearResults";
constexpr char discontinueTest[] = "DiscontinueTest";

}  // namespace methods

/// Of the methods.
namespace parameters {

constexpr char systemElement[] = "SystemElement";
constexpr char setting[] = "Setting";
constexpr char result[] = "Result";
constexpr char resultsNotCleared[] = "ResultsNotCleared";

}  // namespace parameters

namespace properties {

// Of a host controller.
constexpr char deviceId[] = "DeviceID";

// Of a result; the execution ID is the device ID of the host controller that was tested.
constexpr char executionId[] = "ExecutionID";
constexpr char diagnosticName[] = "DiagnosticName";
constexpr char testState[] = "TestState";
constexpr char testResults[] = "TestResults";
constexpr char testStartTime[] = "TestStartTime";
constexpr char testCompletionTime[] = "TestCompletionTime";

}  // namespace properties

}  // namespace contract
