// SPDX-License-Identifier: MIT
// What every kind of line becomes, and what is said of lines that no kernel prints.
#include "devicelist/DeviceListReader.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace devicelist {
namespace {

const std::string rootHub =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 8\n"
    "B:  Alloc= 14/800 us ( 2%), #Int=  3, #Iso=  1\n"
    "D:  Ver= 2.00 Cls=09(hub  ) Sub=00 Prot=01 MxPS=64 #Cfgs=  1\n"
    "P:  Vendor=1d6b ProdID=0002 Rev= 6.01\n"
    "S:  Manufacturer=Linux 6.1.0 xhci-hcd\n"
    "S:  Product=xHCI Host Controller\n"
    "S:  SerialNumber=0000:00:14.0\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=e0 MxPwr=  0mA\n"
    "I:* If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=256ms\n";

std::string topology(unsigned level, unsigned parent, unsigned port, unsigned number) {
    return "T:  Bus=01 Lev=" + std::to_string(level) + " Prnt=" + std::to_string(parent) +
           " Port=" + std::to_string(port) + " Cnt=01 Dev#=" + std::to_string(number) +
           " Spd=12 MxCh=4\n";
}

/// "line: text" of each problem.
std::vector<std::string> problemsOf(const DeviceList& list) {
    std::vector<std::string> texts;
    for (const Problem& problem : list.problems) {
        texts.push_back(std::to_string(problem.line) + ": " + problem.text);
    }
    return texts;
}

std::vector<std::string> problemsOf(const std::string& text) {
    return problemsOf(readDeviceList(text));
}

std::vector<std::string> portPathsOf(const std::string& text) {
    std::vector<std::string> paths;
    for (const Device& device : readDeviceList(text).devices) {
        paths.push_back(device.portPath);
    }
    return paths;
}

using Texts = std::vector<std::string>;

TEST(DeviceListReader, ReadsARootHub) {
    const DeviceList list = readDeviceList("\n" + rootHub);
    ASSERT_EQ(list.devices.size(), 1U);
    EXPECT_TRUE(list.problems.empty());
    const Device& device = list.devices[0];
    EXPECT_EQ(device.bus, 1U);
    EXPECT_EQ(device.level, 0U);
    EXPECT_EQ(device.parentNumber, 0U);
    EXPECT_EQ(device.port, 0U);
    EXPECT_EQ(device.count, 0U);
    EXPECT_EQ(device.number, 1U);
    EXPECT_EQ(device.speed, 480);
    EXPECT_EQ(device.maxChildren, 8U);
    EXPECT_EQ(device.portPath, "usb1");
    ASSERT_TRUE(device.bandwidth.has_value());
    EXPECT_EQ(device.bandwidth->allocatedMicroseconds, 14);
    EXPECT_EQ(device.bandwidth->availableMicroseconds, 800);
    EXPECT_EQ(device.bandwidth->percent, 2);
    EXPECT_EQ(device.bandwidth->interruptRequests, 3);
    EXPECT_EQ(device.bandwidth->isochronousRequests, 1);
    EXPECT_EQ(device.usbVersion, 0x0200);
    EXPECT_EQ(device.usbClass.code, 9);
    EXPECT_EQ(device.usbClass.name, "hub");
    EXPECT_EQ(device.usbClass.subclass, 0);
    EXPECT_EQ(device.usbClass.protocol, 1);
    EXPECT_EQ(device.maxPacketSize, 64U);
    EXPECT_EQ(device.configurationCount, 1U);
    EXPECT_EQ(device.vendorId, 0x1d6b);
    EXPECT_EQ(device.productId, 2);
    EXPECT_EQ(device.release, 0x0601);
    EXPECT_EQ(device.manufacturer, "Linux 6.1.0 xhci-hcd");
    EXPECT_EQ(device.product, "xHCI Host Controller");
    EXPECT_EQ(device.serialNumber, "0000:00:14.0");
    EXPECT_FALSE(device.truncated);
    EXPECT_EQ(device.line, 2U);
    EXPECT_EQ(device.offset, 1U);
}

TEST(DeviceListReader, ReadsConfigurationsInterfacesAndEndpoints) {
    const DeviceList list = readDeviceList(
        "T:  Bus=02 Lev=01 Prnt=01 Port=02 Cnt=01 Dev#= 12 Spd=1.5  MxCh= 0\n"
        "C:  #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\n"
        "I:  If#= 0 Alt= 0 #EPs= 0 Cls=ff(vend.) Sub=ff Prot=ff Driver=\n"
        "C:* #Ifs= 2 Cfg#=128 Atr=c0 MxPwr=896mA\n"
        "A:  FirstIf#= 0 IfCount= 2 Cls=0e(video) Sub=03 Prot=04\n"
        "I:  If#= 0 Alt= 0 #EPs= 1 Cls=0e(video) Sub=01 Prot=00 Driver=Philips webcam\n"
        "E:  Ad=02(O) Atr=0d(Isoc) MxPS=1023 Ivl=125us\n"
        "I:* If#= 0 Alt= 1 #EPs= 2 Cls=0e(video) Sub=01 Prot=00 Driver=Philips webcam\n"
        "E:  Ad=83(I) Atr=02(Bulk) MxPS= 512 Ivl=0ms\n"
        "E:  Ad=04(B) Atr=00(Ctrl) MxPS=   8 Ivl=0ms\n"
        "I:* If#= 1 Alt= 0 #EPs= 0 Cls=58(unk. ) Sub=42 Prot=00 Driver=(none)\n");
    ASSERT_EQ(list.devices.size(), 1U);
    const auto& configurations = list.devices[0].configurations;
    ASSERT_EQ(configurations.size(), 2U);
    EXPECT_FALSE(configurations[0].active);
    EXPECT_EQ(configurations[0].maxPowerMilliamperes, 100U);
    ASSERT_EQ(configurations[0].interfaces.size(), 1U);
    EXPECT_EQ(configurations[0].interfaces[0].driver, "");

    EXPECT_TRUE(configurations[1].active);
    EXPECT_TRUE(configurations[1].listed);
    EXPECT_EQ(configurations[1].interfaceCount, 2U);
    EXPECT_EQ(configurations[1].value, 128U);
    EXPECT_EQ(configurations[1].attributes, 0xc0);
    EXPECT_EQ(configurations[1].maxPowerMilliamperes, 896U);
    ASSERT_EQ(configurations[1].associations.size(), 1U);
    EXPECT_EQ(configurations[1].associations[0].firstInterface, 0U);
    EXPECT_EQ(configurations[1].associations[0].interfaceCount, 2U);
    EXPECT_EQ(configurations[1].associations[0].usbClass.name, "video");
    EXPECT_EQ(configurations[1].associations[0].usbClass.protocol, 4);

    const auto& interfaces = configurations[1].interfaces;
    ASSERT_EQ(interfaces.size(), 3U);
    EXPECT_FALSE(interfaces[0].active);
    EXPECT_TRUE(interfaces[1].active);
    EXPECT_EQ(interfaces[1].number, 0U);
    EXPECT_EQ(interfaces[1].alternate, 1U);
    EXPECT_EQ(interfaces[1].endpointCount, 2U);
    EXPECT_EQ(interfaces[1].driver, "Philips webcam");
    EXPECT_EQ(interfaces[2].usbClass.code, 0x58);
    EXPECT_EQ(interfaces[2].usbClass.name, "unk.");
    EXPECT_EQ(interfaces[2].driver, "(none)");

    const Endpoint& out = interfaces[0].endpoints.at(0);
    EXPECT_EQ(out.address, 0x02);
    EXPECT_EQ(out.direction(), Endpoint::Direction::out);
    EXPECT_EQ(out.attributes, 0x0d);
    EXPECT_EQ(out.type(), Endpoint::Type::isochronous);
    EXPECT_EQ(out.maxPacketSize, 1023U);
    EXPECT_EQ(out.intervalMicroseconds, 125);
    ASSERT_EQ(interfaces[1].endpoints.size(), 2U);
    EXPECT_EQ(interfaces[1].endpoints[0].direction(), Endpoint::Direction::in);
    EXPECT_EQ(interfaces[1].endpoints[0].type(), Endpoint::Type::bulk);
    EXPECT_EQ(interfaces[1].endpoints[1].direction(), Endpoint::Direction::both);
    EXPECT_EQ(problemsOf(list),
              Texts{"1: device 1 of bus 2 at level 0, which it is attached to, is "
                    "not listed before it"});
}

TEST(DeviceListReader, KnowsEverySpeed) {
    const auto speedOf = [](const std::string& text) {
        const DeviceList list = readDeviceList(
            "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 "
            "Spd=" +
            text + " MxCh= 0\n");
        EXPECT_TRUE(list.problems.empty()) << text;
        return list.devices.at(0).speed;
    };
    EXPECT_EQ(speedOf("1.5 "), 1.5);
    EXPECT_EQ(speedOf("12  "), 12.0);
    EXPECT_EQ(speedOf("480 "), 480.0);
    EXPECT_EQ(speedOf("5000"), 5000.0);
    EXPECT_EQ(speedOf("10000"), 10000.0);
    EXPECT_EQ(speedOf("20000"), 20000.0);
    EXPECT_EQ(speedOf("??  "), std::nullopt);
}

TEST(DeviceListReader, ReadsOldKernels) {
    const DeviceList list = readDeviceList(
        "T:  Bus=02 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  3 Spd=12  MxCh= 2\n"
        "B:  Alloc=-12/900 us (-1%), #Int= -1, #Iso=  0\n"
        "P:  Vendor=0000 ProdID=0000 Rev= a.0f\n"
        "C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA\n"
        "I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00\n"
        "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl= 10ms\n");
    EXPECT_EQ(problemsOf(list), Texts{});
    const Device& device = list.devices.at(0);
    EXPECT_EQ(device.bandwidth->allocatedMicroseconds, -12);
    EXPECT_EQ(device.bandwidth->percent, -1);
    EXPECT_EQ(device.bandwidth->interruptRequests, -1);
    EXPECT_EQ(device.release, 0x0a0f);
    const Interface& interface = device.configurations.at(0).interfaces.at(0);
    EXPECT_EQ(interface.driver, std::nullopt);
    EXPECT_EQ(interface.endpoints.at(0).intervalMicroseconds, 10000);
}

TEST(DeviceListReader, NamesDevicesAsSysfsDoes) {
    EXPECT_EQ(portPathsOf(topology(0, 0, 0, 1) + topology(1, 1, 1, 2) + topology(2, 2, 2, 3) +
                          topology(3, 3, 14, 4) + topology(1, 1, 0, 5) + topology(2, 5, 0, 6)),
              (Texts{"usb1", "1-2", "1-2.3", "1-2.3.15", "1-1", "1-1.1"}));
    EXPECT_EQ(portPathsOf("T:  Bus=012 Lev=00\n"), Texts{"usb12"});
}

TEST(DeviceListReader, DoesNotGuessWhereADeviceIsAttached) {
    EXPECT_EQ(portPathsOf(topology(1, 1, 3, 2)), Texts{"1-4"}) << "at the only root hub there is";
    EXPECT_EQ(portPathsOf(topology(2, 2, 3, 3)), Texts{""});
    EXPECT_EQ(portPathsOf(topology(0, 0, 0, 1) + topology(2, 1, 3, 3)), (Texts{"usb1", ""}));
    EXPECT_EQ(
        problemsOf(topology(0, 0, 0, 1) + topology(2, 1, 3, 3)),
        Texts{"2: device 1 of bus 1 at level 1, which it is attached to, is not listed before "
              "it"});
    EXPECT_EQ(portPathsOf(topology(2, 2, 3, 3) + topology(3, 3, 3, 4)), (Texts{"", ""}));
    EXPECT_EQ(portPathsOf("T:  Bus=01 Lev=01 Prnt=01\n"), Texts{""});
    EXPECT_EQ(portPathsOf("T:  Bus=01 Lev=2147483647 Prnt=01 Port=00\n"), Texts{""});
    std::string chain = topology(0, 0, 0, 1);
    for (unsigned level = 1; level < 100; ++level) {
        chain += topology(level, level, 0, level + 1);
    }
    const Texts paths = portPathsOf(chain);
    EXPECT_EQ(paths.at(6), "1-1.1.1.1.1.1");
    EXPECT_EQ(paths.at(7), "") << "deeper than USB goes";
    EXPECT_EQ(paths.at(99), "");
}

TEST(DeviceListReader, OfTwoListsInOneEachDeviceHasItsOwnParent) {
    EXPECT_EQ(portPathsOf(topology(0, 0, 0, 1) + topology(1, 1, 0, 2) + topology(2, 2, 0, 3) +
                          topology(0, 0, 0, 1) + topology(1, 1, 6, 2) + topology(2, 2, 0, 3)),
              (Texts{"usb1", "1-1", "1-1.1", "usb1", "1-7", "1-7.1"}));
}

TEST(DeviceListReader, LineEndsOfAnotherSystemAreLineEnds) {
    std::string text = "\n" + rootHub + "\n" + topology(1, 1, 0, 2) + "S:  Product=x\n";
    const DeviceList list = readDeviceList(text);
    for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) {
        text.insert(at, 1, '\r');
    }
    const DeviceList same = readDeviceList(text);
    EXPECT_EQ(same.devices, list.devices);
    EXPECT_EQ(same.devices.at(1).line, 13U);
    EXPECT_TRUE(same.problems.empty());
}

