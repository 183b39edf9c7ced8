// SPDX-License-Identifier: MIT
#include "usbhc/DeviceInformation.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

using Lines = std::vector<std::string>;

UsbDevice mouse() {
    UsbDevice device;
    device.setTopology("T:  Bus=01 Lev=01 Prnt=01 Port=03 Cnt=02 Dev#=  4 Spd=1.5 MxCh= 0");
    device.setDescriptor("D:  Ver= 1.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1");
    device.setProduct("P:  Vendor=046d ProdID=c00c Rev= 6.10");
    device.setDeviceInfo("S:  Manufacturer=Logitech");
    device.setDeviceInfo("S:  Product=USB Mouse");
    device.setConfiguration("C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr= 98mA");
    device.setInterface("I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid");
    return device;
}

UsbDevice withCodes(const char* classCode, const char* subClassCode, const char* protocolCode) {
    UsbDevice device;
    device.setInterface(std::string("I:* If#= 0 Alt= 0 #EPs= 1 Cls=") + classCode +
                        "(x) Sub=" + subClassCode + "Prot=" + protocolCode + "Driver=d");
    return device;
}

Lines report(const UsbDevice& device) {
    Lines lines;
    forEachReportLine(device, [&lines](const String& line) { lines.push_back(text(line)); });
    return lines;
}

// The lines with names of codes: class, subclass and, if it has a name, protocol.
Lines codesOf(const UsbDevice& device) {
    Lines lines = report(device);
    return Lines(lines.begin() + 8, lines.end() - 5);
}

constexpr char classLabel[] = "Interface Class               ";
constexpr char subClassLabel[] = "Interface Sub Class           ";
constexpr char protocolLabel[] = "Interface Protocol            ";

TEST(DeviceInformation, BlockOfADeviceHasSixteenLinesInOrder) {
    EXPECT_EQ(
        report(mouse()),
        (Lines{"Product Name                  USB Mouse", "Serial Number                 ",
               "Vendor Name                   Logitech", "Vendor ID                     046d ",
               "Product ID                    c00c ", "Revision                       6.10",
               "USB Specification              1.10 ", "Interface Number               0 ",
               "Interface Class               Human Interface Device",
               "Interface Sub Class           Boot Interface",
               "Interface Protocol            Mouse", "Port on Device                03 ",
               "Device Driver                 usbhid", "Current Speed                 1.5 ",
               "Maximum Current Draw (mAmps)   98", "          "}));
}

TEST(DeviceInformation, LabelsAreAllPaddedTo30Characters) {
    for (const std::string& line : report(UsbDevice())) {
        EXPECT_TRUE(line.size() == 30 || line == "          ") << line;
    }
}

TEST(DeviceInformation, LineWithAnEmptyValueIsThePaddedLabel) {
    EXPECT_EQ(report(mouse())[1], "Serial Number " + std::string(16, ' '));
}

TEST(DeviceInformation, ProtocolWithoutANameIsLeftOut) {
    UsbDevice device = mouse();
    device.setInterface("I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=99 Driver=usbhid");
    const Lines lines = report(device);
    ASSERT_EQ(lines.size(), 15U);
    EXPECT_EQ(lines[9], "Interface Sub Class           Boot Interface");
    EXPECT_EQ(lines[10], "Port on Device                03 ");
}

TEST(DeviceInformation, ClassAndSubclassWithoutANameAreEmpty) {
    EXPECT_EQ(codesOf(withCodes("ff", "77", "77")), (Lines{classLabel, subClassLabel}));
}

TEST(DeviceInformation, CodesOfTenAndAboveAreReadAsDecimalDigits) {
    EXPECT_EQ(codesOf(withCodes("08", "06 ", "50 ")),
              (Lines{std::string(classLabel) + "Mass Storage", std::string(subClassLabel) + "SCSI",
                     std::string(protocolLabel) + "Bulk-Only Transport"}));
}

TEST(DeviceInformation, ProtocolNameInWindows1252BecomesText) {
    EXPECT_EQ(codesOf(withCodes("02", "02 ", "01 ")).back(),
              std::string(protocolLabel) +
                  "Common AT commands (also known as \u201CHayes\u2122 compatible\u201D)");
}

TEST(DeviceInformation, NamesThatAreNotUtf8BecomeText) {
    UsbDevice device = mouse();
    device.setDeviceInfo("S:  Product=Maus\xAE \xC3\xBC");
    EXPECT_EQ(report(device)[0], "Product Name                  Maus\u00AE \u00FC");
}

TEST(DeviceInformation, WithoutAClassCodeClassAndSubclassAreEmptyAndTheProtocolIsLeftOut) {
    EXPECT_EQ(codesOf(withCodes("", "01 ", "02 ")), (Lines{classLabel, subClassLabel}));
}

TEST(DeviceInformation, WithoutASubclassCodeOnlyTheSubclassIsEmpty) {
    EXPECT_EQ(codesOf(withCodes("03", "", "02 ")),
              (Lines{std::string(classLabel) + "Human Interface Device", subClassLabel,
                     std::string(protocolLabel) + "Mouse"}));
}

TEST(DeviceInformation, WithoutAProtocolCodeOnlyThatLineIsLeftOut) {
    EXPECT_EQ(codesOf(withCodes("03", "01 ", "")),
              (Lines{std::string(classLabel) + "Human Interface Device",
                     std::string(subClassLabel) + "Boot Interface"}));
}

TEST(DeviceInformation, WithoutCodesClassAndSubclassAreEmpty) {
    EXPECT_EQ(codesOf(UsbDevice()), (Lines{classLabel, subClassLabel}));
}

TEST(DeviceInformation, ExceptionsOfTheCallbackPropagate) {
    EXPECT_THROW(forEachReportLine(mouse(), [](const String&) { throw std::runtime_error("no"); }),
                 std::runtime_error);
}

}  // namespace
}  // namespace Pegasus
