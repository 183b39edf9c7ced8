// SPDX-License-Identifier: MIT
// Runs the benchmarks in a private view of the file system, where the device list is theirs to set.
#include <fstream>
#include <iostream>

#include <benchmark/benchmark.h>

#include "bench/library/Bench.h"
#include "devicelist/DeviceListMount.h"
#include "tests/support/LogFolder.h"

namespace {

std::string deviceListFile;

}  // namespace

void showDeviceList(const std::string& content) {
    // In place: the view shows this very file.
    std::ofstream(deviceListFile, std::ios::binary | std::ios::trunc) << content;
}

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    LogFolder folder;
    deviceListFile = folder.path() + "/devices";
    showDeviceList("");
    try {
        devicelist::DeviceListMount(deviceListFile).enter();
    } catch (const devicelist::DeviceListMountError& error) {
        std::cerr << "bench-library: " << error.what() << '\n';
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
