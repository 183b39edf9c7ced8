// SPDX-License-Identifier: MIT
#include "devicelist/DeviceDifference.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <queue>
#include <tuple>
#include <utility>

namespace devicelist {

namespace {

/// Finds the device of the earlier list that is one of the later list.
class Pairing {
public:
    Pairing(const std::vector<Device>& before, const std::vector<Device>& after)
        : before_(before),
          after_(after),
          isPaired_(before.size(), false),
          partners_(after.size(), std::nullopt) {
        pairBy([](const Device& device) {
            return std::optional(
                Key(device.portPath, device.vendorId, device.productId, device.serialNumber));
        });
        pairBy([](const Device& device) {
            return device.vendorId ? std::optional(Key({}, device.vendorId, device.productId,
                                                       device.serialNumber))
                                   : std::nullopt;
        });
        pairBy([](const Device& device) {
            return device.vendorId && !device.portPath.empty()
                       ? std::optional(Key(device.portPath, device.vendorId, device.productId, {}))
                       : std::nullopt;
        });
    }

    bool isPaired(std::size_t before) const { return isPaired_[before]; }
    std::optional<std::size_t> partner(std::size_t after) const { return partners_[after]; }

private:
    using Key = std::tuple<std::string, std::optional<std::uint16_t>, std::optional<std::uint16_t>,
                           std::optional<std::string>>;

    /// Pairs devices of the same key, in the lists' order. A device without key is left alone.
    template <typename KeyOf>
    void pairBy(KeyOf keyOf) {
        std::map<Key, std::queue<std::size_t>> waiting;
        for (std::size_t position = 0; position < before_.size(); ++position) {
            if (const auto key = keyOf(before_[position]); key && !isPaired_[position]) {
                waiting[*key].push(position);
            }
        }
        for (std::size_t position = 0; position < after_.size(); ++position) {
            const auto key = keyOf(after_[position]);
            if (partners_[position] || !key) {
                continue;
            }
            const auto found = waiting.find(*key);
            if (found != waiting.end() && !found->second.empty()) {
                partners_[position] = found->second.front();
                isPaired_[found->second.front()] = true;
                found->second.pop();
            }
        }
    }

    const std::vector<Device>& before_;
    const std::vector<Device>& after_;
    std::vector<bool> isPaired_;
    std::vector<std::optional<std::size_t>> partners_;
};

std::optional<unsigned> activeValue(const Device& device) {
    const Configuration* active = device.activeConfiguration();
    return active == nullptr ? std::nullopt : active->value;
}

bool sayTheSame(const Interface& left, const Interface& right) {
    const auto tie = [](const Interface& interface) {
        return std::tie(interface.number, interface.alternate, interface.usbClass.code,
                        interface.usbClass.subclass, interface.usbClass.protocol);
    };
    return tie(left) == tie(right);
}

bool isSameConfiguration(const Device& before, const Device& after) {
    const Configuration* left = before.activeConfiguration();
    const Configuration* right = after.activeConfiguration();
    if (left == nullptr || right == nullptr) {
        return before.isConfigured() == after.isConfigured();
    }
    return std::tie(left->value, left->attributes, left->maxPowerMilliamperes) ==
               std::tie(right->value, right->attributes, right->maxPowerMilliamperes) &&
           std::equal(left->interfaces.begin(), left->interfaces.end(), right->interfaces.begin(),
                      right->interfaces.end(), sayTheSame);
}

using Drivers = std::map<std::optional<unsigned>, std::optional<std::string>>;

/// The drivers of the active configuration. Alternate settings of an interface have the same.
Drivers driversOf(const Device& device) {
    Drivers drivers;
    if (const Configuration* active = device.activeConfiguration()) {
        for (const Interface& interface : active->interfaces) {
            drivers.emplace(interface.number, interface.driver);
        }
    }
    return drivers;
}

std::vector<DriverChange> driverChanges(const Device& before, const Device& after) {
    Drivers left = driversOf(before);
    Drivers right = driversOf(after);
    std::vector<DriverChange> changes;
    for (const auto& entry : left) {
        right.emplace(entry.first, std::nullopt);
    }
    for (const auto& [interface, driver] : right) {
        if (left[interface] != driver) {
            changes.push_back({interface, left[interface], driver});
        }
    }
    return changes;
}

DeviceDifference compare(const Device& before, const Device& after) {
    DeviceDifference difference;
    difference.port = before.portPath != after.portPath;
    difference.speed = before.speed != after.speed;
    difference.configuration = !isSameConfiguration(before, after);
    difference.serialNumber = before.serialNumber != after.serialNumber;
    if (activeValue(before) == activeValue(after)) {
        difference.drivers = driverChanges(before, after);
    }
    return difference;
}

bool isAny(const DeviceDifference& difference) {
    return difference.port || difference.speed || difference.configuration ||
           difference.serialNumber || !difference.drivers.empty();
}

}  // namespace

std::vector<DeviceDifference> differencesBetween(const DeviceList& before,
                                                 const DeviceList& after) {
    const Pairing pairing(before.devices, after.devices);
    std::vector<DeviceDifference> differences;
    for (std::size_t position = 0; position < before.devices.size(); ++position) {
        if (!pairing.isPaired(position)) {
            differences.push_back({position, std::nullopt});
        }
    }
    for (std::size_t position = 0; position < after.devices.size(); ++position) {
        const auto partner = pairing.partner(position);
        if (!partner) {
            differences.push_back({std::nullopt, position});
            continue;
        }
        DeviceDifference difference = compare(before.devices[*partner], after.devices[position]);
        if (isAny(difference)) {
            difference.before = partner;
            difference.after = position;
            differences.push_back(std::move(difference));
        }
    }
    return differences;
}

}  // namespace devicelist
