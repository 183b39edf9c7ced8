// SPDX-License-Identifier: MIT
#include "devicelist/DeviceDifference.h"

#include <string>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "tests/devicelist/RecordedLists.h"

namespace devicelist {
namespace {

/// A device that tests change in single facts.
struct Described {
    unsigned port = 0;
    std::string id = "046d ProdID=c00e";
    std::string serial = "S1";
    std::string speed = "480";
    std::string configuration = "* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA";
    std::string interface = "* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid";
};

DeviceList listOf(const std::vector<Described>& devices) {
    std::string text;
    for (const Described& device : devices) {
        text += "T:  Bus=01 Lev=01 Prnt=01 Port=0" + std::to_string(device.port) +
                " Cnt=01 Dev#=  2 Spd=" + device.speed + " MxCh= 0\n";
        text += "P:  Vendor=" + device.id + " Rev= 1.00\n";
        text += device.serial.empty() ? "" : "S:  SerialNumber=" + device.serial + "\n";
        text += "C:" + device.configuration + "\nI:" + device.interface + "\n";
    }
    return readDeviceList(text);
}

/// The differences in short: "0>" removed, ">1" added, "0>1 port speed" and so on.
std::vector<std::string> differences(const DeviceList& before, const DeviceList& after) {
    std::vector<std::string> texts;
    for (const DeviceDifference& difference : differencesBetween(before, after)) {
        std::string text = (difference.before ? std::to_string(*difference.before) : "") + ">" +
                           (difference.after ? std::to_string(*difference.after) : "");
        text += difference.port ? " port" : "";
        text += difference.serialNumber ? " serial" : "";
        text += difference.speed ? " speed" : "";
        text += difference.configuration ? " configuration" : "";
        for (const DriverChange& change : difference.drivers) {
            text += " driver" + (change.interface ? std::to_string(*change.interface) : "?") + ":" +
                    change.before.value_or("-") + ">" + change.after.value_or("-");
        }
        texts.push_back(text);
    }
    return texts;
}

using Texts = std::vector<std::string>;

/// The differences that a change of one fact makes.
template <typename Fact>
Texts changeOf(Fact Described::*fact, const Fact& value) {
    Described changed;
    changed.*fact = value;
    return differences(listOf({{}}), listOf({changed}));
}

TEST(DeviceDifference, OfAListAndItselfThereIsNone) {
    std::vector<RecordedList> lists = recordedLists(ZORVA_SAMPLES);
    if (*ZORVA_CAPTURES != '\0' && std::filesystem::is_directory(ZORVA_CAPTURES)) {
        for (RecordedList& recorded : recordedLists(ZORVA_CAPTURES)) {
            lists.push_back(std::move(recorded));
        }
    }
    ASSERT_FALSE(lists.empty());
    for (const RecordedList& recorded : lists) {
        const DeviceList list = readDeviceList(recorded.text);
        EXPECT_EQ(differences(list, list), Texts()) << recorded.name;
        // Every device stands twice, and no copy is taken for two.
        DeviceList twice = list;
        twice.devices.insert(twice.devices.end(), list.devices.begin(), list.devices.end());
        EXPECT_EQ(differences(twice, twice), Texts()) << recorded.name;
        EXPECT_EQ(differences(twice, list).size(), list.devices.size()) << recorded.name;
    }
}

TEST(DeviceDifference, WhatIsInOneListAloneWasRemovedOrAdded) {
    const DeviceList one = listOf({{0}});
    const DeviceList two = listOf({{0}, {1, "046d ProdID=c00f"}});
    EXPECT_EQ(differences(one, two), Texts({">1"}));
    EXPECT_EQ(differences(two, one), Texts({"1>"}));
    EXPECT_EQ(differences(DeviceList(), two), Texts({">0", ">1"}));
    EXPECT_EQ(differences(two, DeviceList()), Texts({"0>", "1>"}));
    // Another product at the same port, and the removed one comes first.
    EXPECT_EQ(changeOf(&Described::id, std::string("046e ProdID=c00e")), Texts({"0>", ">0"}));
}

TEST(DeviceDifference, TheSameDeviceAtAnotherPortHasMoved) {
    EXPECT_EQ(changeOf(&Described::port, 3U), Texts({"0>0 port"}));
    // Two that have changed places are known by their serial numbers.
    EXPECT_EQ(differences(listOf({{0}, {1, "046d ProdID=c00e", "S2"}}),
                          listOf({{0, "046d ProdID=c00e", "S2"}, {1}})),
              Texts({"1>0 port", "0>1 port"}));
}

TEST(DeviceDifference, WhatStaysIsNotTakenForWhatMoved) {
    Described at1{1};
    Described at2{2};
    Described at3{3};
    for (Described* device : {&at1, &at2, &at3}) {
        device->serial.clear();
    }
    EXPECT_EQ(differences(listOf({at1, at2}), listOf({at2, at3})), Texts({"0>1 port"}));
}

TEST(DeviceDifference, AnotherSerialNumberAtTheSamePort) {
    EXPECT_EQ(changeOf(&Described::serial, std::string("S2")), Texts({"0>0 serial"}));
    EXPECT_EQ(changeOf(&Described::serial, std::string()), Texts({"0>0 serial"}));
    // Somebody else has taken the place of one that moved.
    EXPECT_EQ(differences(listOf({{0}}), listOf({{0, "046d ProdID=c00e", "S2"}, {1}})),
              Texts({">0", "0>1 port"}));
}

TEST(DeviceDifference, DevicesWithoutIdAreKnownByTheirPortAlone) {
    const std::string start = "T:  Bus=01 Lev=01 Prnt=01 Cnt=01 Port=0";
    EXPECT_EQ(differences(readDeviceList(start + "0\n"), readDeviceList(start + "1\n")),
              Texts({"0>", ">0"}));
    EXPECT_EQ(differences(readDeviceList(start + "0\n"), readDeviceList(start + "0\n")), Texts());
}

TEST(DeviceDifference, AnotherSpeed) {
    EXPECT_EQ(changeOf(&Described::speed, std::string("12")), Texts({"0>0 speed"}));
    EXPECT_EQ(changeOf(&Described::speed, std::string("??")), Texts({"0>0 speed"}));
}

TEST(DeviceDifference, AnotherConfiguration) {
    const auto change = [](const std::string& text) {
        return changeOf(&Described::configuration, text);
    };
    const Texts different = {"0>0 configuration"};
    EXPECT_EQ(change("* #Ifs= 1 Cfg#= 2 Atr=80 MxPwr=100mA"), different);
    EXPECT_EQ(change("  #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA"), different);
    EXPECT_EQ(change("* #Ifs= 1 Cfg#= 1 Atr=c0 MxPwr=100mA"), different);
    EXPECT_EQ(change("* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=102mA"), different);
    EXPECT_EQ(changeOf(&Described::interface,
                       std::string("* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=00 Prot=02 "
                                   "Driver=usbhid")),
              different);
}

TEST(DeviceDifference, AnotherDriver) {
    const auto change = [](const std::string& text) {
        return changeOf(&Described::interface, text);
    };
    const std::string same = "* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 ";
    EXPECT_EQ(change(same + "Driver=(none)"), Texts({"0>0 driver0:usbhid>(none)"}));
    EXPECT_EQ(change(same), Texts({"0>0 driver0:usbhid>-"}));
    EXPECT_EQ(change(same + "Driver=usbhid\nI:* If#= 1 Alt= 0 Driver=uas"),
              Texts({"0>0 configuration driver1:->uas"}));
    Described two;
    two.interface = same + "Driver=usbhid\nI:* If#= 1 Alt= 0 Driver=uas";
    EXPECT_EQ(differences(listOf({two}), listOf({{}})), Texts({"0>0 configuration driver1:uas>-"}));
}

TEST(DeviceDifference, DriversOfAnotherConfigurationAreNotCompared) {
    Described other;
    other.configuration = "* #Ifs= 1 Cfg#= 2 Atr=80 MxPwr=100mA";
    other.interface = "* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=uas";
    EXPECT_EQ(differences(listOf({{}}), listOf({other})), Texts({"0>0 configuration"}));
}

TEST(DeviceDifference, WhatIsInUseOfAnInterfaceIsNotCompared) {
    EXPECT_EQ(changeOf(&Described::interface,
                       std::string("  If#= 0 Alt= 0 #EPs= 4 Cls=03(hid  ) Sub=01 Prot=02 "
                                   "Driver=usbhid\nE:  Ad=81(I)")),
              Texts());
}

TEST(DeviceDifference, AllThatIsDifferentOfADeviceIsTogether) {
    EXPECT_EQ(
        differences(listOf({{}}), listOf({{7, "046d ProdID=c00e", "S1", "12",
                                           "* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=500mA",
                                           "* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 "
                                           "Driver=(none)"}})),
        Texts({"0>0 port speed configuration driver0:usbhid>(none)"}));
}

}  // namespace
}  // namespace devicelist
