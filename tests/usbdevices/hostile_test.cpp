// SPDX-License-Identifier: MIT
// Lists that no kernel prints: truncated, changed and random ones.
// Each must be read to its end; the sanitizer builds detect memory errors.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include <gtest/gtest.h>

#include "tests/usbdevices/readList.h"
#include "usbdevices/DeviceReport.h"

namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::filesystem::path> samples() {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(ZORVA_SAMPLES)) {
        if (entry.path().extension() == ".txt") {
            paths.push_back(entry.path());
        }
    }
    return paths;
}

/// Reads `list`, makes its report and returns the number of its devices.
std::size_t readWhole(std::string_view list) {
    PrivateDeviceList::show(list);
    const CaughtOutput output;
    result reader;
    auto devices = reader.GetUsbDeviceInfomation();
    const auto count = devices.size();
    std::ostringstream report;
    try {
        printDeviceReport(report, devices);
    } catch (const EmptyFieldError&) {
        // allowed
    }
    EXPECT_EQ(devices.size(), count);
    return count;
}

/// No list has more devices than lines that can open one, nor than lines that can close one.
std::size_t mostDevicesOf(std::string_view list) {
    std::size_t opening = list.substr(0, 1) == "T" ? 1 : 0;
    std::size_t closing = 0;
    for (std::size_t at = 1; at < list.size(); ++at) {
        opening += list[at - 1] == '\n' && list[at] == 'T' ? 1 : 0;
        closing += list[at - 1] == '\n' && list[at] == 'E' ? 1 : 0;
    }
    return std::min(opening, closing);
}

TEST(HostileList, EveryPrefixOfEverySample) {
    ASSERT_GE(samples().size(), 6U);
    for (const auto& path : samples()) {
        const std::string list = contentOf(path);
        std::size_t before = 0;
        for (std::size_t length = 0; length <= list.size(); ++length) {
            const std::size_t count = readWhole(std::string_view(list).substr(0, length));
            ASSERT_TRUE(count == before || count == before + 1) << path << ", " << length;
            before = count;
        }
    }
}

TEST(HostileList, EverySingleByteChangeOfASample) {
    const std::string original = contentOf(ZORVA_SAMPLES "/root-hub-alone.txt");
    std::string list = original;
    for (std::size_t at = 0; at < list.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            list[at] = static_cast<char>(byte);
            ASSERT_LE(readWhole(list), mostDevicesOf(list)) << at << " set to " << byte;
        }
        list[at] = original[at];
    }
}

TEST(HostileList, RandomBytes) {
    std::mt19937 random(20);  // NOLINT: the same bytes in every run
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(0, 9000);
    for (int round = 0; round < 300; ++round) {
        std::string list(length(random), '\0');
        for (char& character : list) {
            character = static_cast<char>(byte(random));
        }
        ASSERT_LE(readWhole(list), mostDevicesOf(list));
    }
}

TEST(HostileList, RandomPiecesOfLists) {
    const char* const pieces[] = {"T:",      "S:",      "D:",
                                  "P:",      "I:",      "C:",
                                  "E:",      "\n",      "\r\n",
                                  "Bus=",    "Lev=",    "Prnt=",
                                  "Port=",   "Cnt=",    "Dev#=",
                                  "Spd=",    "MxCh=",   "Product=",
                                  "Cls=",    "(",       "Sub=",
                                  "Prot=",   "Driver=", "Manufacturer=",
                                  "00 ",     "ff",      "99999999999999999999",
                                  "ohci",    "uhci",    "\xAE",
                                  "MxPwr=",  "mA",      "Vendor=",
                                  "ProdID=", "Rev=",    "SerialNumber="};
    std::mt19937 random(21);  // NOLINT: the same lists in every run
    std::uniform_int_distribution<std::size_t> piece(0, std::size(pieces) - 1);
    for (int round = 0; round < 2000; ++round) {
        std::string list;
        for (int count = 0; count < 200; ++count) {
            list += pieces[piece(random)];
            list += pieces[piece(random) % 8];
        }
        ASSERT_LE(readWhole(list), mostDevicesOf(list));
    }
}

TEST(HostileList, AListOfOnlyOpeningAndClosingLines) {
    std::string list;
    while (list.size() < 8192) {
        list += "T\nE\n";
    }
    EXPECT_EQ(readWhole(list), 2048U);
}

TEST(HostileList, LinesOf8000Characters) {
    for (const char letter : {'T', 'D', 'P', 'S', 'C', 'I', 'E', 'x'}) {
        const std::string list = letter + std::string(8000, '=') + "\nT\nE\n";
        EXPECT_EQ(readWhole(list), 1U) << letter;
    }
}

}  // namespace
