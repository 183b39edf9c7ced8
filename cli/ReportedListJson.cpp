// SPDX-License-Identifier: MIT
#include "cli/ReportedListJson.h"

#include "cli/DeviceTexts.h"

namespace usbhcdiag {
namespace {

/// The members that tell which device is meant.
void writePlace(JsonWriter& json, const ReportedList& reported, std::size_t position) {
    const devicelist::Device& device = reported.list().devices[position];
    json.member("position", position + 1);
    json.textOrNull("device", device.portPath);
    json.member("name", device.product);
    json.textOrNull("id", idOf(device));
}

void writeMixed(JsonWriter& json, const ReportedList& reported) {
    json.beginArray();
    for (std::size_t position = 0; position < reported.list().devices.size(); ++position) {
        if (!reported.coverage().devices[position].foreign.empty()) {
            json.beginObject();
            writePlace(json, reported, position);
            json.member("text", reported.whyMixed(position));
            json.endObject();
        }
    }
    json.endArray();
}

}  // namespace

void writeLeftOut(JsonWriter& json, const ReportedList& reported) {
    json.beginArray();
    for (std::size_t position = 0; position < reported.list().devices.size(); ++position) {
        const devicelist::DeviceCoverage& device = reported.coverage().devices[position];
        if (!device.isInReport()) {
            json.beginObject();
            writePlace(json, reported, position);
            json.member("reason", nameOf(*device.leftOut));
            json.member("text", reported.whyLeftOut(position));
            json.endObject();
        }
    }
    json.endArray();
}

void writeReportedList(JsonWriter& json, const ReportedList* list) {
    if (list == nullptr) {
        for (const char* member : {"devices_in_list", "devices_in_report", "left_out", "mixed"}) {
            json.member(member, nullptr);
        }
        return;
    }
    json.member("devices_in_list", list->list().devices.size());
    json.member("devices_in_report", list->coverage().devicesInReport());
    json.key("left_out");
    writeLeftOut(json, *list);
    json.key("mixed");
    writeMixed(json, *list);
}

}  // namespace usbhcdiag
