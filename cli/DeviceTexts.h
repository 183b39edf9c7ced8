// SPDX-License-Identifier: MIT
// What a list tells of a device, in words for people.
//
// Functions without state; any thread may call them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/HardwareNames.h"
#include "devicelist/Device.h"

namespace usbhcdiag {

/// "480 Mb/s", "1.5 Mb/s"; "-" if it is not known.
std::string speedText(const devicelist::Device& device);

/// The vendor and product of a device, "046d:c00e"; empty if the list does not tell.
std::string idOf(const devicelist::Device& device);

/// The text; "-" if there is none.
std::string orDash(const std::string& text);

/// The interfaces that tell what a device does: those of its active configuration; without one, those of
/// its first.
const std::vector<devicelist::Interface>& interfacesOf(const devicelist::Device& device);

/// The classes of a device: its own, or, if that says nothing, those of its interfaces, each once.
std::vector<devicelist::UsbClass> classesOf(const devicelist::Device& device);

/// A class in words; "class 58" for a code without words.
std::string classText(const devicelist::UsbClass& usbClass);

/// All classes of a device, "audio, human interface"; "-" if none is known.
std::string classesText(const devicelist::Device& device);

/// The drivers of its active configuration, each once; "(none)" is among them if an interface has none.
std::vector<std::string> driversOf(const devicelist::Device& device);

/// The drivers of a device; "not configured" for one that is not, "-" if the list names none.
std::string driversText(const devicelist::Device& device);

/// Manufacturer and product as the device gives them. What it does not give comes from the database, in
/// square brackets; "-" if nothing is known.
std::string nameText(const devicelist::Device& device, const HardwareNames::Names& known);

/// The port path of the hub that a device is attached to; empty for a root hub, and if it is not known.
std::string parentPath(const std::string& portPath);

}  // namespace usbhcdiag
