// SPDX-License-Identifier: MIT
#include "cli/ListDifferences.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"

namespace usbhcdiag {
namespace {

const std::string mouse =
    "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=12   MxCh= 0\n"
    "P:  Vendor=046d ProdID=c00e Rev= 1.00\n"
    "S:  Manufacturer=Logi\n"
    "S:  Product=Mouse\x1b\n"
    "S:  SerialNumber=S1\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\n"
    "I:* If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid\n";

ListDifferences between(const std::string& before, const std::string& after) {
    return {devicelist::readDeviceList(before), devicelist::readDeviceList(after)};
}

/// The mouse with each `from` in place of a `to`.
std::string mouseWith(std::vector<std::pair<std::string, std::string>> changes) {
    std::string text = mouse;
    for (const auto& [from, to] : changes) {
        text.replace(text.find(from), from.size(), to);
    }
    return text;
}

std::string details(const std::string& before, const std::string& after) {
    const ListDifferences differences = between(before, after);
    EXPECT_EQ(differences.all().size(), 1U);
    return differences.details(differences.all().at(0));
}

TEST(ListDifferences, AreNoneWithoutChanges) {
    EXPECT_TRUE(between(mouse, mouse).areNone());
    EXPECT_EQ(between(mouse, mouse).table(HardwareNames(), false), "");
}

TEST(ListDifferences, TableHasALineForEach) {
    const std::string moved = mouseWith({{"Port=00", "Port=04"}});
    EXPECT_EQ(between(mouse, moved).table(HardwareNames(), false),
              "CHANGE  PORT  ID         NAME         WHAT\n"
              "moved   1-5   046d:c00e  Logi Mouse\uFFFD  was at 1-1\n");
    EXPECT_EQ(between(mouse, "").table(HardwareNames(), false),
              "CHANGE   PORT  ID         NAME         WHAT\n"
              "removed  1-1   046d:c00e  Logi Mouse\uFFFD\n");
    EXPECT_EQ(between("", mouse).table(HardwareNames(), true),
              "\x1b[1mCHANGE  PORT  ID         NAME         WHAT\x1b[0m\n"
              "added   1-1   046d:c00e  Logi Mouse\uFFFD\n");
}

TEST(ListDifferences, SayWhatIsAndWhatWas) {
    EXPECT_EQ(details(mouse, mouseWith({{"Spd=12 ", "Spd=1.5"}})), "1.5 Mb/s, was 12 Mb/s");
    EXPECT_EQ(details(mouseWith({{"Spd=12", "Spd=??"}}), mouse), "12 Mb/s, was -");
    EXPECT_EQ(details(mouse, mouseWith({{"usbhid", "(none)"}})),
              "driver of interface 0: (none), was usbhid");
    EXPECT_EQ(details(mouse, mouseWith({{"=S1", "=S2"}})), "serial number S2, was S1");
    EXPECT_EQ(details(mouse, mouseWith({{"S:  SerialNumber=S1\n", ""}})),
              "serial number -, was S1");
    EXPECT_EQ(details(mouse, mouseWith({{"Cfg#= 1", "Cfg#= 2"}})),
              "configuration 2, was configuration 1");
    EXPECT_EQ(details(mouse, mouseWith({{"C:*", "C: "}})), "not configured, was configuration 1");
    EXPECT_EQ(details(mouse, mouseWith({{"MxPwr=100", "MxPwr=500"}})),
              "configuration 1 with other interfaces or power");
    EXPECT_EQ(details(mouse, mouseWith({{"Port=00", "Port=01"}, {"Spd=12 ", "Spd=1.5"}})),
              "was at 1-1; 1.5 Mb/s, was 12 Mb/s");
}

TEST(ListDifferences, AreOfAKind) {
    const auto kind = [](const std::string& before, const std::string& after) {
        return ListDifferences::kindOf(between(before, after).all().at(0));
    };
    EXPECT_EQ(kind(mouse, ""), "removed");
    EXPECT_EQ(kind("", mouse), "added");
    EXPECT_EQ(kind(mouse, mouseWith({{"Port=00", "Port=01"}, {"Spd=12 ", "Spd=1.5"}})), "moved");
    EXPECT_EQ(kind(mouse, mouseWith({{"Spd=12 ", "Spd=1.5"}})), "changed");
}

}  // namespace
}  // namespace usbhcdiag
