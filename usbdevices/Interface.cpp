// SPDX-License-Identifier: MIT
#include "usbdevices/Interface.h"

#include "usbdevices/getString.h"

void Interface::Initialize(std::string line) {
    driver_ = getString(line, "driver=", "\n");
    class_ = getString(line, "cls=", "(");
    subClass_ = getString(line, "sub=", "prot");
    interface_ = getString(line, "if#=", "alt");
    protocol_ = getString(line, "prot=", "driver");
}
