// SPDX-License-Identifier: MIT
#include "cli/HardwareNames.h"

#ifdef ZORVA_LIBUDEV

#include <libudev.h>

#include <array>
#include <cstdio>
#include <cstring>

namespace usbhcdiag {

HardwareNames::HardwareNames() : udev_(::udev_new(), ::udev_unref) {
    if (udev_ != nullptr) {
        database_ = {::udev_hwdb_new(udev_.get()), ::udev_hwdb_unref};
    }
}

HardwareNames::Names HardwareNames::find(const devicelist::Device& device) const {
    Names names;
    if (database_ == nullptr || !device.vendorId || !device.productId) {
        return names;
    }
    std::array<char, 20> key{};
    std::snprintf(key.data(), key.size(), "usb:v%04Xp%04X", unsigned{*device.vendorId},
                  unsigned{*device.productId});
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry,
                            ::udev_hwdb_get_properties_list_entry(database_.get(), key.data(), 0)) {
        const char* const name = ::udev_list_entry_get_name(entry);
        const char* const value = ::udev_list_entry_get_value(entry);
        if (value != nullptr && std::strcmp(name, "ID_VENDOR_FROM_DATABASE") == 0) {
            names.vendor = value;
        } else if (value != nullptr && std::strcmp(name, "ID_MODEL_FROM_DATABASE") == 0) {
            names.product = value;
        }
    }
    return names;
}

}  // namespace usbhcdiag

#else

namespace usbhcdiag {

HardwareNames::HardwareNames() = default;

HardwareNames::Names HardwareNames::find(const devicelist::Device& /*device*/) const {
    return {};
}

}  // namespace usbhcdiag

#endif
