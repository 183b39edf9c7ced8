// SPDX-License-Identifier: MIT
// The CIM classes of the USB host-controller diagnostic.
#pragma once

namespace Pegasus {

// Character arrays and no Strings: they are ready before any object with static lifetime is, and so
// are the provider's own constants that take their values from here.
namespace ClassNames {

constexpr char TEST[] = "ZORVA_UsbHc_DiagTest";
constexpr char RESULT[] = "ZORVA_UsbHc_DiagResult";
constexpr char RESULT_FOR_MSE[] = "ZORVA_UsbHc_DiagResultForMSE";
constexpr char RESULT_FOR_TEST[] = "ZORVA_UsbHc_DiagResultForTest";
constexpr char TEST_FOR_MSE[] = "ZORVA_UsbHc_DiagTestForMSE";
constexpr char TEST_SOFTWARE_ASSOC[] = "ZORVA_UsbHc_DiagTestSoftwareAssoc";

// Served by others; the associations lead to them.
constexpr char TEST_SOFTWARE[] = "ZORVA_UsbHc_TestSoftware";
constexpr char MANAGED_ELEMENT[] = "ZORVA_UsbHc";

}  // namespace ClassNames

/// The one test that there is.
constexpr char GET_USB_DEVICE_INFORMATION[] = "GetUsbDeviceInformation";

}  // namespace Pegasus
