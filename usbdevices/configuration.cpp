// SPDX-License-Identifier: MIT
#include "usbdevices/configuration.h"

#include "usbdevices/getString.h"

void configuration::Initialize(std::string line) {
    power_ = getString(line, "mxpwr=", "ma");
}
