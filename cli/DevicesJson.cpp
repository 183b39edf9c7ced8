// SPDX-License-Identifier: MIT
#include "cli/DevicesJson.h"

#include <array>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

#include "base/Ascii.h"
#include "cli/DeviceTexts.h"
#include "cli/ReportedListJson.h"
#include "devicelist/ClassNames.h"
#include "devicelist/HostControllers.h"

namespace usbhcdiag {
namespace {

using devicelist::Configuration;
using devicelist::Device;
using devicelist::Endpoint;
using devicelist::Interface;

/// In lower case, with leading zeros.
template <typename Unsigned>
std::optional<std::string> hexadecimal(const std::optional<Unsigned>& number) {
    if (!number) {
        return std::nullopt;
    }
    constexpr unsigned digitBits = 4;
    std::string text(2 * sizeof(Unsigned), '0');
    unsigned rest = *number;
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit) {
        *digit = base::lowerHexDigits[rest & 0xFU];
        rest >>= digitBits;
    }
    return text;
}

/// Binary coded decimal: "2.00".
std::optional<std::string> version(const std::optional<std::uint16_t>& number) {
    const std::optional<std::string> digits = hexadecimal(number);
    if (!digits) {
        return std::nullopt;
    }
    const std::size_t first = digits->front() == '0' ? 1 : 0;
    return digits->substr(first, 2 - first) + "." + digits->substr(2);
}

std::optional<std::string_view> directionOf(const Endpoint& endpoint) {
    constexpr std::array<std::string_view, 3> names = {"out", "in", "both"};
    const auto direction = endpoint.direction();
    return direction ? std::optional(names.at(static_cast<std::size_t>(*direction))) : std::nullopt;
}

std::optional<std::string_view> typeOf(const Endpoint& endpoint) {
    constexpr std::array<std::string_view, 4> names = {"control", "isochronous", "bulk",
                                                       "interrupt"};
    const auto type = endpoint.type();
    return type ? std::optional(names.at(static_cast<std::size_t>(*type))) : std::nullopt;
}

void write(JsonWriter& json, const Endpoint& endpoint) {
    json.beginObject();
    json.member("address", hexadecimal(endpoint.address));
    json.member("direction", directionOf(endpoint));
    json.member("type", typeOf(endpoint));
    json.member("max_packet_bytes", endpoint.maxPacketSize);
    json.member("interval", endpoint.intervalMicroseconds);
    json.endObject();
}

void write(JsonWriter& json, const Interface& interface) {
    const devicelist::UsbClass& usbClass = interface.usbClass;
    json.beginObject();
    json.member("number", interface.number);
    json.member("alternate", interface.alternate);
    json.member("active", interface.active);
    json.member("class", hexadecimal(usbClass.code));
    json.member("subclass", hexadecimal(usbClass.subclass));
    json.member("protocol", hexadecimal(usbClass.protocol));
    json.textOrNull("class_name", usbClass.code ? devicelist::wordsOfClass(*usbClass.code) : "");
    json.member("driver", interface.takenBy());
    json.key("endpoints");
    json.beginArray();
    for (const Endpoint& endpoint : interface.endpoints) {
        write(json, endpoint);
    }
    json.endArray();
    json.endObject();
}

void write(JsonWriter& json, const Device& device, const HardwareNames::Names& known,
           bool isInReport) {
    const Configuration* active = device.activeConfiguration();
    json.beginObject();
    json.member("bus", device.bus);
    json.member("number", device.number);
    json.textOrNull("parent", parentPath(device.portPath));
    json.textOrNull("port_path", device.portPath);
    json.member("level", device.level);
    json.textOrNull("id", idOf(device));
    json.member("vendor_id", hexadecimal(device.vendorId));
    json.member("product_id", hexadecimal(device.productId));
    json.member("vendor", device.manufacturer);
    json.member("product", device.product);
    json.member("serial", device.serialNumber);
    json.textOrNull("vendor_name", known.vendor);
    json.textOrNull("product_name", known.product);
    json.member("usb_version", version(device.usbVersion));
    json.member("device_version", version(device.release));
    json.member("speed_mbps", device.speed);
    json.member("max_power_ma", active == nullptr ? std::nullopt : active->maxPowerMilliamperes);
    json.member("configured", active != nullptr);
    json.key("interfaces");
    json.beginArray();
    for (const Interface& interface : interfacesOf(device)) {
        write(json, interface);
    }
    json.endArray();
    json.member("in_report", isInReport);
    json.endObject();
}

/// The kernel names the driver of a host controller at the end of the root hub's manufacturer.
std::string controllerDriver(const Device& rootHub) {
    const std::string maker = rootHub.manufacturer.value_or("");
    return maker.rfind("Linux ", 0) == 0 ? maker.substr(maker.rfind(' ') + 1) : "";
}

void writeControllers(JsonWriter& json, const devicelist::DeviceList& list) {
    json.beginArray();
    for (const auto& [id, rootHubs] :
         devicelist::groupedByController(list, devicelist::rootHubsOf(list))) {
        const Device& first = list.devices[rootHubs.front()];
        json.beginObject();
        json.member("device_id", id);
        json.member("name", first.product);
        json.textOrNull("driver", controllerDriver(first));
        json.key("buses");
        json.beginArray();
        for (const std::size_t rootHub : rootHubs) {
            if (list.devices[rootHub].bus) {
                json.value(*list.devices[rootHub].bus);
            }
        }
        json.endArray();
        json.endObject();
    }
    json.endArray();
}

void write(JsonWriter& json, const devicelist::Finding& finding,
           const devicelist::DeviceList& list) {
    json.beginObject();
    json.textOrNull("device", finding.device ? list.devices[*finding.device].portPath : "");
    json.member("kind", nameOf(finding.kind));
    json.member("line", finding.line);
    json.member("text", finding.fact);
    json.endObject();
}

}  // namespace

void writeDevices(JsonWriter& json, const DeviceListSource& source, const ReportedList& reported,
                  const std::vector<devicelist::Finding>& findings,
                  const std::vector<std::size_t>& wanted, const HardwareNames& names) {
    const devicelist::DeviceList& list = reported.list();
    json.beginObject();
    json.member("format_version", devicesFormatVersion);
    json.key("source");
    json.beginObject();
    json.member("kind", nameOf(source.kind));
    json.member("path", source.path);
    json.member("bytes", source.text.size());
    json.endObject();
    json.key("controllers");
    writeControllers(json, list);
    json.key("devices");
    json.beginArray();
    for (const std::size_t position : wanted) {
        const Device& device = list.devices[position];
        write(json, device, names.find(device), reported.coverage().devices[position].isInReport());
    }
    json.endArray();
    json.key("report");
    json.beginObject();
    json.member("devices_in_list", list.devices.size());
    json.member("devices_in_report", reported.coverage().devicesInReport());
    json.key("left_out");
    writeLeftOut(json, reported);
    json.endObject();
    json.key("problems");
    json.beginArray();
    for (const devicelist::Finding& finding : findings) {
        write(json, finding, list);
    }
    json.endArray();
    json.endObject();
}

void writeDevices(JsonWriter& json, const DeviceListSource& source, const ReportedList& reported) {
    std::vector<std::size_t> all(reported.list().devices.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    writeDevices(json, source, reported, devicelist::findingsOf(reported.list()), all,
                 HardwareNames());
}

}  // namespace usbhcdiag
