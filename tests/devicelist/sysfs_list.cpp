// SPDX-License-Identifier: MIT
// Prints the device list made from sysfs.
#include <iostream>

#include "devicelist/DeviceListWriter.h"
#include "devicelist/SysfsReader.h"

int main() {
    std::cout << devicelist::writeDeviceList(devicelist::readSysfsDevices("/sys"));
    return 0;
}
