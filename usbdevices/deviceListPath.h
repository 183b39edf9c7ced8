// SPDX-License-Identifier: MIT
// The one place that says where the USB device list is read.
#pragma once

/// Path of the kernel's USB device list. Settled when the project is configured (CMake cache
/// variable ZORVA_DEVICE_LIST_PATH); the same for the reader and for whatever shows it a list.
constexpr char deviceListPath[] = ZORVA_DEVICE_LIST_PATH;