TEST(DeviceListReader, ACarriageReturnOfADeviceIsItsOwn) {
    const DeviceList list = readDeviceList(topology(0, 0, 0, 1) + "S:  Product=a\rb\r\n");
    EXPECT_EQ(list.devices.at(0).product, "a\rb\r");
}

TEST(DeviceListReader, TabsAreBlanks) {
    const std::string withBlanks =
        "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 8\n"
        "P:  Vendor=1d6b ProdID=0002 Rev= 6.01\n"
        "S:  Product=x\n"
        "C:* #Ifs= 1 Cfg#= 1 Atr=e0 MxPwr=  0mA\n"
        "I:* If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
        "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=256ms\n";
    std::string withTabs = withBlanks;
    for (char& character : withTabs) {
        character = character == ' ' ? '\t' : character;
    }
    withTabs.replace(withTabs.find("(hub\t\t)"), 7, "(hub)");
    const DeviceList list = readDeviceList(withTabs);
    EXPECT_EQ(list.devices, readDeviceList(withBlanks).devices);
    EXPECT_EQ(problemsOf(list), Texts{});
}

TEST(DeviceListReader, AMissingLastLineFeedChangesNothing) {
    EXPECT_EQ(readDeviceList(rootHub.substr(0, rootHub.size() - 1)).devices,
              readDeviceList(rootHub).devices);
}

