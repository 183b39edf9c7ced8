// SPDX-License-Identifier: MIT
// Which devices of a list are wanted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "devicelist/Device.h"

namespace usbhcdiag {

/// Conditions that a device must all meet; without any, every device does. A plain value.
struct DeviceFilter {
    std::optional<std::uint16_t> vendor;
    std::optional<std::uint16_t> product;
    std::optional<unsigned> bus;
    std::optional<std::string> usbClass;
    std::optional<std::string> driver;
    bool onlyProblems = false;

    /// Whether the device is wanted. `hasProblem`: whether something was found at it.
    bool accepts(const devicelist::Device& device, bool hasProblem) const;

    /// Takes "046d" or "046d:c00e". Throws options::UsageError.
    void setId(const std::string& text);
    /// Takes the number of a bus. Throws options::UsageError.
    void setBus(const std::string& text);
};

}  // namespace usbhcdiag
