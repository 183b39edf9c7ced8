// SPDX-License-Identifier: MIT
#include "cli/ListDifferencesJson.h"

#include <optional>
#include <set>
#include <string>

#include "cli/DeviceTexts.h"

namespace usbhcdiag {
namespace {

using devicelist::Configuration;
using devicelist::Device;
using devicelist::DeviceDifference;
using devicelist::Interface;

/// It changes when a member goes or means something else.
constexpr int differencesFormatVersion = 1;

/// By the numbers of interfaces. An interface has one driver, whichever of its settings is used.
void writeDrivers(JsonWriter& json, const Configuration* active) {
    json.beginObject();
    if (active != nullptr) {
        std::set<unsigned> written;
        for (const Interface& interface : active->interfaces) {
            if (interface.number && written.insert(*interface.number).second) {
                json.member(std::to_string(*interface.number), interface.takenBy());
            }
        }
    }
    json.endObject();
}

void writeSide(JsonWriter& json, const devicelist::DeviceList& list,
               std::optional<std::size_t> position) {
    if (!position) {
        json.null();
        return;
    }
    const Device& device = list.devices[*position];
    const Configuration* active = device.activeConfiguration();
    json.beginObject();
    json.textOrNull("port_path", device.portPath);
    json.member("serial", device.serialNumber);
    json.member("speed_mbps", device.speed);
    json.member("configuration", active == nullptr ? std::nullopt : active->value);
    json.member("max_power_ma", active == nullptr ? std::nullopt : active->maxPowerMilliamperes);
    json.key("drivers");
    writeDrivers(json, active);
    json.endObject();
}

void writeChanged(JsonWriter& json, const DeviceDifference& difference) {
    json.beginArray();
    const auto add = [&json](bool isDifferent, const char* word) {
        if (isDifferent) {
            json.value(word);
        }
    };
    add(difference.port, "port");
    add(difference.serialNumber, "serial");
    add(difference.speed, "speed");
    add(difference.configuration, "configuration");
    add(!difference.drivers.empty(), "driver");
    json.endArray();
}

}  // namespace

void writeDifferences(JsonWriter& json, const ListDifferences& differences) {
    json.beginObject();
    json.member("format_version", differencesFormatVersion);
    json.member("same", differences.areNone());
    json.key("differences");
    json.beginArray();
    for (const DeviceDifference& difference : differences.all()) {
        const Device& device = differences.deviceOf(difference);
        json.beginObject();
        json.member("kind", ListDifferences::kindOf(difference));
        json.textOrNull("id", idOf(device));
        json.member("vendor", device.manufacturer);
        json.member("product", device.product);
        json.key("changed");
        writeChanged(json, difference);
        json.key("before");
        writeSide(json, differences.before(), difference.before);
        json.key("after");
        writeSide(json, differences.after(), difference.after);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

}  // namespace usbhcdiag
