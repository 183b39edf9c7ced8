// SPDX-License-Identifier: MIT
#include "cli/ReportedList.h"

#include <string>

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

const std::string hub =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
    "P:  Vendor=1d6b ProdID=0001 Rev= 6.01\n"
    "S:  Product=Hub\n"
    "I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   2 Ivl=255ms\n";
const std::string mouseWithoutEndpoint =
    "T:  Bus=01 Lev=01 Prnt=01 Port=01 Cnt=01 Dev#=  2 Spd=12  MxCh= 0\n"
    "P:  Vendor=046d ProdID=c00e Rev=11.10\n"
    "S:  Product=Mouse\n";
const std::string endpoint = "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms\n";
const std::string mouse = mouseWithoutEndpoint + endpoint;

std::string messageOf(const std::string& text) {
    const ReportedList reported(text);
    return reported.isWhole() ? "whole" : reported.message();
}

TEST(ReportedList, SaysNothingOfAWholeList) {
    EXPECT_EQ(messageOf(hub + mouse), "whole");
    EXPECT_EQ(messageOf(""), "whole");
}

TEST(ReportedList, NamesWhatAnEmptyFirstLineCosts) {
    EXPECT_EQ(messageOf("\n" + hub + "\n" + mouse),
              "the report holds 1 of the 2 devices of the list: it begins with an empty line, for "
              "which the last line of the list is not read\n"
              "    \"Mouse\" (046d:c00e) at 1-2: the last line of the list is not read");
}

TEST(ReportedList, NamesWhatLiesBeyondWhatIsRead) {
    const std::string filler = "#" + std::string(9000, '.') + "\n";
    EXPECT_EQ(
        messageOf(hub + filler + mouse),
        "the report holds 1 of the 2 devices of the list: the test reads the first 8192 of its " +
            std::to_string((hub + filler + mouse).size()) +
            " bytes\n    \"Mouse\" (046d:c00e) at 1-2: beyond the first 8192 bytes");
}

TEST(ReportedList, NamesTheLastWholeLineOfWhatIsRead) {
    const std::string list = "\n#" + std::string(8192 - 3 - hub.size(), '.') + "\n" + hub + mouse;
    EXPECT_EQ(
        messageOf(list),
        "the report holds 0 of the 2 devices of the list: the test reads the first 8192 of its " +
            std::to_string(list.size()) +
            " bytes; it begins with an empty line, for which the last whole line of the first "
            "8192 bytes is not read\n"
            "    \"Hub\" (1d6b:0001) at usb1: the last whole line of the first 8192 bytes is "
            "not read\n"
            "    \"Mouse\" (046d:c00e) at 1-2: beyond the first 8192 bytes");
}

TEST(ReportedList, NamesAZeroByteAndAMissingLineFeed) {
    std::string cut = hub + mouse;
    cut.pop_back();
    EXPECT_EQ(
        messageOf(cut),
        "the report holds 1 of the 2 devices of the list: its last line has no line feed, and "
        "is not read\n"
        "    \"Mouse\" (046d:c00e) at 1-2: the last line of the list has no line feed");
    EXPECT_EQ(
        messageOf(hub + std::string(1, '\0') + "\n" + mouse),
        "the report holds 1 of the 2 devices of the list: it holds a zero byte, where the test "
        "stops\n"
        "    \"Mouse\" (046d:c00e) at 1-2: after a zero byte");
}

TEST(ReportedList, NamesWhereTheFieldsOfADeviceWithoutEndpointStand) {
    EXPECT_EQ(
        messageOf(mouseWithoutEndpoint + "T:  Bus=02 Lev=00\n" + endpoint),
        "the report holds 1 of the 2 devices of the list: a device without endpoint (\"E:\") "
        "has no block; what follows a device's first endpoint, or has none, goes to the next\n"
        "    \"Mouse\" (046d:c00e) at 1-2: no endpoint; its fields stand in the block of a "
        "device without name at usb2\n"
        "    a device without name at usb2: its block has vendor ID, product ID and revision, "
        "product name of \"Mouse\" (046d:c00e) at 1-2");
}

TEST(ReportedList, NamesBlocksWithLaterInterfacesOfOthers) {
    EXPECT_EQ(messageOf(hub + "I:  If#= 1 Alt= 0\n" + mouse),
              "the report holds 2 of the 2 devices of the list: what follows a device's first "
              "endpoint, or has none, goes to the next\n"
              "    \"Mouse\" (046d:c00e) at 1-2: its block has interface of \"Hub\" (1d6b:0001) at "
              "usb1");
    EXPECT_EQ(messageOf("S:  Product=Nobody's\nT:  Bus=01\n" + endpoint),
              "the report holds 1 of the 1 devices of the list: what follows a device's first "
              "endpoint, or has none, goes to the next\n"
              "    a device without name: its block has product name of no device of the list");
}

TEST(ReportedList, DevicesCannotForgeLinesOrSteerTerminals) {
    std::string list = mouseWithoutEndpoint;
    list.insert(list.size() - 1, "\r\x1B[31m\xFF");
    EXPECT_NE(messageOf(list).find("\"Mouse\uFFFD\uFFFD[31m\uFFFD\" (046d:c00e)"),
              std::string::npos);
}

}  // namespace
}  // namespace usbhcdiag
