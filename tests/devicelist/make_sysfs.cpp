// SPDX-License-Identifier: MIT
// make_sysfs LIST FOLDER: makes a folder in which sysfs shows the devices of a list.
#include <iostream>

#include "devicelist/DeviceListFile.h"
#include "devicelist/DeviceListReader.h"
#include "tests/devicelist/SysfsTree.h"

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "usage: make_sysfs LIST FOLDER\n";
        return 2;
    }
    const devicelist::SysfsTree tree(argv[2]);
    const auto list = devicelist::readDeviceList(devicelist::readDeviceListFile(argv[1]));
    for (const devicelist::Device& device : list.devices) {
        tree.add(device);
    }
    return 0;
}
