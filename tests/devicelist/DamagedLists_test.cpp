// SPDX-License-Identifier: MIT
// Lists that were cut, changed or never were lists: each is read to its end, no device of it is lost,
// and no damage goes unnoticed.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/Ascii.h"
#include "devicelist/DeviceListReader.h"
#include "devicelist/DeviceListWriter.h"
#include "tests/devicelist/RecordedLists.h"

namespace devicelist {
namespace {

// Builds with sanitizers, which are not optimised, take samples of what is many.
#ifdef NDEBUG
constexpr bool isOptimised = true;
#else
constexpr bool isOptimised = false;
#endif

std::string sample(const std::string& name) {
    const std::string text = contentOf(std::string(ZORVA_SAMPLES "/") + name);
    EXPECT_FALSE(text.empty()) << name;
    return text;
}

/// Reads the text, and what was written of it.
DeviceList readTwice(const std::string& text) {
    DeviceList list = readDeviceList(text);
    EXPECT_EQ(list.devices.size(), countLines(text, "T:"));
    EXPECT_EQ(readDeviceList(writeDeviceList(list)).devices, list.devices);
    return list;
}

/// Whether the list means the same with one character in place of the other.
bool areAlike(char left, char right) {
    const auto isFiller = [](char c) {
        return c == ' ' || c == '\t' || c == '\r' || c == ',' || c == '0' || c == '-' || c == '\n';
    };
    return base::toLower(left) == base::toLower(right) || (isFiller(left) && isFiller(right));
}

TEST(DamagedLists, EveryPrefixIsRead) {
    for (const char* const name : {"ohci-tree.txt", "xhci-today.txt", "unconfigured-devices.txt"}) {
        const std::string text = sample(name);
        for (std::size_t length = 0; length <= text.size(); ++length) {
            readTwice(text.substr(0, length));
            ASSERT_FALSE(HasFailure()) << name << " up to byte " << length;
        }
    }
}

TEST(DamagedLists, EveryChangeOfAByteIsReadAndNoticed) {
    const std::string original = sample("root-hub-alone.txt");
    const DeviceList expected = readDeviceList(original);
    std::string text = original;
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (unsigned value = 0; value < 256; value += isOptimised ? 1 : 7) {
            text[at] = static_cast<char>(value);
            const DeviceList list = readTwice(text);
            const bool isNoticed = !list.problems.empty() || !(list.devices == expected.devices);
            ASSERT_TRUE(isNoticed || areAlike(original[at], text[at]))
                << "byte " << at << " '" << original[at] << "' became " << value;
            ASSERT_FALSE(HasFailure()) << "byte " << at << " became " << value;
        }
        text[at] = original[at];
    }
}

TEST(DamagedLists, LinesInAnyOrderAreRead) {
    const std::string text = sample("ohci-tree.txt");
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = text.find('\n', begin);
        lines.push_back(text.substr(begin, end + 1 - begin));
        begin = end + 1;
    }
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        std::mt19937 random(seed);
        std::string mixed;
        for (std::size_t count = 0; count < lines.size(); ++count) {
            mixed += lines[random() % lines.size()];
        }
        readTwice(mixed);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

// If reading took longer than in proportion, this would take hours and be ended.
TEST(DamagedLists, SixteenMiBOfAnythingAreRead) {
    constexpr std::size_t size = isOptimised ? maximumListSize : maximumListSize / 16;
    const auto filledWith = [](const std::string& pattern) {
        std::string text;
        while (text.size() + pattern.size() <= size) {
            text += pattern;
        }
        return text;
    };
    std::string noise(size, '\0');
    std::mt19937 random(1);
    for (char& character : noise) {
        character = static_cast<char>(random());
    }
    const std::string chain = "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  1\n";
    for (const std::string& text :
         {noise, filledWith("\n"), filledWith("x\n"), filledWith("S:\n"), filledWith("T:\n"),
          filledWith("I:\n"), filledWith("E:\ny\n"), filledWith("x"), filledWith("T:"),
          "T:" + filledWith("xBus=").substr(2), filledWith(chain)}) {
        const std::size_t most = std::size_t{1} << 17;
        EXPECT_EQ(readDeviceList(text).devices.size(), std::min(countLines(text, "T:"), most))
            << text.substr(0, 20);
    }
}

}  // namespace
}  // namespace devicelist
