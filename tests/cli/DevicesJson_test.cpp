// SPDX-License-Identifier: MIT
// The object that stands for a list: every member, also where the list tells nothing.
#include "cli/DevicesJson.h"

#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "tests/cli/CompactJson.h"

namespace usbhcdiag {
namespace {

/// Without what the database of the machine that runs the test knows.
std::string withoutHardwareNames(const std::string& json) {
    static const std::regex names(R"re(("(vendor|product)_name":)("([^"\\]|\\.)*"|null))re");
    return std::regex_replace(json, names, "$1null");
}

std::string written(const std::string& list) {
    const ReportedList reported(list);
    return withoutHardwareNames(compactJson([&](JsonWriter& json) {
        writeDevices(json, {DeviceListSource::Kind::file, "list.txt", list}, reported);
    }));
}

TEST(DevicesJson, HasWhatTheListTells) {
    const std::string list =
        "T:  Bus=02 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 4\n"
        "S:  Manufacturer=Linux 6.1.0 ehci_hcd\n"
        "S:  Product=EHCI Host Controller\n"
        "S:  SerialNumber=0000:00:1d.7\n"
        "T:  Bus=02 Lev=01 Prnt=01 Port=02 Cnt=01 Dev#=  5 Spd=1.5  MxCh= 0\n"
        "D:  Ver= 2.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
        "P:  Vendor=046d ProdID=c00e Rev=11.0a\n"
        "S:  Product=M\xFFuse\n"
        "C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr= 98mA\n"
        "I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=02 Driver=(none)\n"
        "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms\n";
    EXPECT_EQ(written(list), compactJson(R"({
        "format_version": 1,
        "source": {"kind": "file", "path": "list.txt", "bytes": )" +
                                         std::to_string(list.size()) + R"(},
        "controllers": [{"device_id": "0000:00:1d.7", "name": "EHCI Host Controller",
                         "driver": "ehci_hcd", "buses": [2]}],
        "devices": [
            {"bus": 2, "number": 1, "parent": null, "port_path": "usb2", "level": 0, "id": null,
             "vendor_id": null, "product_id": null, "vendor": "Linux 6.1.0 ehci_hcd",
             "product": "EHCI Host Controller", "serial": "0000:00:1d.7", "vendor_name": null,
             "product_name": null, "usb_version": null, "device_version": null,
             "speed_mbps": 480.0, "max_power_ma": null, "configured": false, "interfaces": [],
             "in_report": false},
            {"bus": 2, "number": 5, "parent": "usb2", "port_path": "2-3", "level": 1,
             "id": "046d:c00e", "vendor_id": "046d", "product_id": "c00e", "vendor": null,
             "product": "M\uFFFDuse", "serial": null, "vendor_name": null, "product_name": null,
             "usb_version": "2.10", "device_version": "11.0a", "speed_mbps": 1.5,
             "max_power_ma": 98, "configured": true,
             "interfaces": [{"number": 0, "alternate": 0, "active": true, "class": "03",
                             "subclass": "01", "protocol": "02",
                             "class_name": "human interface", "driver": null,
                             "endpoints": [{"address": "81", "direction": "in",
                                            "type": "interrupt", "max_packet_bytes": 4,
                                            "interval": 10000}]}],
             "in_report": true}],
        "report": {"devices_in_list": 2, "devices_in_report": 1, "left_out": [
            {"position": 1, "device": "usb2", "name": "EHCI Host Controller", "id": null,
             "reason": "no_endpoint",
             "text": "no endpoint; its fields stand in the block of \"M\uFFFDuse\" (046d:c00e) at 2-3"}]},
        "problems": [{"device": "2-3", "kind": "unclaimed", "line": null,
                      "text": "interface 0 has no driver"}]
    })"));
}

TEST(DevicesJson, HasTheWantedDevicesAlone) {
    const std::string list = "T:  Bus=01 Lev=00\nT:  Bus=02 Lev=00\n";
    const ReportedList reported(list);
    const std::string json = compactJson([&](JsonWriter& writer) {
        writeDevices(writer, {DeviceListSource::Kind::file, "list.txt", list}, reported,
                     devicelist::findingsOf(reported.list()), {1}, HardwareNames());
    });
    EXPECT_EQ(json.find(R"({"bus":1,)"), std::string::npos);
    EXPECT_NE(json.find(R"({"bus":2,)"), std::string::npos);
    EXPECT_NE(json.find(R"("devices_in_list":2)"), std::string::npos);
}

TEST(DevicesJson, IsNullWhereTheListTellsNothing) {
    const std::string json = written("T:  Bus=x\nC:*\nI:  Driver=\nE:  Ad=x\n");
    const std::string device = compactJson(R"({
        "bus": null, "number": null, "parent": null, "port_path": null, "level": null, "id": null,
        "vendor_id": null, "product_id": null, "vendor": null, "product": null, "serial": null,
        "vendor_name": null, "product_name": null, "usb_version": null, "device_version": null,
        "speed_mbps": null, "max_power_ma": null, "configured": true,
        "interfaces": [{"number": null, "alternate": null, "active": false, "class": null,
                        "subclass": null, "protocol": null, "class_name": null, "driver": null,
                        "endpoints": [{"address": null, "direction": null, "type": null,
                                       "max_packet_bytes": null, "interval": null}]}],
        "in_report": true})");
    EXPECT_NE(json.find(R"("devices":[)" + device + "]"), std::string::npos) << json;
}

TEST(DevicesJson, OfAnEmptyListIsWhole) {
    EXPECT_EQ(written(""), compactJson(R"({
        "format_version": 1, "source": {"kind": "file", "path": "list.txt", "bytes": 0},
        "controllers": [], "devices": [],
        "report": {"devices_in_list": 0, "devices_in_report": 0, "left_out": []},
        "problems": []})"));
}

TEST(DevicesJson, AControllerHasAllItsBusesAndNoDriverThatTheKernelDoesNotName) {
    const std::string rootHub =
        " Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 4\n"
        "S:  Manufacturer=ehci_hcd\nS:  SerialNumber=0000:00:1d.7\n";
    const std::string json = written("T:  Bus=02" + rootHub + "T:  Bus=01" + rootHub);
    EXPECT_NE(json.find(R"("controllers":[{"device_id":"0000:00:1d.7","name":null,"driver":null,)"
                        R"("buses":[2,1]}])"),
              std::string::npos)
        << json;
}

}  // namespace
}  // namespace usbhcdiag
