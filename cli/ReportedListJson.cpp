// SPDX-License-Identifier: MIT
#include "cli/ReportedListJson.h"

#include <utility>

#include <nlohmann/json.hpp>

#include "cli/DeviceTexts.h"

namespace usbhcdiag {
namespace {

Json textOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json deviceOf(const ReportedList& reported, std::size_t position) {
    const devicelist::Device& device = reported.list().devices[position];
    Json object = Json::object();
    object["position"] = position + 1;
    object["device"] = textOrNull(device.portPath);
    object["name"] = device.product ? Json(*device.product) : Json();
    object["id"] = textOrNull(idOf(device));
    return object;
}

Json mixed(const ReportedList& reported) {
    Json array = Json::array();
    for (std::size_t position = 0; position < reported.list().devices.size(); ++position) {
        const auto& foreign = reported.coverage().devices[position].foreign;
        if (!foreign.empty()) {
            Json object = deviceOf(reported, position);
            object["text"] = reported.whyMixed(position);
            array.push_back(object);
        }
    }
    return array;
}

}  // namespace

void forEachLeftOut(const ReportedList& reported, const std::function<void(Json&&)>& use) {
    for (std::size_t position = 0; position < reported.list().devices.size(); ++position) {
        const devicelist::DeviceCoverage& device = reported.coverage().devices[position];
        if (!device.isInReport()) {
            Json object = deviceOf(reported, position);
            object["reason"] = nameOf(*device.leftOut);
            object["text"] = reported.whyLeftOut(position);
            use(std::move(object));
        }
    }
}

Json leftOutOf(const ReportedList& reported) {
    Json array = Json::array();
    forEachLeftOut(reported, [&array](Json&& object) { array.push_back(std::move(object)); });
    return array;
}

void addReportedList(Json& document, const ReportedList* list) {
    document["devices_in_list"] = list == nullptr ? Json() : Json(list->list().devices.size());
    document["devices_in_report"] =
        list == nullptr ? Json() : Json(list->coverage().devicesInReport());
    document["left_out"] = list == nullptr ? Json() : leftOutOf(*list);
    document["mixed"] = list == nullptr ? Json() : mixed(*list);
}

}  // namespace usbhcdiag
