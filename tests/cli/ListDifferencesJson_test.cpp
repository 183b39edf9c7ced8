// SPDX-License-Identifier: MIT
#include "cli/ListDifferencesJson.h"

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "tests/cli/CompactJson.h"

namespace usbhcdiag {
namespace {

std::string between(const std::string& before, const std::string& after) {
    const ListDifferences differences(devicelist::readDeviceList(before),
                                      devicelist::readDeviceList(after));
    return compactJson([&](JsonWriter& json) { writeDifferences(json, differences); });
}

std::string device(const std::string& port, const std::string& driver) {
    return "T:  Bus=01 Lev=01 Prnt=01 Port=0" + port +
           " Cnt=01 Dev#=  2 Spd=1.5  MxCh= 0\n"
           "P:  Vendor=046d ProdID=c00e Rev= 1.00\n"
           "S:  Product=M\xFFuse\n"
           "C:* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\n"
           "I:* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=" +
           driver + "\n";
}

TEST(ListDifferencesJson, HasBothSidesOfADevice) {
    EXPECT_EQ(between(device("0", "usbhid"), device("1", "(none)")), compactJson(R"({
        "format_version": 1, "same": false, "differences": [
            {"kind": "moved", "id": "046d:c00e", "vendor": null, "product": "M\uFFFDuse",
             "changed": ["port", "driver"],
             "before": {"port_path": "1-1", "serial": null, "speed_mbps": 1.5, "configuration": 1,
                        "max_power_ma": 100, "drivers": {"0": "usbhid"}},
             "after": {"port_path": "1-2", "serial": null, "speed_mbps": 1.5, "configuration": 1,
                       "max_power_ma": 100, "drivers": {"0": null}}}]})"));
}

TEST(ListDifferencesJson, HasNullForASideThatIsNotThere) {
    const auto document = [](const std::string& kind, const std::string& before,
                             const std::string& after) {
        return compactJson(R"({"format_version": 1, "same": false, "differences": [
            {"kind": ")" + kind +
                           R"(", "id": null, "vendor": null, "product": null, "changed": [],
             "before": )" + before +
                           R"(, "after": )" + after + "}]}");
    };
    const std::string side = R"({"port_path": null, "serial": null, "speed_mbps": null,
        "configuration": null, "max_power_ma": null, "drivers": {}})";
    EXPECT_EQ(between("T:\n", ""), document("removed", side, "null"));
    EXPECT_EQ(between("", "T:\n"), document("added", "null", side));
}

TEST(ListDifferencesJson, HasADriverOnceForEachInterface) {
    const std::string settings =
        device("0", "usbhid") +
        "I:  If#= 0 Alt= 1 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=other\n"
        "I:* If#= 1 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=\n";
    EXPECT_NE(between("", settings).find(R"("drivers":{"0":"usbhid","1":null})"),
              std::string::npos);
}

TEST(ListDifferencesJson, SaysThatListsAreTheSame) {
    EXPECT_EQ(between("T:\n", "T:\n"),
              compactJson(R"({"format_version": 1, "same": true, "differences": []})"));
}

}  // namespace
}  // namespace usbhcdiag
