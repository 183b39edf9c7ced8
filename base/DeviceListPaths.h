// SPDX-License-Identifier: MIT
// Where the kernel's USB device list is.
#pragma once

namespace base {

/// Path at which the test reads the list. Settled when the project is configured (CMake cache
/// variable ZORVA_DEVICE_LIST_PATH); the same for the test's reader and for whatever shows it a list.
constexpr char deviceListPath[] = ZORVA_DEVICE_LIST_PATH;

/// Path at which a modern kernel has the list, for root alone, while debugfs is mounted.
constexpr char kernelListPath[] = "/sys/kernel/debug/usb/devices";

}  // namespace base
