// SPDX-License-Identifier: MIT
#include "usbdevices/product.h"

#include "usbdevices/getString.h"

void product::Initialize(std::string line) {
    vendor_ = getString(line, "vendor=", "prodid");
    product_ = getString(line, "prodid=", "rev");
    revision_ = getString(line, "rev=", "\n");
}