TEST(DeviceListReader, StringsAreBytes) {
    const std::string bytes("\xe4\0\x1b[31m \t=\xff", 12);
    const DeviceList list =
        readDeviceList(topology(0, 0, 0, 1) + "S:  Manufacturer=" + bytes + "\nS:  Product=\n");
    EXPECT_EQ(list.devices.at(0).manufacturer, bytes);
    EXPECT_EQ(list.devices.at(0).product, "");
    EXPECT_EQ(list.devices.at(0).serialNumber, std::nullopt);
    EXPECT_TRUE(list.problems.empty());
}

TEST(DeviceListReader, ZeroBytesDoNotEndTheList) {
    const DeviceList list = readDeviceList(topology(0, 0, 0, 1) + std::string(3, '\0') + "\n" +
                                           topology(1, 1, 0, 2) + std::string(3, '\0'));
    EXPECT_EQ(list.devices.size(), 2U);
    EXPECT_EQ(problemsOf(list), (Texts{"2: nothing that a device list has there",
                                       "4: nothing that a device list has there"}));
}

TEST(DeviceListReader, AnEmptyListHasNothing) {
    for (const char* const text : {"", "\n", "\r\n\n \t\n"}) {
        const DeviceList list = readDeviceList(text);
        EXPECT_TRUE(list.devices.empty());
        EXPECT_TRUE(list.unknownLines.empty());
        EXPECT_TRUE(list.problems.empty());
    }
}

