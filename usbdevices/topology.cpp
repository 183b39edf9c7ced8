// SPDX-License-Identifier: MIT
#include "usbdevices/topology.h"

#include "usbdevices/getString.h"

void topology::Initialize(std::string line) {
    bus_ = getString(line, "bus=", "lev=");
    level_ = getString(line, "lev=", "prnt=");
    parentDevice_ = getString(line, "prnt=", "port=");
    port_ = getString(line, "port=", "cnt=");
    deviceLevelNum_ = getString(line, "cnt=", "dev#=");
    deviceBusNumber_ = getString(line, "dev#=", "spd=");
    speed_ = getString(line, "spd=", "mxch=");
    connections_ = getString(line, "mxch=", "\n");
}
