// SPDX-License-Identifier: MIT
// Reads the lines of a device list, each by itself.
#pragma once

#include <string>
#include <string_view>

#include "devicelist/Device.h"

namespace devicelist {

/// What came of a line.
struct LineResult {
    bool anyRead = false;  ///< whether it gave any value
    std::string damage;    ///< what is wrong with it, in words; empty if nothing is
};

/// Each of the following takes a line without its letter, its colon and its line end, and puts what
/// it tells into the record. Lines that bear a mark have it as their first character.
/// Functions without state; any thread may call them.
LineResult readTopologyLine(std::string_view line, Device& device);               // T:
LineResult readBandwidthLine(std::string_view line, Bandwidth& bandwidth);        // B:
LineResult readDescriptorLine(std::string_view line, Device& device);             // D:
LineResult readProductLine(std::string_view line, Device& device);                // P:
LineResult readConfigurationLine(std::string_view line, Configuration& config);   // C:
LineResult readAssociationLine(std::string_view line, Association& association);  // A:
LineResult readInterfaceLine(std::string_view line, Interface& interface);        // I:
LineResult readEndpointLine(std::string_view line, Endpoint& endpoint);           // E:

/// The names of the kernel for what an endpoint is: 'I', 'O' or 'B'; "Ctrl", "Isoc", ...
char letterOf(Endpoint::Direction direction);
std::string_view nameOf(Endpoint::Type type);

}  // namespace devicelist
