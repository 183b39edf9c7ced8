// SPDX-License-Identifier: MIT
#include "usbdevices/descriptor.h"

#include "usbdevices/getString.h"

void descriptor::Initialize(std::string line) {
    version_ = getString(line, "ver=", "cls");
    protocol_ = getString(line, "prot=", "mxps");
}