TEST(DeviceListReader, KeepsTheLinesThatItDoesNotKnow) {
    const DeviceList list =
        readDeviceList("# mine\nP:  Vendor=1234\n\nxyz\n" + topology(0, 0, 0, 1) +
                       "Q:  x\r\nS:  Colour=red\n" + topology(1, 1, 0, 2) + "T;\n\n");
    ASSERT_EQ(list.unknownLines.size(), 3U);
    EXPECT_EQ(list.unknownLines[0].firstLine, 1U);
    EXPECT_EQ(list.unknownLines[0].text, "# mine\nP:  Vendor=1234\n\nxyz\n");
    EXPECT_EQ(list.unknownLines[1].firstLine, 6U);
    EXPECT_EQ(list.unknownLines[1].text, "Q:  x\r\nS:  Colour=red\n");
    EXPECT_EQ(list.unknownLines[2].firstLine, 9U);
    EXPECT_EQ(list.unknownLines[2].text, "T;\n");
    EXPECT_EQ(problemsOf(list), (Texts{"1: nothing that a device list has there, in 3 lines",
                                       "6: nothing that a device list has there, in 2 lines",
                                       "9: nothing that a device list has there"}));
    EXPECT_EQ(list.problems[0].kind, Problem::Kind::unknownLines);
}

