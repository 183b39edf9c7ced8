// SPDX-License-Identifier: MIT
// Names of vendors and products from the system's hardware database.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "devicelist/Device.h"

struct udev;
struct udev_hwdb;

namespace usbhcdiag {

/// The database of udev (hwdb.bin). Where this system has none, or this program was built without
/// libudev, no device has names in it. For one thread at a time.
class HardwareNames {
public:
    HardwareNames();

    struct Names {
        std::string vendor;   ///< empty: not known
        std::string product;  ///< likewise
    };

    Names find(const devicelist::Device& device) const;

private:
    std::shared_ptr<udev> udev_;
    std::shared_ptr<udev_hwdb> database_;
};

}  // namespace usbhcdiag
