// SPDX-License-Identifier: MIT
// Each finding has a list that shows it and one just beside it that does not.
#include "devicelist/Findings.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"

namespace devicelist {
namespace {

using Kind = Finding::Kind;

/// A root hub with a device; the lines of the device after its "T:" line are `lines`.
std::string listWith(const std::string& speed, const std::string& lines,
                     const std::string& percent = "80") {
    return "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=480  MxCh= 4\n"
           "B:  Alloc=  0/800 us (" +
           percent +
           "%), #Int=  0, #Iso=  0\n"
           "T:  Bus=01 Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=" +
           speed + " MxCh= 0\n" + lines;
}

const char* const usb3 =
    "D:  Ver= 3.00 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 9 #Cfgs=  1\n"
    "C:* #Ifs= 0 Cfg#= 1 Atr=80 MxPwr=100mA\n";
const char* const usb2 =
    "D:  Ver= 2.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS=64 #Cfgs=  1\n"
    "C:* #Ifs= 0 Cfg#= 1 Atr=80 MxPwr=100mA\n";

std::vector<Kind> kindsOf(const std::string& list) {
    std::vector<Kind> kinds;
    for (const Finding& finding : findingsOf(readDeviceList(list))) {
        kinds.push_back(finding.kind);
    }
    return kinds;
}

using Kinds = std::vector<Kind>;

TEST(Findings, AHealthyListHasNone) {
    EXPECT_EQ(kindsOf(""), Kinds{});
    EXPECT_EQ(kindsOf(listWith("480 ", usb2)), Kinds{});
}

TEST(Findings, ADeviceOfUsb3AtHighSpeedIsSlow) {
    EXPECT_EQ(kindsOf(listWith("480 ", usb3)), Kinds{Kind::slow});
    EXPECT_EQ(kindsOf(listWith("12  ", usb3)), Kinds{Kind::slow});
    EXPECT_EQ(kindsOf(listWith("5000", usb3)), Kinds{});
    EXPECT_EQ(kindsOf(listWith("??  ", usb3)), Kinds{});
}

std::string configured(const std::string& mark, const std::string& driver) {
    return "C:" + mark + " #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\n" + "I:" + mark +
           " If#= 3 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=" + driver + "\n";
}

TEST(Findings, AnInterfaceWithoutDriverIsUnclaimed) {
    const auto findings = findingsOf(readDeviceList(listWith("12  ", configured("*", "(none)"))));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].kind, Kind::unclaimed);
    EXPECT_EQ(findings[0].device, 1U);
    EXPECT_FALSE(findings[0].line);
    EXPECT_EQ(findings[0].fact, "interface 3 has no driver");
    EXPECT_EQ(kindsOf(listWith("12  ", configured("*", "usbhid"))), Kinds{});
}

TEST(Findings, AlternateSettingsAreOneUnclaimedInterface) {
    const std::string setting =
        " If#= 0 Alt= 0 #EPs= 0 Cls=03(HID  ) Sub=01 Prot=02 Driver=(none)\n";
    EXPECT_EQ(kindsOf(listWith("12  ", "C:* #Ifs= 1 Cfg#= 1 Atr=80 MxPwr=100mA\nI:*" + setting +
                                           "I: " + setting)),
              Kinds{Kind::unclaimed});
}

TEST(Findings, ADeviceWithoutActiveConfigurationIsUnconfigured) {
    EXPECT_EQ(kindsOf(listWith("12  ", configured(" ", ""))), Kinds{Kind::unconfigured});
    EXPECT_EQ(
        kindsOf(listWith("12  ", "D:  Ver= 1.10 Cls=ff(vend.) Sub=ff Prot=ff MxPS= 8 #Cfgs=  0\n")),
        Kinds{Kind::unconfigured});
    EXPECT_EQ(kindsOf(listWith("12  ", "")), Kinds{});  // not known
}

TEST(Findings, MoreThanEightyPercentOfABusIsBusy) {
    EXPECT_EQ(kindsOf(listWith("12  ", "", "80")), Kinds{});
    EXPECT_EQ(kindsOf(listWith("12  ", "", "81")), Kinds{Kind::bandwidth});
}

TEST(Findings, DamagedLinesBelongToTheDeviceThatTheyStandIn) {
    const auto findings =
        findingsOf(readDeviceList("noise\n" + listWith("480 ", usb3) + "E:  Ad=zz\n"));
    ASSERT_GT(findings.size(), 3U);
    EXPECT_EQ(findings[0].kind, Kind::damagedList);
    EXPECT_FALSE(findings[0].device);
    EXPECT_EQ(findings[0].line, 1U);
    EXPECT_EQ(findings[0].fact, "line 1: nothing that a device list has there");
    for (std::size_t i = 1; i < findings.size(); ++i) {
        EXPECT_EQ(findings[i].device, 1U);
    }
    EXPECT_EQ(nameOf(findings[0].kind), "damaged_list");
    EXPECT_EQ(nameOf(Kind::slow), "slow");
}

}  // namespace
}  // namespace devicelist
