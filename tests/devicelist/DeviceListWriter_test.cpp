// SPDX-License-Identifier: MIT
// What a kernel printed comes back, byte for byte, from the records that were read of it.
#include "devicelist/DeviceListWriter.h"

#include <string>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "tests/devicelist/ListGenerator.h"
#include "tests/devicelist/RecordedLists.h"

namespace devicelist {
namespace {

struct Counts {
    std::size_t strings = 0;
    std::size_t configurations = 0;
    std::size_t associations = 0;
    std::size_t interfaces = 0;
    std::size_t endpoints = 0;
};

Counts countsOf(const DeviceList& list) {
    Counts counts;
    for (const Device& device : list.devices) {
        for (const auto& text : {device.manufacturer, device.product, device.serialNumber}) {
            counts.strings += text.has_value() ? 1 : 0;
        }
        counts.configurations += device.configurations.size();
        for (const Configuration& configuration : device.configurations) {
            counts.associations += configuration.associations.size();
            counts.interfaces += configuration.interfaces.size();
            for (const Interface& interface : configuration.interfaces) {
                counts.endpoints += interface.endpoints.size();
            }
        }
    }
    return counts;
}

/// Every line of an undamaged list is in a record, and the records make up the list.
void expectNothingLost(const std::string& text) {
    const DeviceList list = readDeviceList(text);
    const Counts counts = countsOf(list);
    EXPECT_EQ(list.devices.size(), countLines(text, "T:"));
    EXPECT_EQ(counts.strings, countLines(text, "S:"));
    EXPECT_EQ(counts.configurations, countLines(text, "C:"));
    EXPECT_EQ(counts.associations, countLines(text, "A:"));
    EXPECT_EQ(counts.interfaces, countLines(text, "I:"));
    EXPECT_EQ(counts.endpoints, countLines(text, "E:"));
    EXPECT_TRUE(list.unknownLines.empty());
    // Some recorded lists are single devices, cut out of longer ones.
    const bool isCutOut = text.find("Lev=00") == std::string::npos;
    for (const Problem& problem : list.problems) {
        EXPECT_TRUE(isCutOut && problem.kind == Problem::Kind::unknownParent)
            << problem.line << ": " << problem.text;
    }
    EXPECT_EQ(writeDeviceList(list), text);
}

void expectNothingLostOf(const std::vector<RecordedList>& lists) {
    EXPECT_FALSE(lists.empty());
    for (const RecordedList& list : lists) {
        SCOPED_TRACE(list.name);
        expectNothingLost(list.text);
    }
}

TEST(DeviceListWriter, SamplesComeBack) {
    expectNothingLostOf(recordedLists(ZORVA_SAMPLES));
}

TEST(DeviceListWriter, RecordedListsComeBack) {
    if (!std::filesystem::is_directory(ZORVA_CAPTURES)) {
        GTEST_SKIP() << "no recorded device lists at " << ZORVA_CAPTURES;
    }
    expectNothingLostOf(recordedLists(ZORVA_CAPTURES));
}

TEST(DeviceListWriter, GeneratedListsOfEveryKernelComeBack) {
    constexpr std::uint32_t lists = 40;
    for (const KernelForm& form : kernelForms()) {
        std::size_t devices = 0;
        for (std::uint32_t seed = 1; seed <= lists; ++seed) {
            SCOPED_TRACE(std::string("Linux ") + form.name + ", seed " + std::to_string(seed));
            const ListGenerator generated(seed, form);
            expectNothingLost(generated.text());
            std::vector<std::string> portPaths;
            for (const Device& device : readDeviceList(generated.text()).devices) {
                portPaths.push_back(device.portPath);
            }
            EXPECT_EQ(portPaths, generated.portPaths());
            devices += portPaths.size();
            if (testing::Test::HasFailure()) {
                return;
            }
        }
        EXPECT_GT(devices, lists) << "the generator makes something";
    }
}

TEST(DeviceListWriter, TheFormOfAListIsKept) {
    const std::string end = " MxCh= 0\n";
    const std::string start = "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=";
    for (const std::string& text : {
             start + "480" + end + start + "5000" + end,   // 2.6.35
             start + "5000" + end + start + "480 " + end,  // 2.6.38
             "\n" + start + "480 " + end + start + "12  " + end,
             start + "480 " + end + "\n" + start + "12  " + end,
             start + "??  " + end + "(truncated)\n",
         }) {
        EXPECT_EQ(writeDeviceList(readDeviceList(text)), text);
    }
}

TEST(DeviceListWriter, WhatAListDoesNotTellIsNotWritten) {
    const std::string text =
        "T:  Lev=00 Spd=??  \n"
        "B:  #Iso=  2\n"
        "D:  Sub=0f\n"
        "C:*\n"
        "A:  IfCount= 2\n"
        "I:  Driver=\n"
        "E:  MxPS=   8\n"
        "T:  Bus=01 Spd=480 \n"
        "E:  Ad=80(I)\n";
    const DeviceList list = readDeviceList(text);
    EXPECT_EQ(list.devices.at(0).level, 0U);
    EXPECT_EQ(writeDeviceList(list), text);
}

TEST(DeviceListWriter, RecordsOfOurOwnAreWrittenAsTodaysKernelDoes) {
    Device device;
    device.bus = 3;
    device.level = 1;
    device.parentNumber = 1;
    device.port = 4;
    device.count = 2;
    device.number = 17;
    device.speed = 1.5;
    device.maxChildren = 0;
    device.usbVersion = 0x0110;
    device.vendorId = 0x46d;
    device.productId = 0xc077;
    device.release = 0x7200;
    device.product = "USB Optical Mouse";
    Configuration configuration;
    configuration.active = true;
    configuration.maxPowerMilliamperes = 98;
    Endpoint endpoint;
    endpoint.address = 0x81;
    endpoint.attributes = 0x03;
    endpoint.intervalMicroseconds = 10000;
    Interface interface;
    interface.usbClass.code = 3;
    interface.usbClass.name = "HID";
    interface.driver = "(none)";
    interface.endpoints.push_back(endpoint);
    endpoint.attributes = 0x00;
    endpoint.intervalMicroseconds = 1125;
    interface.endpoints.push_back(endpoint);
    configuration.interfaces.push_back(interface);
    device.configurations.push_back(configuration);
    DeviceList list;
    list.devices.push_back(device);
    EXPECT_EQ(writeDeviceList(list),
              "\n"
              "T:  Bus=03 Lev=01 Prnt=01 Port=04 Cnt=02 Dev#= 17 Spd=1.5  MxCh= 0\n"
              "D:  Ver= 1.10\n"
              "P:  Vendor=046d ProdID=c077 Rev=72.00\n"
              "S:  Product=USB Optical Mouse\n"
              "C:* MxPwr= 98mA\n"
              "I:  Cls=03(HID  ) Driver=(none)\n"
              "E:  Ad=81(I) Atr=03(Int.) Ivl=10ms\n"
              "E:  Ad=81(B) Atr=00(Ctrl) Ivl=1125us\n");
}

}  // namespace
}  // namespace devicelist
