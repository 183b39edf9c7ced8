// SPDX-License-Identifier: MIT
#include "cli/DeviceFilter.h"

#include <algorithm>
#include <string_view>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "cli/DeviceTexts.h"
#include "devicelist/ClassNames.h"
#include "options/UsageError.h"

namespace usbhcdiag {
namespace {

std::optional<std::uint16_t> parseId(std::string_view text) {
    constexpr std::size_t digits = 4;
    return text.size() == digits ? base::parseDigits<std::uint16_t>(text, 16) : std::nullopt;
}

/// Whether the class is meant: in words, by the kernel's abbreviation, or by two hexadecimal digits.
bool isCalled(const devicelist::UsbClass& usbClass, const std::string& name) {
    return base::equalIgnoringCase(name, classText(usbClass)) ||
           base::equalIgnoringCase(name, devicelist::abbreviationOfClass(*usbClass.code)) ||
           (name.size() == 2 && base::parseDigits<std::uint8_t>(name, 16) == usbClass.code);
}

bool hasClass(const devicelist::Device& device, const std::string& name) {
    const auto classes = classesOf(device);
    return std::any_of(classes.begin(), classes.end(),
                       [&name](const auto& usbClass) { return isCalled(usbClass, name); });
}

bool hasDriver(const devicelist::Device& device, const std::string& name) {
    const auto drivers = driversOf(device);
    return std::find(drivers.begin(), drivers.end(), name) != drivers.end();
}

}  // namespace

bool DeviceFilter::accepts(const devicelist::Device& device, bool hasProblem) const {
    return (!vendor || device.vendorId == vendor) && (!product || device.productId == product) &&
           (!bus || device.bus == bus) && (!onlyProblems || hasProblem) &&
           (!usbClass || hasClass(device, *usbClass)) && (!driver || hasDriver(device, *driver));
}

void DeviceFilter::setId(const std::string& text) {
    const auto colon = text.find(':');
    vendor = parseId(std::string_view(text).substr(0, colon));
    if (colon != std::string::npos) {
        product = parseId(std::string_view(text).substr(colon + 1));
    }
    if (!vendor || (colon != std::string::npos && !product)) {
        throw options::UsageError(
            "--id takes four hexadecimal digits, or twice four with a colon: "
            "046d or 046d:c00e");
    }
}

void DeviceFilter::setBus(const std::string& text) {
    bus = base::parseDigits<unsigned>(text);
    if (!bus) {
        throw options::UsageError("--bus takes the number of a bus");
    }
}

}  // namespace usbhcdiag
