// SPDX-License-Identifier: MIT
// What has changed between two device lists.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "devicelist/DeviceList.h"

namespace devicelist {

/// Another driver of an interface of the active configuration.
struct DriverChange {
    std::optional<unsigned> interface;  ///< its number
    std::optional<std::string>
        before;  ///< as in Interface; no value, too, if there is no such interface
    std::optional<std::string> after;
};

/// A device that is not in both lists, or not the same in both. A plain value.
struct DeviceDifference {
    std::optional<std::size_t> before;  ///< its position in the earlier list; none: it was added
    std::optional<std::size_t> after;   ///< its position in the later list; none: it was removed

    // Of a device in both lists: what is different.
    bool port = false;  ///< it has moved
    bool speed = false;
    /// The active configuration: whether there is one, its value, power or interfaces.
    bool configuration = false;
    bool serialNumber = false;  ///< of the same product at the same port
    std::vector<DriverChange>
        drivers{};  ///< while the configuration has the same value; by interface
};

/// The differences: those of the removed devices in the order of `before`, then all others in that of
/// `after`. None for a list and itself.
///
/// These are one device:
/// 1. the same vendor, product and serial number at the same port;
/// 2. what then remains of the same vendor, product and serial number, in the lists' order: it has moved
///    (without a serial number nobody can tell it from another of its kind);
/// 3. what then remains of the same vendor and product at the same port: its serial number has changed.
///
/// Nothing else is compared: numbers on the bus, bandwidth, names, versions and endpoints may differ. Any
/// thread may call it.
std::vector<DeviceDifference> differencesBetween(const DeviceList& before, const DeviceList& after);

}  // namespace devicelist
