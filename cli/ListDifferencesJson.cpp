// SPDX-License-Identifier: MIT
#include "cli/ListDifferencesJson.h"

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "cli/DeviceTexts.h"

namespace usbhcdiag {
namespace {

using devicelist::Configuration;
using devicelist::Device;
using devicelist::DeviceDifference;
using devicelist::Interface;

/// It changes when a member goes or means something else.
constexpr int differencesFormatVersion = 1;

template <typename Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

Json orNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json jsonOf(const Device& device) {
    const Configuration* active = device.activeConfiguration();
    Json object = Json::object();
    object["port_path"] = orNull(device.portPath);
    object["serial"] = orNull(device.serialNumber);
    object["speed_mbps"] = orNull(device.speed);
    object["configuration"] = active == nullptr ? Json() : orNull(active->value);
    object["max_power_ma"] = active == nullptr ? Json() : orNull(active->maxPowerMilliamperes);
    object["drivers"] = Json::object();
    if (active != nullptr) {
        for (const Interface& interface : active->interfaces) {
            if (interface.number) {
                object["drivers"].emplace(std::to_string(*interface.number),
                                          orNull(interface.takenBy()));
            }
        }
    }
    return object;
}

Json jsonOf(const devicelist::DeviceList& list, std::optional<std::size_t> position) {
    return position ? jsonOf(list.devices[*position]) : Json();
}

Json changedOf(const DeviceDifference& difference) {
    Json words = Json::array();
    const auto add = [&words](bool isDifferent, const char* word) {
        if (isDifferent) {
            words.push_back(word);
        }
    };
    add(difference.port, "port");
    add(difference.serialNumber, "serial");
    add(difference.speed, "speed");
    add(difference.configuration, "configuration");
    add(!difference.drivers.empty(), "driver");
    return words;
}

}  // namespace

Json differencesJson(const ListDifferences& differences) {
    Json document = Json::object();
    document["format_version"] = differencesFormatVersion;
    document["same"] = differences.areNone();
    document["differences"] = Json::array();
    for (const DeviceDifference& difference : differences.all()) {
        const Device& device = differences.deviceOf(difference);
        Json object = Json::object();
        object["kind"] = ListDifferences::kindOf(difference);
        object["id"] = orNull(idOf(device));
        object["vendor"] = orNull(device.manufacturer);
        object["product"] = orNull(device.product);
        object["changed"] = changedOf(difference);
        object["before"] = jsonOf(differences.before(), difference.before);
        object["after"] = jsonOf(differences.after(), difference.after);
        document["differences"].push_back(object);
    }
    return document;
}

}  // namespace usbhcdiag
