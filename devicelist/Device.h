// SPDX-License-Identifier: MIT
// What a USB device list tells of one device.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace devicelist {

/// What a device, an interface or an association of interfaces is for.
///
/// In this and all following records a number without a value is one that the list does not give,
/// or that cannot be read there. The records are plain values: threads may share them as they may
/// share an int.
struct UsbClass {
    std::optional<std::uint8_t> code;
    std::string name;  ///< as the kernel abbreviates it, without padding: "hub", "stor."
    std::optional<std::uint8_t> subclass;
    std::optional<std::uint8_t> protocol;
};

/// An "E:" line.
struct Endpoint {
    enum class Direction { out, in, both };
    enum class Type { control, isochronous, bulk, interrupt };

    std::optional<std::uint8_t> address;
    std::optional<std::uint8_t> attributes;
    std::optional<unsigned> maxPacketSize;             ///< bytes for each (micro)frame
    std::optional<std::int64_t> intervalMicroseconds;  ///< 0: none

    /// From the address; a control endpoint transfers both ways.
    std::optional<Direction> direction() const;
    /// From the attributes.
    std::optional<Type> type() const;
};

/// What a list has in place of a driver where none took the interface.
constexpr std::string_view noDriver = "(none)";

/// An "I:" line with its endpoints: one alternate setting of an interface.
struct Interface {
    /// False: there is no line of it; the list shows endpoints where one should stand before them.
    bool listed = true;
    bool active = false;  ///< marked "*"; kernels up to 2.6.20 mark no interface
    std::optional<unsigned> number;
    std::optional<unsigned> alternate;
    std::optional<unsigned> endpointCount;  ///< as announced; see `endpoints` for those listed
    UsbClass usbClass;
    /// As the list has it: noDriver if no driver took the interface; empty in a configuration that
    /// is not active; no value if the kernel names no drivers.
    std::optional<std::string> driver;
    std::vector<Endpoint> endpoints;

    /// The driver that took the interface; no value if none did, or none is named.
    std::optional<std::string_view> takenBy() const;
};

/// An "A:" line: interfaces that make up one function.
struct Association {
    std::optional<unsigned> firstInterface;
    std::optional<unsigned> interfaceCount;
    UsbClass usbClass;
};

/// A "C:" line with its interfaces.
struct Configuration {
    /// False: there is no line of it; the list shows interfaces where one should stand before them.
    bool listed = true;
    bool active = false;                     ///< marked "*"; a device may have no active one
    std::optional<unsigned> interfaceCount;  ///< as announced; see `interfaces` for those listed
    std::optional<unsigned> value;           ///< the number that selects it
    std::optional<std::uint8_t> attributes;
    std::optional<unsigned> maxPowerMilliamperes;
    std::vector<Association> associations;
    std::vector<Interface> interfaces;  ///< every alternate setting, in the list's order
};

/// A "B:" line: what periodic transfers take of a root hub's bus.
struct Bandwidth {
    std::optional<int> allocatedMicroseconds;  ///< known together with the next two
    std::optional<int> availableMicroseconds;  ///< of each frame
    std::optional<int> percent;
    std::optional<int> interruptRequests;
    std::optional<int> isochronousRequests;
};

/// A "T:" line with all that follows up to the next one.
struct Device {
    // T:
    std::optional<unsigned> bus;
    std::optional<unsigned> level;         ///< 0: the root hub of the bus
    std::optional<unsigned> parentNumber;  ///< of the hub that it is attached to; 0 for a root hub
    std::optional<unsigned> port;          ///< of that hub, counted from 0
    std::optional<unsigned> count;         ///< how many devices of the hub are listed so far
    std::optional<unsigned> number;        ///< on its bus (in early 2.4 kernels: on all)
    std::optional<double> speed;           ///< Mb/s: 1.5, 12, 480, 5000, ...; "??" is no value
    std::optional<unsigned> maxChildren;   ///< ports of a hub

    /// Its name in sysfs: "usb1" for a root hub, "1-2.3" for the device at port 3 of the hub at
    /// port 2 (both counted from 1) of bus 1. Empty if the list does not say where it is attached.
    std::string portPath;

    std::optional<Bandwidth> bandwidth;

    // D:
    std::optional<std::uint16_t> usbVersion;  ///< binary coded decimal: 0x0210 is 2.10
    UsbClass usbClass;
    std::optional<unsigned> maxPacketSize;       ///< of endpoint 0; for SuperSpeed its exponent
    std::optional<unsigned> configurationCount;  ///< as announced

    // P:
    std::optional<std::uint16_t> vendorId;
    std::optional<std::uint16_t> productId;
    std::optional<std::uint16_t> release;  ///< of the device; binary coded decimal

    // S: The bytes that the device gave, in whatever encoding (ISO 8859-1 before Linux 2.6.31), with
    // control characters. The kernel does not escape them: a device whose string holds a line feed
    // forges the lines that follow, and nobody can tell those from the kernel's own.
    std::optional<std::string> manufacturer;
    std::optional<std::string> product;
    std::optional<std::string> serialNumber;

    std::vector<Configuration> configurations;

    /// The active one of the configurations; null if none is.
    const Configuration* activeConfiguration() const;
    /// Whether there is one; no value if the list tells nothing of configurations.
    std::optional<bool> isConfigured() const;

    bool truncated = false;  ///< the kernel had no room for the rest of it, and says so

    // Where the text has it; no part of what is said of the device.
    std::size_t line = 0;    ///< number of its "T:" line, from 1; 0: it comes from no text
    std::size_t offset = 0;  ///< of that line, in bytes
};

/// Whether two records say the same; where the lines stand does not count.
bool operator==(const UsbClass& left, const UsbClass& right);
bool operator==(const Endpoint& left, const Endpoint& right);
bool operator==(const Interface& left, const Interface& right);
bool operator==(const Association& left, const Association& right);
bool operator==(const Configuration& left, const Configuration& right);
bool operator==(const Bandwidth& left, const Bandwidth& right);
bool operator==(const Device& left, const Device& right);

}  // namespace devicelist
