// SPDX-License-Identifier: MIT
#include "cli/DevicesJson.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

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

using UseObject = std::function<void(Json&&)>;

template <typename Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json orNull(std::string_view text) {
    return text.empty() ? Json() : Json(text);
}

/// In lower case, with leading zeros.
template <typename Unsigned>
Json hexadecimal(const std::optional<Unsigned>& number) {
    if (!number) {
        return {};
    }
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%0*x", static_cast<int>(2 * sizeof(Unsigned)),
                  unsigned{*number});
    return text.data();
}

/// Binary coded decimal: "2.00".
Json version(const std::optional<std::uint16_t>& number) {
    if (!number) {
        return {};
    }
    constexpr unsigned byteBits = 8;
    constexpr unsigned lowByte = 0xff;
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%x.%02x", unsigned{*number} >> byteBits,
                  *number & lowByte);
    return text.data();
}

Json directionOf(const Endpoint& endpoint) {
    constexpr std::array<const char*, 3> names = {"out", "in", "both"};
    const auto direction = endpoint.direction();
    return direction ? Json(names.at(static_cast<std::size_t>(*direction))) : Json();
}

Json typeOf(const Endpoint& endpoint) {
    constexpr std::array<const char*, 4> names = {"control", "isochronous", "bulk", "interrupt"};
    const auto type = endpoint.type();
    return type ? Json(names.at(static_cast<std::size_t>(*type))) : Json();
}

Json jsonOf(const Endpoint& endpoint) {
    Json object = Json::object();
    object["address"] = hexadecimal(endpoint.address);
    object["direction"] = directionOf(endpoint);
    object["type"] = typeOf(endpoint);
    object["max_packet_bytes"] = orNull(endpoint.maxPacketSize);
    object["interval"] = orNull(endpoint.intervalMicroseconds);
    return object;
}

Json jsonOf(const Interface& interface) {
    Json object = Json::object();
    object["number"] = orNull(interface.number);
    object["alternate"] = orNull(interface.alternate);
    object["active"] = interface.active;
    object["class"] = hexadecimal(interface.usbClass.code);
    object["subclass"] = hexadecimal(interface.usbClass.subclass);
    object["protocol"] = hexadecimal(interface.usbClass.protocol);
    object["class_name"] = interface.usbClass.code
                               ? orNull(devicelist::wordsOfClass(*interface.usbClass.code))
                               : Json();
    object["driver"] = orNull(interface.takenBy());
    object["endpoints"] = Json::array();
    for (const Endpoint& endpoint : interface.endpoints) {
        object["endpoints"].push_back(jsonOf(endpoint));
    }
    return object;
}

Json jsonOf(const Device& device, const HardwareNames::Names& known, bool isInReport) {
    const Configuration* active = device.activeConfiguration();
    Json object = Json::object();
    object["bus"] = orNull(device.bus);
    object["number"] = orNull(device.number);
    object["parent"] = orNull(parentPath(device.portPath));
    object["port_path"] = orNull(device.portPath);
    object["level"] = orNull(device.level);
    object["id"] = orNull(idOf(device));
    object["vendor_id"] = hexadecimal(device.vendorId);
    object["product_id"] = hexadecimal(device.productId);
    object["vendor"] = orNull(device.manufacturer);
    object["product"] = orNull(device.product);
    object["serial"] = orNull(device.serialNumber);
    object["vendor_name"] = orNull(known.vendor);
    object["product_name"] = orNull(known.product);
    object["usb_version"] = version(device.usbVersion);
    object["device_version"] = version(device.release);
    object["speed_mbps"] = orNull(device.speed);
    object["max_power_ma"] = active == nullptr ? Json() : orNull(active->maxPowerMilliamperes);
    object["configured"] = active != nullptr;
    object["interfaces"] = Json::array();
    for (const Interface& interface : interfacesOf(device)) {
        object["interfaces"].push_back(jsonOf(interface));
    }
    object["in_report"] = isInReport;
    return object;
}

/// The kernel names the driver of a host controller at the end of the root hub's manufacturer.
Json controllerDriver(const Device& rootHub) {
    const std::string maker = rootHub.manufacturer.value_or("");
    return maker.rfind("Linux ", 0) == 0 ? orNull(maker.substr(maker.rfind(' ') + 1)) : Json();
}

Json controllersOf(const devicelist::DeviceList& list) {
    Json controllers = Json::array();
    for (const auto& [id, rootHubs] :
         devicelist::groupedByController(list, devicelist::rootHubsOf(list))) {
        const Device& first = list.devices[rootHubs.front()];
        Json object = Json::object();
        object["device_id"] = id;
        object["name"] = orNull(first.product);
        object["driver"] = controllerDriver(first);
        object["buses"] = Json::array();
        for (const std::size_t rootHub : rootHubs) {
            if (list.devices[rootHub].bus) {
                object["buses"].push_back(*list.devices[rootHub].bus);
            }
        }
        controllers.push_back(object);
    }
    return controllers;
}

