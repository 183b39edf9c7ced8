// SPDX-License-Identifier: MIT
// with-device-list: runs a command that reads a file of choice as the kernel's USB device list.
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>

#include "devicelist/DeviceListMount.h"

namespace {

constexpr int failed = 1;
constexpr int wrongUsage = 2;
// As shells answer for a command that cannot be run, and for one that does not exist.
constexpr int cannotRun = 126;
constexpr int notFound = 127;

void printUsage(std::ostream& out) {
    out << "usage: with-device-list FILE [--] COMMAND [ARGUMENT]...\n"
           "Runs COMMAND so that it, and what it starts, reads FILE at "
        << base::deviceListPath
        << ".\nNo other process sees a change. Needs root, or unprivileged user namespaces.\n";
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::string first = argc > 1 ? argv[1] : "";
    if (first == "--help" || first == "-h") {
        printUsage(std::cout);
        return 0;
    }
    const int commandAt = argc > 2 && std::strcmp(argv[2], "--") == 0 ? 3 : 2;
    if (first.empty() || first[0] == '-' || argc <= commandAt) {
        printUsage(std::cerr);
        return wrongUsage;
    }
    try {
        devicelist::DeviceListMount(first).enter();
    } catch (const devicelist::DeviceListMountError& error) {
        std::cerr << "with-device-list: " << error.what() << '\n';
        return failed;
    }
    execvp(argv[commandAt], argv + commandAt);
    const int reason = errno;
    std::cerr << "with-device-list: cannot run " << argv[commandAt] << ": " << std::strerror(reason)
              << '\n';
    return reason == ENOENT ? notFound : cannotRun;
}
