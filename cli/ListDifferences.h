// SPDX-License-Identifier: MIT
// The differences between two device lists, in words.
#pragma once

#include <string>
#include <vector>

#include "cli/HardwareNames.h"
#include "devicelist/DeviceDifference.h"

namespace usbhcdiag {

/// Two device lists beside each other. One thread at a time.
class ListDifferences {
public:
    ListDifferences(devicelist::DeviceList before, devicelist::DeviceList after);

    bool areNone() const { return differences_.empty(); }
    const devicelist::DeviceList& before() const { return before_; }
    const devicelist::DeviceList& after() const { return after_; }
    const std::vector<devicelist::DeviceDifference>& all() const { return differences_; }

    /// What became of a device: "removed", "added", "moved" or "changed".
    static std::string kindOf(const devicelist::DeviceDifference& difference);

    /// A device as it is after the difference; as it was before if it is gone.
    const devicelist::Device& deviceOf(const devicelist::DeviceDifference& difference) const;

    /// What is different of a device in both lists: "was at 1-2; 12 Mb/s, was 480 Mb/s".
    std::string details(const devicelist::DeviceDifference& difference) const;

    /// A table with a line for each difference, its headings in bold type where `bold` is set; empty
    /// without differences.
    std::string table(const HardwareNames& names, bool bold) const;

private:
    devicelist::DeviceList before_;
    devicelist::DeviceList after_;
    std::vector<devicelist::DeviceDifference> differences_;
};

}  // namespace usbhcdiag