TEST(DeviceListReader, OfADescriptionGivenTwiceTheFirstCounts) {
    const std::string second =
        "B:  Alloc=  1/900 us ( 0%), #Int=  0, #Iso=  0\n"
        "D:  Ver= 1.00\n"
        "P:  Vendor=ffff\n"
        "S:  Manufacturer=x\n"
        "S:  Product=x\n"
        "S:  SerialNumber=x\n";
    const DeviceList list = readDeviceList(rootHub + second);
    EXPECT_EQ(list.devices, readDeviceList(rootHub).devices);
    ASSERT_EQ(list.unknownLines.size(), 1U);
    EXPECT_EQ(list.unknownLines[0].text, second);
}

TEST(DeviceListReader, TellsWhatIsWrongWithALine) {
    const std::string start = topology(0, 0, 0, 1);
    EXPECT_EQ(problemsOf("T:  Bus=01 Lev=0x Port=00 Cnt=-1 Dev#= Spd=12.34 MxCh=99999999999\n"),
              Texts{"1: \"Lev=\" is unreadable, \"Prnt=\" is missing, \"Cnt=\" is unreadable, "
                    "\"Dev#=\" is unreadable, \"Spd=\" is unreadable, \"MxCh=\" is unreadable"});
    EXPECT_EQ(problemsOf(start + "B:  Alloc= 14/ us ( 2), #Int=x\n"),
              Texts{"2: nothing that a device list has there"});
    EXPECT_EQ(problemsOf(start + "B:  Alloc= 14/900 us ( 2), #Int=1\n"),
              Texts{"2: \"us (\" is unreadable, \"#Iso=\" is missing"});
    EXPECT_EQ(problemsOf(start + "D:  Ver= 2.0 Cls=100(hub) Sub=g0 Prot=00 MxPS=64 #Cfgs=0\n"),
              Texts{"2: \"Ver=\" is unreadable, \"Cls=\" is unreadable, \"Sub=\" is unreadable"});
    EXPECT_EQ(problemsOf(start + "P:  Vendor=12345 ProdID=0002 Rev= 6,01\n"),
              Texts{"2: \"Vendor=\" is unreadable, \"Rev=\" is unreadable"});
    EXPECT_EQ(problemsOf(start + "C:* #Ifs=0 Cfg#=1 Atr=e0 MxPwr=100\n"),
              Texts{"2: \"MxPwr=\" is unreadable"});
    EXPECT_EQ(problemsOf(start + "C:* #Ifs=0 Cfg#=1 Atr=e0 MxPwr=100mA and more\n"),
              Texts{"2: it holds text of no known field"});
    EXPECT_EQ(problemsOf(start + "C:+ #Ifs=0 Cfg#=1 Atr=e0 MxPwr=100mA\n"),
              Texts{"2: it holds text of no known field"});
    EXPECT_EQ(
        problemsOf(start + "C:*\nI:* If#=0 Alt=0 #EPs=1 Cls=09 Sub=00 Prot=00 Driver=\n"
                           "E:  Ad=81(O) Atr=03(Bulk) MxPS=2 Ivl=2s\n"),
        (Texts{"2: \"#Ifs=\" is missing, \"Cfg#=\" is missing, \"Atr=\" is missing, \"MxPwr=\" "
               "is missing",
               "3: \"Cls=\" has no name",
               "4: \"Ivl=\" is unreadable, \"Ad=\" has a letter of another direction, \"Atr=\" "
               "has the name of another type"}));
}

