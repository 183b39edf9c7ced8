// SPDX-License-Identifier: MIT
#include "cli/ListDifferences.h"

#include <optional>
#include <utility>

#include "base/Parts.h"
#include "cli/DeviceTexts.h"
#include "cli/Table.h"

namespace usbhcdiag {
namespace {

using devicelist::Configuration;
using devicelist::Device;
using devicelist::DeviceDifference;
using devicelist::DriverChange;

std::string was(const std::string& after, const std::string& before) {
    return after + ", was " + before;
}

/// "configuration 1", "not configured".
std::string configurationText(const Device& device) {
    const Configuration* active = device.activeConfiguration();
    if (active == nullptr) {
        return device.isConfigured() ? "not configured" : "configuration unknown";
    }
    return "configuration " + (active->value ? std::to_string(*active->value) : "unknown");
}

std::string configurationChange(const Device& before, const Device& after) {
    const std::string text = configurationText(after);
    const std::string earlier = configurationText(before);
    return text == earlier ? text + " with other interfaces or power" : was(text, earlier);
}

std::string driverChange(const DriverChange& change) {
    return "driver of interface " +
           (change.interface ? std::to_string(*change.interface) : "unknown") + ": " +
           was(orDash(change.after.value_or("")), orDash(change.before.value_or("")));
}

}  // namespace

ListDifferences::ListDifferences(devicelist::DeviceList before, devicelist::DeviceList after)
    : before_(std::move(before)),
      after_(std::move(after)),
      differences_(devicelist::differencesBetween(before_, after_)) {}

std::string ListDifferences::kindOf(const DeviceDifference& difference) {
    if (!difference.after) {
        return "removed";
    }
    if (!difference.before) {
        return "added";
    }
    return difference.port ? "moved" : "changed";
}

const Device& ListDifferences::deviceOf(const DeviceDifference& difference) const {
    return difference.after ? after_.devices[*difference.after]
                            : before_.devices[*difference.before];
}

std::string ListDifferences::details(const DeviceDifference& difference) const {
    if (!difference.before || !difference.after) {
        return {};
    }
    const Device& before = before_.devices[*difference.before];
    const Device& after = after_.devices[*difference.after];
    std::string text;
    const auto add = [&text](const std::string& part) { base::appendPart(text, "; ", part); };
    if (difference.port) {
        add("was at " + orDash(before.portPath));
    }
    if (difference.serialNumber) {
        add("serial number " +
            was(orDash(after.serialNumber.value_or("")), orDash(before.serialNumber.value_or(""))));
    }
    if (difference.speed) {
        add(was(speedText(after), speedText(before)));
    }
    if (difference.configuration) {
        add(configurationChange(before, after));
    }
    for (const DriverChange& change : difference.drivers) {
        add(driverChange(change));
    }
    return text;
}

std::string ListDifferences::table(const HardwareNames& names, bool bold) const {
    if (areNone()) {
        return {};
    }
    Table table({"CHANGE", "PORT", "ID", "NAME", "WHAT"});
    for (const DeviceDifference& difference : differences_) {
        const Device& device = deviceOf(difference);
        table.addRow({kindOf(difference), orDash(device.portPath), orDash(idOf(device)),
                      nameText(device, names.find(device)), details(difference)});
    }
    return table.text(bold);
}

}  // namespace usbhcdiag
