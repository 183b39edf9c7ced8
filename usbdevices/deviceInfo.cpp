// SPDX-License-Identifier: MIT
#include "usbdevices/deviceInfo.h"

#include "usbdevices/getString.h"

void deviceInfo::Initialize(std::string line) {
    if (line.find("Product") != std::string::npos) {
        product_ = getString(line, "product=", "\n");
        setUsbHost(line);
    }
    if (line.find("SerialNumber") != std::string::npos) {
        serial_ = getString(line, "serialnumber=", "\n");
    }
    if (line.find("Manufacturer") != std::string::npos) {
        manufacturer_ = getString(line, "manufacturer=", "\n");
    }
}

void deviceInfo::setUsbHost(std::string line) {
    if (findIgnoringCase(line, "ohci") != std::string::npos) {
        usbHost_ = "OHCI";
    } else if (findIgnoringCase(line, "uhci") != std::string::npos) {
        usbHost_ = "UHCI";
    } else {
        usbHost_ = "Unknown";
    }
}
