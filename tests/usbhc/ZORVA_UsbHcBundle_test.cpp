// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHcBundle.h"

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Bundle = Pegasus::ZORVA_UsbHcBundle;

std::optional<std::string> textOf(const char* text) {
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

/// Expects from `lookUp` the texts of `table`, and null for every other code from -2 to 300.
template <typename LookUp>
void expectExactly(const std::map<int, std::string>& table, LookUp lookUp) {
    for (int code = -2; code <= 300; ++code) {
        const auto entry = table.find(code);
        const auto expected =
            entry == table.end() ? std::nullopt : std::optional<std::string>(entry->second);
        EXPECT_EQ(textOf(lookUp(code)), expected) << "code " << code;
    }
}

TEST(Bundle, HasFiveActions) {
    expectExactly({{1, "No Additional Action Necessary"},
                   {2, "Check if a USB Host Controller is Installed"},
                   {3, "Check Hub Driver"},
                   {4, "Check Device"},
                   {5, "Insert media into drive "}},
                  Bundle::getAction);
}

TEST(Bundle, HasSixLabelsWithTrailingBlanks) {
    expectExactly({{1, "Host Controller Number "},
                   {2, "Port "},
                   {3, "Vendor Name "},
                   {4, "Product Name "},
                   {5, "Serial Number "},
                   {6, "Device Class "}},
                  Bundle::getGeneralString);
}

TEST(Bundle, HasFiveStatusesAndNoneForFourOrZero) {
    expectExactly({{1, "Success "},
                   {2, "No Host Controller "},
                   {3, "Node Connection Information Failure "},
                   {5, "Node Information Failure "},
                   {6, "Get Descriptor Failure "}},
                  Bundle::getStatus);
}

TEST(Bundle, NamesOnlyClassesOneToNine) {
    expectExactly({{1, "Audio"},
                   {2, "Communications"},
                   {3, "Human Interface Device"},
                   {4, "Monitor"},
                   {5, "Physical Interface"},
                   {6, "Power"},
                   {7, "Printer"},
                   {8, "Mass Storage"},
                   {9, "Hub"}},
                  Bundle::getClass);
}

using Names = std::map<std::pair<int, int>, std::string>;

/// Expects from `lookUp` the names of `table` for classes 1 to 9, and null for every other code.
template <typename LookUp>
void expectExactlyInClasses(const Names& table, LookUp lookUp) {
    for (int classCode = 1; classCode <= 9; ++classCode) {
        for (int code = 0; code <= 300; ++code) {
            const auto entry = table.find({classCode, code});
            const auto expected =
                entry == table.end() ? std::nullopt : std::optional<std::string>(entry->second);
            EXPECT_EQ(textOf(lookUp(classCode, code)), expected)
                << "class " << classCode << " code " << code;
        }
    }
}

TEST(Bundle, NamesSubClasses) {
    expectExactlyInClasses(
        {
            {{1, 0}, "None"},
            {{1, 1}, "Audio Control"},
            {{1, 2}, "Audio Streaming"},
            {{1, 3}, "Midi Streaming"},
            {{2, 0}, "None"},
            {{2, 1}, "Direct Line Control Model"},
            {{2, 2}, "Abstract Control Model"},
            {{2, 3}, "Abstract Control Model"},
            {{2, 4}, "Multi-Channel Control Model"},
            {{2, 5}, "CAPI Control Model"},
            {{2, 6}, "Ethernet Networking Control Model"},
            {{2, 7}, "ATM Networking Control Model"},
            {{3, 0}, "None"},
            {{3, 1}, "Boot Interface"},
            {{3, 254}, "Reserved"},
            {{3, 255}, "Reserved"},
            {{7, 0}, "None"},
            {{7, 1}, "Printer"},
            {{8, 0}, "None"},
            {{8, 1}, "Reduced Block Commands"},
            {{8, 2}, "ATAPI"},
            {{8, 3}, "QIC-157 (tape device)"},
            {{8, 4}, "UFI (floppy disk drive)"},
            {{8, 5}, "SFF-8070i"},
            {{8, 6}, "SCSI"},
            {{9, 0}, "None"},
        },
        Bundle::getSubClass);
}

TEST(Bundle, NamesProtocols) {
    expectExactlyInClasses(
        {
            {{1, 0}, "None"},
            {{2, 0}, "None"},
            {{2, 1}, "Common AT commands (also known as \x93Hayes\x99 compatible\x94)"},
            {{3, 0}, "None"},
            {{3, 1}, "Keyboard"},
            {{3, 2}, "Mouse"},
            {{3, 254}, "Reserved"},
            {{3, 255}, "Reserved"},
            {{7, 0}, "None"},
            {{7, 1}, "Unidirectional Interface"},
            {{7, 2}, "Bi-directional Interface"},
            {{7, 3}, "1284.4 Compatible Bi-directional Interface"},
            {{8, 0}, "Control/Bulk/Interrupt (CBI) Transport (with command completion)"},
            {{8, 1}, "Control/Bulk/Interrupt (CBI) Transport (with no command completion)"},
            {{8, 50}, "Bulk-Only Transport"},
        },
        Bundle::getProtocol);
}

TEST(Bundle, OneProtocolNameIsWindows1252) {
    const std::string name = Bundle::getProtocol(2, 1);
    EXPECT_EQ(name, std::string("Common AT commands (also known as ") + '\x93' + "Hayes" + '\x99' +
                        " compatible" + '\x94' + ")");
}

TEST(Bundle, InsertsTheCodeAfterTheFirstDigitOfTheClass) {
    EXPECT_EQ(Bundle::getSubClass(12, 3), nullptr);                   // key 132
    EXPECT_STREQ(Bundle::getSubClass(34, 25), "Reserved");            // key 3254
    EXPECT_STREQ(Bundle::getSubClass(80, 0), "None");                 // key 800
    EXPECT_STREQ(Bundle::getProtocol(80, 5), "Bulk-Only Transport");  // key 850
}

TEST(Bundle, AKeyThatBeginsWithZeroLosesIt) {
    EXPECT_EQ(Bundle::getSubClass(0, 0), nullptr);     // "00" is 0
    EXPECT_STREQ(Bundle::getSubClass(0, 86), "SCSI");  // "086" is 86
}

TEST(Bundle, ReadsCodesAsDecimalNumbers) {
    const std::pair<const char*, int> cases[] = {
        {"09", 9},   {"00 ", 0},  {" 1.10 ", 1}, {"0a", 0},    {"ff", 0},       {"0", 0},
        {"00", 0},   {"50", 50},  {"01 ", 1},    {"e0", 0},    {"1e", 1},       {"08", 8},
        {" ", 0},    {"x1", 0},   {"0 5", 5},    {"-3", -3},   {"0\t\r\n7", 7}, {"  3 ", 3},
        {"010", 10}, {"0x10", 0}, {"00x10", 0},  {"254", 254},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(Bundle::getIntValue(text), value) << '"' << text << '"';
    }
}

TEST(Bundle, ANumberBeyondEveryLimitStillHasNoName) {
    const int value = Bundle::getIntValue(std::string(8000, '9'));
    EXPECT_EQ(Bundle::getClass(value), nullptr);
    EXPECT_EQ(Bundle::getSubClass(value, value), nullptr);
}

TEST(Bundle, AnEmptyCodeIsOutOfRange) {
    EXPECT_THROW(Bundle::getIntValue(""), std::out_of_range);
}

}  // namespace
