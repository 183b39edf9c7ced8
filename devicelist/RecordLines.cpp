// SPDX-License-Identifier: MIT
#include "devicelist/RecordLines.h"

#include <array>

#include "devicelist/LineFields.h"

namespace devicelist {

namespace {

LineResult resultOf(const LineFields& fields) {
    return {fields.anyRead(), fields.damage()};
}

void readClass(LineFields& fields, UsbClass& usbClass) {
    usbClass.code = fields.namedHexadecimal("Cls=", usbClass.name);
    usbClass.subclass = fields.hexadecimal<std::uint8_t>("Sub=");
    usbClass.protocol = fields.hexadecimal<std::uint8_t>("Prot=");
}

constexpr std::string_view driverLabel = "Driver=";

/// Where the label of the driver is, whose name is whatever follows up to the end of the line.
std::size_t findDriver(std::string_view line) {
    auto at = line.find(driverLabel);
    while (at != std::string_view::npos && at != 0 && line[at - 1] != ' ' && line[at - 1] != '\t') {
        at = line.find(driverLabel, at + 1);
    }
    return at;
}

/// Takes the mark off the line; whether it is the one of what is active.
bool takeMark(std::string_view& line) {
    const bool isMarked = !line.empty() && line.front() == '*';
    line.remove_prefix(isMarked ? 1 : 0);
    return isMarked;
}

}  // namespace

char letterOf(Endpoint::Direction direction) {
    constexpr std::array<char, 3> letters = {'O', 'I', 'B'};
    return letters.at(static_cast<std::size_t>(direction));
}

std::string_view nameOf(Endpoint::Type type) {
    constexpr std::array<std::string_view, 4> names = {"Ctrl", "Isoc", "Bulk", "Int."};
    return names.at(static_cast<std::size_t>(type));
}

LineResult readTopologyLine(std::string_view line, Device& device) {
    LineFields fields(line);
    device.bus = fields.decimal("Bus=");
    device.level = fields.decimal("Lev=");
    device.parentNumber = fields.decimal("Prnt=");
    device.port = fields.decimal("Port=");
    device.count = fields.decimal("Cnt=");
    device.number = fields.decimal("Dev#=");
    device.speed = fields.speed("Spd=");
    device.maxChildren = fields.decimal("MxCh=");
    return resultOf(fields);
}

LineResult readBandwidthLine(std::string_view line, Bandwidth& bandwidth) {
    LineFields fields(line);
    const auto allocation = fields.signedPair("Alloc=");
    const auto percent = fields.signedDecimal("us (", "%)");
    if (allocation && percent) {
        bandwidth.allocatedMicroseconds = allocation->first;
        bandwidth.availableMicroseconds = allocation->second;
        bandwidth.percent = percent;
    }
    bandwidth.interruptRequests = fields.signedDecimal("#Int=");
    bandwidth.isochronousRequests = fields.signedDecimal("#Iso=");
    return {bandwidth.percent || bandwidth.interruptRequests || bandwidth.isochronousRequests,
            fields.damage()};
}

LineResult readDescriptorLine(std::string_view line, Device& device) {
    LineFields fields(line);
    device.usbVersion = fields.version("Ver=");
    readClass(fields, device.usbClass);
    device.maxPacketSize = fields.decimal("MxPS=");
    device.configurationCount = fields.decimal("#Cfgs=");
    return resultOf(fields);
}

LineResult readProductLine(std::string_view line, Device& device) {
    LineFields fields(line);
    device.vendorId = fields.hexadecimal<std::uint16_t>("Vendor=");
    device.productId = fields.hexadecimal<std::uint16_t>("ProdID=");
    device.release = fields.version("Rev=");
    return resultOf(fields);
}

LineResult readConfigurationLine(std::string_view line, Configuration& config) {
    config.active = takeMark(line);
    LineFields fields(line);
    config.interfaceCount = fields.decimal("#Ifs=");
    config.value = fields.decimal("Cfg#=");
    config.attributes = fields.hexadecimal<std::uint8_t>("Atr=");
    config.maxPowerMilliamperes = fields.decimal("MxPwr=", "mA");
    return resultOf(fields);
}

LineResult readAssociationLine(std::string_view line, Association& association) {
    LineFields fields(line);
    association.firstInterface = fields.decimal("FirstIf#=");
    association.interfaceCount = fields.decimal("IfCount=");
    readClass(fields, association.usbClass);
    return resultOf(fields);
}

LineResult readInterfaceLine(std::string_view line, Interface& interface) {
    interface.active = takeMark(line);
    const auto driver = findDriver(line);
    LineFields fields(line.substr(0, driver));
    interface.number = fields.decimal("If#=");
    interface.alternate = fields.decimal("Alt=");
    interface.endpointCount = fields.decimal("#EPs=");
    readClass(fields, interface.usbClass);
    LineResult result = resultOf(fields);
    if (driver != std::string_view::npos) {
        interface.driver = line.substr(driver + driverLabel.size());
        result.anyRead = true;
    }
    return result;
}

LineResult readEndpointLine(std::string_view line, Endpoint& endpoint) {
    LineFields fields(line);
    std::string direction;
    std::string type;
    endpoint.address = fields.namedHexadecimal("Ad=", direction);
    endpoint.attributes = fields.namedHexadecimal("Atr=", type);
    endpoint.maxPacketSize = fields.decimal("MxPS=");
    endpoint.intervalMicroseconds = fields.microseconds("Ivl=");
    if (const auto known = endpoint.direction();
        endpoint.address && known && direction != std::string(1, letterOf(*known))) {
        fields.note("Ad=", "has a letter of another direction");
    }
    if (const auto known = endpoint.type(); known && type != nameOf(*known)) {
        fields.note("Atr=", "has the name of another type");
    }
    return resultOf(fields);
}

}  // namespace devicelist
