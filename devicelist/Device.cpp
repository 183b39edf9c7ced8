// SPDX-License-Identifier: MIT
#include "devicelist/Device.h"

#include <algorithm>
#include <tuple>

namespace devicelist {

namespace {

auto tie(const UsbClass& value) {
    return std::tie(value.code, value.name, value.subclass, value.protocol);
}

auto tie(const Endpoint& value) {
    return std::tie(value.address, value.attributes, value.maxPacketSize,
                    value.intervalMicroseconds);
}

auto tie(const Interface& value) {
    return std::tie(value.listed, value.active, value.number, value.alternate, value.endpointCount,
                    value.usbClass, value.driver, value.endpoints);
}

auto tie(const Association& value) {
    return std::tie(value.firstInterface, value.interfaceCount, value.usbClass);
}

auto tie(const Configuration& value) {
    return std::tie(value.listed, value.active, value.interfaceCount, value.value, value.attributes,
                    value.maxPowerMilliamperes, value.associations, value.interfaces);
}

auto tie(const Bandwidth& value) {
    return std::tie(value.allocatedMicroseconds, value.availableMicroseconds, value.percent,
                    value.interruptRequests, value.isochronousRequests);
}

auto tie(const Device& value) {
    return std::tie(value.bus, value.level, value.parentNumber, value.port, value.count,
                    value.number, value.speed, value.maxChildren, value.portPath, value.bandwidth,
                    value.usbVersion, value.usbClass, value.maxPacketSize, value.configurationCount,
                    value.vendorId, value.productId, value.release, value.manufacturer,
                    value.product, value.serialNumber, value.configurations, value.truncated);
}

}  // namespace

std::optional<Endpoint::Direction> Endpoint::direction() const {
    if (type() == Type::control) {
        return Direction::both;
    }
    if (!address.has_value()) {
        return std::nullopt;
    }
    constexpr unsigned inBit = 0x80;
    return (*address & inBit) != 0 ? Direction::in : Direction::out;
}

std::optional<Endpoint::Type> Endpoint::type() const {
    if (!attributes.has_value()) {
        return std::nullopt;
    }
    constexpr unsigned typeBits = 0x03;
    return static_cast<Type>(*attributes & typeBits);
}

std::optional<std::string_view> Interface::takenBy() const {
    return driver && !driver->empty() && *driver != noDriver
               ? std::optional<std::string_view>(*driver)
               : std::nullopt;
}

const Configuration* Device::activeConfiguration() const {
    const auto found =
        std::find_if(configurations.begin(), configurations.end(),
                     [](const Configuration& configuration) { return configuration.active; });
    return found == configurations.end() ? nullptr : &*found;
}

std::optional<bool> Device::isConfigured() const {
    if (activeConfiguration() != nullptr) {
        return true;
    }
    return configurations.empty() && !configurationCount ? std::nullopt : std::optional(false);
}

bool operator==(const UsbClass& left, const UsbClass& right) {
    return tie(left) == tie(right);
}

bool operator==(const Endpoint& left, const Endpoint& right) {
    return tie(left) == tie(right);
}

bool operator==(const Interface& left, const Interface& right) {
    return tie(left) == tie(right);
}

bool operator==(const Association& left, const Association& right) {
    return tie(left) == tie(right);
}

bool operator==(const Configuration& left, const Configuration& right) {
    return tie(left) == tie(right);
}

bool operator==(const Bandwidth& left, const Bandwidth& right) {
    return tie(left) == tie(right);
}

bool operator==(const Device& left, const Device& right) {
    return tie(left) == tie(right);
}

}  // namespace devicelist
