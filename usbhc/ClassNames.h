// SPDX-License-Identifier: MIT
// The CIM classes of the USB host-controller diagnostic.
#pragma once

namespace Pegasus {

// Character arrays, not Strings: they are initialized before any static object is, so the
// provider's own constants can take their values from here.
namespace class_names {

constexpr char test[] = "ZORVA_UsbHc_DiagTest";
constexpr char result[] = "ZORVA_UsbHc_DiagResult";
constexpr char resultForMSE[] = "ZORVA_UsbHc_DiagResultForMSE";
constexpr char resultForTest[] = "ZORVA_UsbHc_DiagResultForTest";
constexpr char testForMSE[] = "ZORVA_UsbHc_DiagTestForMSE";
constexpr char testSoftwareAssoc[] = "ZORVA_UsbHc_DiagTestSoftwareAssoc";

// Not served by this provider; the associations refer to their instances.
constexpr char testSoftware[] = "ZORVA_UsbHc_TestSoftware";
constexpr char managedElement[] = "ZORVA_UsbHc";

}  // namespace class_names

/// The name of the only test.
constexpr char deviceInformationTestName[] = "GetUsbDeviceInformation";

}  // namespace Pegasus
