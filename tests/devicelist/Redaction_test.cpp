// SPDX-License-Identifier: MIT
#include "devicelist/Redaction.h"

#include <string>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "tests/devicelist/RecordedLists.h"

namespace devicelist {
namespace {

using std::string_literals::operator""s;

const std::string mouse = "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=12   MxCh= 0\n";

/// What stands in place of a device's serial number.
std::string shown(const std::string& serial) {
    const std::string start = mouse + "S:  SerialNumber=";
    const std::string text = redactSerialNumbers(start + serial + "\n");
    EXPECT_EQ(text.substr(0, start.size()), start);
    EXPECT_EQ(text.back(), '\n');
    return text.substr(start.size(), text.size() - start.size() - 1);
}

std::string line(const std::string& serial) {
    return "S:  SerialNumber=" + serial + "\n";
}

TEST(Redaction, SameSerialNumbersGetTheSamePlaceholderOfTheirLength) {
    EXPECT_EQ(redactSerialNumbers(mouse + line("ABC-12") + mouse + line("ABC-13") + mouse +
                                  line("ABC-12") + mouse + line("0123456789")),
              mouse + line("XXXXX1") + mouse + line("XXXXX2") + mouse + line("XXXXX1") + mouse +
                  line("XXXXXXXXX1"));
}

TEST(Redaction, SerialNumbersOfRootHubsStay) {
    const std::string rootHub = "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1\n";
    const std::string bare = "T:\n";
    EXPECT_EQ(redactSerialNumbers(rootHub + line("0000:00:14.0") + rootHub + line("c8000000") +
                                  mouse + line("0000:00:14.0") + bare + line("c8000000")),
              rootHub + line("0000:00:14.0") + rootHub + line("c8000000") + mouse +
                  line("XXXXXXXXXXX1") + bare + line("XXXXXXX1"));
}

TEST(Redaction, ItIsFoundWhereverItStands) {
    EXPECT_EQ(redactSerialNumbers(line("A1") + mouse + line("A2") + line("A3")),
              line("X1") + mouse + line("X2") + line("X3"));
    EXPECT_EQ(redactSerialNumbers("> S: SerialNumber=AB"), "> S: SerialNumber=X1");
    EXPECT_EQ(redactSerialNumbers("S:  Product=A SerialNumber=AB\nC:\n"),
              "S:  Product=A SerialNumber=X1\nC:\n");
}

TEST(Redaction, OtherLinesStayByteForByte) {
    const std::string text =
        "\nnoise\r\n\0\xff\n"s + mouse + "S:  Product=SerialNumber\n\n\n" + mouse + "C:* #Ifs= 1";
    EXPECT_EQ(redactSerialNumbers(text), text);
    EXPECT_EQ(redactSerialNumbers(""), "");
}

TEST(Redaction, BytesThatAreNoTextAreReplacedOneByOne) {
    EXPECT_EQ(shown("\xff\xfe\x1b[\xc3\xa9"), "XXXXX1");
    EXPECT_EQ(shown("A\rB"), "XX1");
}

TEST(Redaction, ZeroBytesAndLineEndsStay) {
    EXPECT_EQ(shown("AB\0CD"s), "XX\0X1"s);
    EXPECT_EQ(shown("ABCD\r"), "XXX1\r");
    // Zero bytes hide no digit of a placeholder.
    EXPECT_EQ(redactSerialNumbers(line("A\0"s) + line("B\0"s)), line("1\0"s) + line("2\0"s));
}

TEST(Redaction, BlanksSayNothing) {
    for (const std::string& serial : {""s, "\r"s, "   "s, " \t\x01\x7f"s, "\0"s}) {
        EXPECT_EQ(shown(serial), serial);
    }
    EXPECT_EQ(shown(" A "), "XX1");
}

TEST(Redaction, TheRestOfASerialNumberWithLineFeedsIsReplaced) {
    EXPECT_EQ(redactSerialNumbers(mouse + line("AB\nCDE\n\nF=\r") + "C:* #Ifs= 1\nnoise\n"),
              mouse + line("X1\nXX1\n\nX2\r") + "C:* #Ifs= 1\nnoise\n");
    EXPECT_EQ(redactSerialNumbers(mouse + line("AB") + "(truncated)\r\nnoise\n"),
              mouse + line("X1") + "(truncated)\r\nnoise\n");
}

TEST(Redaction, ThereAreAsManyPlaceholdersOfALengthAsNumbers) {
    std::string text;
    for (int first = 'A'; first <= 'Z'; ++first) {
        text += line({static_cast<char>(first)}) + line({static_cast<char>(first + 'a' - 'A')});
    }
    const std::string redacted = redactSerialNumbers(text);
    EXPECT_EQ(redacted.size(), text.size());
    EXPECT_EQ(redacted.substr(0, 2 * line("1").size()), line("1") + line("2"));
    EXPECT_NE(redacted.find(line("z") + line("0") + line("1")), std::string::npos);
}

TEST(Redaction, OnlySerialNumbersOfDevicesChangeInRecordedLists) {
    std::size_t changed = 0;
    for (const RecordedList& recorded : recordedLists(ZORVA_SAMPLES)) {
        const std::string text = redactSerialNumbers(recorded.text);
        EXPECT_EQ(text.size(), recorded.text.size()) << recorded.name;
        const DeviceList before = readDeviceList(recorded.text);
        DeviceList after = readDeviceList(text);
        ASSERT_EQ(after.devices.size(), before.devices.size()) << recorded.name;
        for (std::size_t position = 0; position < before.devices.size(); ++position) {
            const Device& device = before.devices[position];
            const bool stays = device.level == 0U || !device.serialNumber;
            EXPECT_EQ(after.devices[position].serialNumber == device.serialNumber, stays)
                << recorded.name << " " << device.portPath;
            changed += stays ? 0 : 1;
            after.devices[position].serialNumber = device.serialNumber;
        }
        EXPECT_EQ(after.devices, before.devices) << recorded.name;
    }
    EXPECT_GT(changed, 0U);
}

}  // namespace
}  // namespace devicelist