TEST(DeviceListReader, ALabelWithinAWordIsNone) {
    const DeviceList list = readDeviceList(
        topology(0, 0, 0, 1) + "P:  MyVendor=1234 ProdID=0002 Rev= 6.01\n" +
        "C:* #Ifs= 0 Cfg#= 1 Atr=e0 MxPwr=  0mA\n" +
        "I:  If#= 0 Alt= 0 #EPs= 0 Cls=09(hub  ) Sub=00 Prot=00 NoDriver=x Driver=y\n");
    EXPECT_EQ(list.devices.at(0).vendorId, std::nullopt);
    EXPECT_EQ(list.devices.at(0).configurations.at(0).interfaces.at(0).driver, "y");
}

TEST(DeviceListReader, WhatCanBeReadOfADamagedLineIsThere) {
    const DeviceList list = readDeviceList(
        "T:  Bus=01 Lev=zz Dev#=  7 Spd=12\n"
        "P:  Vendor=046d ProdID=wxyz Rev= 1.00\n");
    const Device& device = list.devices.at(0);
    EXPECT_EQ(device.bus, 1U);
    EXPECT_EQ(device.level, std::nullopt);
    EXPECT_EQ(device.number, 7U);
    EXPECT_EQ(device.vendorId, 0x046d);
    EXPECT_EQ(device.productId, std::nullopt);
    EXPECT_EQ(device.release, 0x0100);
    EXPECT_EQ(list.problems.at(0).kind, Problem::Kind::damagedLine);
}

TEST(DeviceListReader, EveryTopologyLineIsADevice) {
    const DeviceList list = readDeviceList("T:\nP:  Vendor=1234\nT:xyz\nT:\n");
    ASSERT_EQ(list.devices.size(), 3U);
    EXPECT_EQ(list.devices[0].vendorId, 0x1234) << "nobody else's";
    EXPECT_EQ(list.devices[1].vendorId, std::nullopt);
}

TEST(DeviceListReader, AnInterfaceWithoutConfigurationIsKept) {
    const DeviceList list =
        readDeviceList(topology(0, 0, 0, 1) + "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=1ms\n" +
                       "I:  If#= 0 Alt= 0 #EPs= 0 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n");
    ASSERT_EQ(list.devices.at(0).configurations.size(), 1U);
    const Configuration& configuration = list.devices[0].configurations[0];
    EXPECT_FALSE(configuration.listed);
    ASSERT_EQ(configuration.interfaces.size(), 2U);
    EXPECT_FALSE(configuration.interfaces[0].listed);
    EXPECT_EQ(configuration.interfaces[0].endpoints.size(), 1U);
    EXPECT_TRUE(configuration.interfaces[1].listed);
    EXPECT_EQ(problemsOf(list), (Texts{"2: there is no \"C:\" line before it",
                                       "2: there is no \"I:\" line before it"}));
    EXPECT_EQ(list.problems[0].kind, Problem::Kind::missingLine);
}

