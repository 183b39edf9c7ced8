// SPDX-License-Identifier: MIT
// usbdevices: prints a report of the kernel's USB device list on standard output; on a terminal without
// the control characters that devices have in their names.
// Exit status: 0, or 1 if a device cannot be reported or the report cannot be written.
#include <unistd.h>

#include <exception>
#include <iostream>

#include "usbdevices/DeviceReport.h"
#include "usbdevices/TerminalOutput.h"
#include "usbdevices/result.h"

int main() {
    const TerminalOutput output(std::cout, STDOUT_FILENO);
    const TerminalOutput errors(std::cerr, STDERR_FILENO);
    try {
        result reader;
        auto devices = reader.GetUsbDeviceInfomation();
        printDeviceReport(std::cout, devices);
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "usbdevices: " << error.what() << '\n';
        return 1;
    }
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "usbdevices: cannot write the report to standard output\n";
        return 1;
    }
    return 0;
}
