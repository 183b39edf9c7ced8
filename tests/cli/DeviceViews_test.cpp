// SPDX-License-Identifier: MIT
// Devices in words, as a tree, and chosen.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/DeviceFilter.h"
#include "cli/DeviceTexts.h"
#include "cli/DeviceTree.h"
#include "devicelist/DeviceListReader.h"
#include "options/UsageError.h"

namespace usbhcdiag {
namespace {

using devicelist::Device;

std::string topology(unsigned level, unsigned parent, unsigned port, unsigned number) {
    return "T:  Bus=01 Lev=0" + std::to_string(level) + " Prnt=0" + std::to_string(parent) +
           " Port=0" + std::to_string(port) + " Cnt=01 Dev#=  " + std::to_string(number) +
           " Spd=12   MxCh= 0\n";
}

std::string descriptor(const std::string& usbClass) {
    return "D:  Ver= 2.00 Cls=" + usbClass +
           "(x    ) Sub=00 Prot=00 MxPS=64 #Cfgs=  1\n"
           "P:  Vendor=046d ProdID=c00e Rev= 1.00\n";
}

std::string configuration(const std::string& mark, const std::vector<std::string>& interfaces) {
    std::string text = "C:" + mark + " #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\n";
    for (const std::string& interface : interfaces) {
        text += "I:" + mark + " If#= 0 Alt= 0 #EPs= 0 Cls=" + interface + "\n";
    }
    return text;
}

const char* const mouse = "03(HID  ) Sub=01 Prot=02 Driver=usbhid";
const char* const disk = "08(stor.) Sub=06 Prot=50 Driver=(none)";

Device deviceOf(const std::string& lines) {
    return devicelist::readDeviceList(topology(1, 1, 0, 2) + lines).devices.at(0);
}

TEST(DeviceTexts, SpeedsHaveAUnit) {
    Device device;
    EXPECT_EQ(speedText(device), "-");
    for (const auto& [speed, text] : {std::pair<double, const char*>{1.5, "1.5 Mb/s"},
                                      {480, "480 Mb/s"},
                                      {10000, "10000 Mb/s"},
                                      {99999999, "99999999 Mb/s"}}) {
        device.speed = speed;
        EXPECT_EQ(speedText(device), text);
    }
}

TEST(DeviceTexts, TheClassIsTheDevicesOrThatOfItsInterfaces) {
    EXPECT_EQ(classesText(deviceOf(descriptor("09") + configuration("*", {mouse}))), "hub");
    EXPECT_EQ(classesText(deviceOf(descriptor("00") + configuration("*", {mouse, disk, mouse}))),
              "human interface, mass storage");
    EXPECT_EQ(classesText(deviceOf(descriptor("ef") + configuration(" ", {disk}))), "mass storage");
    EXPECT_EQ(classesText(deviceOf(descriptor("ef"))), "miscellaneous");
    EXPECT_EQ(classesText(deviceOf(descriptor("58"))), "class 58");
    EXPECT_EQ(classesText(deviceOf("")), "-");
}

TEST(DeviceTexts, DriversAreThoseOfTheActiveConfiguration) {
    EXPECT_EQ(driversText(deviceOf(configuration("*", {mouse, disk, mouse}))), "usbhid, (none)");
    EXPECT_EQ(driversText(deviceOf(configuration(" ", {mouse}))), "not configured");
    EXPECT_EQ(driversText(deviceOf("")), "-");
}

TEST(DeviceTexts, NamesThatTheDeviceDoesNotGiveStandInBrackets) {
    const HardwareNames::Names known = {"Logitech, Inc.", "M-BJ58"};
    Device device;
    EXPECT_EQ(nameText(device, {}), "-");
    EXPECT_EQ(nameText(device, known), "[Logitech, Inc.] [M-BJ58]");
    device.product = "Mouse";
    EXPECT_EQ(nameText(device, known), "[Logitech, Inc.] Mouse");
    EXPECT_EQ(nameText(device, {}), "Mouse");
    device.manufacturer = " ";
    EXPECT_EQ(nameText(device, known), "[Logitech, Inc.] Mouse");
    device.manufacturer = "Logi";
    EXPECT_EQ(nameText(device, known), "Logi Mouse");
}

TEST(DeviceTexts, ThePathOfTheHub) {
    EXPECT_EQ(parentPath("1-2.3.4"), "1-2.3");
    EXPECT_EQ(parentPath("1-2.3"), "1-2");
    EXPECT_EQ(parentPath("12-2"), "usb12");
    EXPECT_EQ(parentPath("usb1"), "");
    EXPECT_EQ(parentPath(""), "");
}

DeviceFilter filterWithId(const std::string& id) {
    DeviceFilter filter;
    filter.setId(id);
    return filter;
}

TEST(DeviceFilter, WithoutConditionsEveryDeviceIsWanted) {
    EXPECT_TRUE(DeviceFilter().accepts(Device(), false));
}

TEST(DeviceFilter, ById) {
    const Device device = deviceOf(descriptor("00"));
    for (const char* const id : {"046d", "046D", "046d:c00e", "046D:C00E"}) {
        EXPECT_TRUE(filterWithId(id).accepts(device, false)) << id;
    }
    for (const char* const id : {"046e", "046d:c00f", "c00e", "046e:c00e"}) {
        EXPECT_FALSE(filterWithId(id).accepts(device, false)) << id;
    }
    EXPECT_FALSE(filterWithId("046d").accepts(Device(), false));
    for (const char* const id :
         {"", ":", "46d", "046d:", ":c00e", "0046d", "046x", "046d:c00e:1", "046d c00e"}) {
        EXPECT_THROW(filterWithId(id), options::UsageError) << id;
    }
}

TEST(DeviceFilter, ByBus) {
    DeviceFilter filter;
    filter.setBus("1");
    EXPECT_TRUE(filter.accepts(deviceOf(""), false));
    EXPECT_FALSE(filter.accepts(Device(), false));
    filter.setBus("2");
    EXPECT_FALSE(filter.accepts(deviceOf(""), false));
    for (const char* const bus : {"", "x", "-1", "1.", "99999999999"}) {
        EXPECT_THROW(filter.setBus(bus), options::UsageError) << bus;
    }
}

TEST(DeviceFilter, ByClassInWordsAbbreviatedOrInDigits) {
    const Device device = deviceOf(descriptor("00") + configuration("*", {mouse, disk}));
    DeviceFilter filter;
    for (const char* const name : {"human interface", "Human Interface", "hid", "HID", "03",
                                   "mass storage", "stor.", "08"}) {
        filter.usbClass = name;
        EXPECT_TRUE(filter.accepts(device, false)) << name;
    }
    for (const char* const name : {"", "human", "hub", "3", "003", "00", "09"}) {
        filter.usbClass = name;
        EXPECT_FALSE(filter.accepts(device, false)) << name;
    }
}

TEST(DeviceFilter, ByDriverAndByProblem) {
    const Device device = deviceOf(configuration("*", {mouse, disk}));
    DeviceFilter filter;
    filter.driver = "usbhid";
    EXPECT_TRUE(filter.accepts(device, false));
    filter.driver = "(none)";
    EXPECT_TRUE(filter.accepts(device, false));
    filter.driver = "usb";
    EXPECT_FALSE(filter.accepts(device, false));
    DeviceFilter problems;
    problems.onlyProblems = true;
    EXPECT_TRUE(problems.accepts(device, true));
    EXPECT_FALSE(problems.accepts(device, false));
}

const std::string tree = topology(0, 0, 0, 1) + "S:  SerialNumber=0000:00:14.0\n" +
                         topology(1, 1, 0, 2) + topology(2, 2, 2, 3) + topology(2, 2, 3, 4) +
                         topology(1, 1, 1, 5);

std::string drawn(const std::string& text, std::vector<std::size_t> wanted) {
    const devicelist::DeviceList list = devicelist::readDeviceList(text);
    std::vector<std::string> texts;
    for (const Device& device : list.devices) {
        texts.push_back(std::to_string(*device.number));
    }
    return treeOf(list, wanted, texts);
}

TEST(DeviceTree, DevicesStandBelowTheirHubsAndControllers) {
    EXPECT_EQ(drawn(tree, {0, 1, 2, 3, 4}),
              "0000:00:14.0\n"
              "└─ usb1  1\n"
              "   ├─ 1-1  2\n"
              "   │  ├─ 1-1.3  3\n"
              "   │  └─ 1-1.4  4\n"
              "   └─ 1-2  5\n");
}

TEST(DeviceTree, TheHubsThatLeadToADeviceAreShownWithIt) {
    EXPECT_EQ(drawn(tree, {3}),
              "0000:00:14.0\n"
              "└─ usb1  1\n"
              "   └─ 1-1  2\n"
              "      └─ 1-1.4  4\n");
    EXPECT_EQ(drawn(tree, {}), "");
}

TEST(DeviceTree, ADeviceWhoseHubIsMissingIsNotLost) {
    EXPECT_EQ(drawn(topology(2, 7, 0, 3) + topology(1, 1, 4, 9), {0, 1}),
              "at hubs that the list does not show\n"
              "├─ ?  3\n"
              "└─ 1-5  9\n");
}

TEST(DeviceTree, ADeviceThatIsListedTwiceIsShownTwice) {
    EXPECT_EQ(drawn(topology(0, 0, 0, 1) + topology(0, 0, 0, 1) + topology(1, 1, 0, 2), {0, 1, 2}),
              "usb1\n"
              "├─ usb1  1\n"
              "└─ usb1  1\n"
              "   └─ 1-1  2\n");
}

}  // namespace
}  // namespace usbhcdiag