void forEachProblem(const devicelist::DeviceList& list,
                    const std::vector<devicelist::Finding>& findings, const UseObject& use) {
    for (const devicelist::Finding& finding : findings) {
        Json object = Json::object();
        object["device"] = finding.device ? orNull(list.devices[*finding.device].portPath) : Json();
        object["kind"] = nameOf(finding.kind);
        object["line"] = orNull(finding.line);
        object["text"] = finding.fact;
        use(std::move(object));
    }
}

void forEachDevice(const ReportedList& reported, const std::vector<std::size_t>& wanted,
                   const HardwareNames& names, const UseObject& use) {
    for (const std::size_t position : wanted) {
        const Device& device = reported.list().devices[position];
        use(jsonOf(device, names.find(device), reported.coverage().devices[position].isInReport()));
    }
}

/// The object with the arrays empty that can be long.
Json frameOf(const DeviceListSource& source, const ReportedList& reported) {
    Json document = Json::object();
    document["format_version"] = devicesFormatVersion;
    document["source"]["kind"] = nameOf(source.kind);
    document["source"]["path"] = source.path;
    document["source"]["bytes"] = source.text.size();
    document["controllers"] = controllersOf(reported.list());
    document["devices"] = Json::array();
    document["report"]["devices_in_list"] = reported.list().devices.size();
    document["report"]["devices_in_report"] = reported.coverage().devicesInReport();
    document["report"]["left_out"] = Json::array();
    document["problems"] = Json::array();
    return document;
}

/// The text of an array, in the form of documentOf(), made object by object.
class ArrayText {
public:
    ArrayText(std::size_t indentation, const std::function<void(std::string_view)>& use)
        : lineStart_("\n" + std::string(indentation, ' ')), use_(use) {}

    void add(const Json& object) {
        std::string text = isEmpty_ ? "[" : ",";
        isEmpty_ = false;
        // The line feeds of an object's text are all between its members.
        std::string lines = "\n" + documentOf(object);
        lines.pop_back();
        for (std::size_t begin = 0; begin < lines.size();) {
            const std::size_t end = std::min(lines.find('\n', begin + 1), lines.size());
            text.append(lineStart_).append("  ").append(lines, begin + 1, end - begin - 1);
            begin = end;
        }
        use_(text);
    }

    void end() const { use_(isEmpty_ ? "[]" : lineStart_ + "]"); }

private:
    std::string lineStart_;
    const std::function<void(std::string_view)>& use_;
    bool isEmpty_ = true;
};

}  // namespace

Json devicesJson(const DeviceListSource& source, const ReportedList& reported) {
    const devicelist::DeviceList& list = reported.list();
    std::vector<std::size_t> all(list.devices.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    Json document = frameOf(source, reported);
    const auto addTo = [](Json& array) {
        return [&array](Json&& object) { array.push_back(std::move(object)); };
    };
    forEachDevice(reported, all, HardwareNames(), addTo(document["devices"]));
    document["report"]["left_out"] = leftOutOf(reported);
    forEachProblem(list, devicelist::findingsOf(list), addTo(document["problems"]));
    return document;
}

void writeDevicesJson(const DeviceListSource& source, const ReportedList& reported,
                      const std::vector<devicelist::Finding>& findings,
                      const std::vector<std::size_t>& wanted, const HardwareNames& names,
                      const std::function<void(std::string_view)>& use) {
    const std::string frame = documentOf(frameOf(source, reported));
    std::size_t done = 0;
    const auto arrayAt = [&](std::size_t indentation, const std::string& member) {
        // No string can look so: line feeds are escaped in it.
        const std::string label = "\n" + std::string(indentation, ' ') + '"' + member + "\": ";
        const std::size_t array = frame.find(label, done) + label.size();
        use(std::string_view(frame).substr(done, array - done));
        done = array + std::string_view("[]").size();
        return ArrayText(indentation, use);
    };
    ArrayText devices = arrayAt(2, "devices");
    forEachDevice(reported, wanted, names, [&](Json&& object) { devices.add(object); });
    devices.end();
    ArrayText leftOut = arrayAt(4, "left_out");
    forEachLeftOut(reported, [&](Json&& object) { leftOut.add(object); });
    leftOut.end();
    ArrayText problems = arrayAt(2, "problems");
    forEachProblem(reported.list(), findings, [&](Json&& object) { problems.add(object); });
    problems.end();
    use(std::string_view(frame).substr(done));
}

}  // namespace usbhcdiag