TEST(DeviceListReader, ComparesWhatIsAnnouncedWithWhatIsListed) {
    std::string text = rootHub;
    text.replace(text.find("#Cfgs=  1"), 9, "#Cfgs=  2");
    text.replace(text.find("#Ifs= 1"), 7, "#Ifs= 3");
    text.replace(text.find("#EPs= 1"), 7, "#EPs= 0");
    EXPECT_EQ(
        problemsOf(text + topology(1, 1, 0, 2)),
        (Texts{"3: \"#Cfgs=\" announces 2, but 1 follow", "8: \"#Ifs=\" announces 3, but 1 follow",
               "9: \"#EPs=\" announces 0, but 1 follow"}));
    EXPECT_EQ(readDeviceList(text).problems.at(0).kind, Problem::Kind::wrongCount);
}

TEST(DeviceListReader, AlternateSettingsAreOneInterface) {
    std::string text = rootHub.substr(0, rootHub.find("I:*"));
    const std::string rest = " #EPs= 0 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n";
    text.replace(text.find("#Ifs= 1"), 7, "#Ifs= 2");
    text += "I:* If#= 0 Alt= 0" + rest + "I:  If#= 0 Alt= 1" + rest + "I:  If#= 4 Alt= 0" + rest;
    EXPECT_EQ(problemsOf(text), Texts{});
}

TEST(DeviceListReader, ATruncatedDeviceNeedNotBeComplete) {
    const std::string cut = rootHub.substr(0, rootHub.find("E:")) + "(truncated)\n";
    const DeviceList list = readDeviceList(cut);
    EXPECT_TRUE(list.devices.at(0).truncated);
    ASSERT_EQ(problemsOf(list), Texts{"10: the kernel left out the rest of the device"});
    EXPECT_EQ(list.problems[0].kind, Problem::Kind::truncated);
    EXPECT_TRUE(list.unknownLines.empty());
    EXPECT_EQ(readDeviceList(cut + "(truncated)\n").unknownLines.size(), 1U);
    EXPECT_TRUE(readDeviceList("T:\r\n(truncated)\r\n").devices.at(0).truncated);
}

TEST(DeviceListReader, ReadsUpTo16MiB) {
    std::string text = rootHub + "S:  Colour=";
    text.resize(maximumListSize, 'x');
    EXPECT_EQ(readDeviceList(text).devices, readDeviceList(rootHub).devices);
    text += 'x';
    try {
        readDeviceList(text);
        FAIL() << "one byte too many";
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "the device list is longer than 16 MiB");
    }
}

TEST(DeviceListReader, AListOf16MiBIsReadWhole) {
    std::string text;
    unsigned number = 0;
    while (text.size() + rootHub.size() <= maximumListSize) {
        text += rootHub;
        ++number;
    }
    const DeviceList list = readDeviceList(text);
    EXPECT_EQ(list.devices.size(), number);
    EXPECT_TRUE(list.problems.empty());
}

TEST(DeviceListReader, MoreRecordsThanAListCanHaveAreNotRead) {
    std::string text = topology(0, 0, 0, 1);
    constexpr unsigned strangers = 1U << 17;
    for (unsigned count = 0; count < strangers; ++count) {
        text += "T:\n";
    }
    const DeviceList list = readDeviceList(text);
    EXPECT_EQ(list.devices.size(), strangers);
    EXPECT_EQ(list.problems.back().line, strangers + 1);
    EXPECT_EQ(list.problems.back().kind, Problem::Kind::tooManyRecords);
    EXPECT_EQ(list.problems.back().text, "no device list has more records; the rest is not read");
    EXPECT_EQ(list.unknownLines.back().firstLine, strangers + 1);
    EXPECT_EQ(list.unknownLines.back().text, "T:\n");

    std::string endpoints = topology(0, 0, 0, 1);
    constexpr unsigned most = 1U << 19;
    for (unsigned count = 0; count < most; ++count) {
        endpoints += "E:\n";
    }
    const DeviceList second = readDeviceList(endpoints);
    EXPECT_EQ(second.devices.at(0).configurations.at(0).interfaces.at(0).endpoints.size(),
              most - 1);
    EXPECT_EQ(second.problems.back().kind, Problem::Kind::tooManyRecords);
}

}  // namespace
}  // namespace devicelist
