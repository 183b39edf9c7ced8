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

}  // namespace
}  // namespace devicelist
