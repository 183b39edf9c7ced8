// SPDX-License-Identifier: MIT
#include "usbdevices/deviceInfo.h"

#include <utility>

#include <gtest/gtest.h>

namespace {

TEST(DeviceInfo, BeginsEmpty) {
    const deviceInfo record;
    EXPECT_EQ(record.getproduct(), "");
    EXPECT_EQ(record.getserial(), "");
    EXPECT_EQ(record.getmanufacturer(), "");
    EXPECT_EQ(record.getUsbHost(), "");
}

TEST(DeviceInfo, CollectsTheStringsOfSeveralLines) {
    deviceInfo record;
    record.Initialize("S:  Manufacturer=Linux 6.1.0 ohci_hcd");
    record.Initialize("S:  Product=USB OHCI Root Hub");
    record.Initialize("S:  SerialNumber=0000:00:03.0");
    EXPECT_EQ(record.getmanufacturer(), "Linux 6.1.0 ohci_hcd");
    EXPECT_EQ(record.getproduct(), "USB OHCI Root Hub");
    EXPECT_EQ(record.getserial(), "0000:00:03.0");
    EXPECT_EQ(record.getUsbHost(), "OHCI");
}

TEST(DeviceInfo, AManufacturerLineDoesNotSetTheHostType) {
    deviceInfo record;
    record.Initialize("S:  Manufacturer=Linux ohci-hcd");
    EXPECT_EQ(record.getmanufacturer(), "Linux ohci-hcd");
    EXPECT_EQ(record.getUsbHost(), "");
    EXPECT_EQ(record.getproduct(), "");
}

TEST(DeviceInfo, AProductLineInLowerCaseIsIgnored) {
    deviceInfo record;
    record.Initialize("S:  product=OHCI");
    EXPECT_EQ(record.getproduct(), "");
    EXPECT_EQ(record.getUsbHost(), "");
}

TEST(DeviceInfo, TheKeyAfterTheWordIsFoundInAnyCase) {
    deviceInfo record;
    record.Initialize("S:  Product PRODUCT=Tablet");
    EXPECT_EQ(record.getproduct(), "Tablet");
    record.Initialize("S:  SerialNumber SERIALNUMBER=1");
    EXPECT_EQ(record.getserial(), "1");
}

TEST(DeviceInfo, TellsTheHostTypeFromTheProductLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"S:  Product=UHCI Host Controller", "UHCI"},
        {"S:  Product=EHCI Host Controller", "Unknown"},
        {"S:  Product=xHCI Host Controller", "Unknown"},
        {"S:  Product=OHCI PCI host controller", "OHCI"},
        {"S:  Product=USB oHcI Root Hub", "OHCI"},
        {"S:  Product=uhci beside ohci", "OHCI"},
        {"S:  Product=ohci beside uhci", "OHCI"},
        {"S:  Product=", "Unknown"},
    };
    for (const auto& [line, type] : cases) {
        deviceInfo record;
        record.Initialize(line);
        EXPECT_EQ(record.getUsbHost(), type) << line;
    }
}

TEST(DeviceInfo, EveryProductLineSetsTheHostTypeAgain) {
    deviceInfo record;
    record.Initialize("S:  Product=OHCI Host Controller");
    record.Initialize("S:  Product=Mouse");
    EXPECT_EQ(record.getUsbHost(), "Unknown");
    EXPECT_EQ(record.getproduct(), "Mouse");
}

TEST(DeviceInfo, SetUsbHostReadsAnyLine) {
    deviceInfo record;
    record.setUsbHost("a line with uhci");
    EXPECT_EQ(record.getUsbHost(), "UHCI");
    EXPECT_EQ(record.getproduct(), "");
}

TEST(DeviceInfo, ALineWithTwoWordsSetsTwoFields) {
    deviceInfo record;
    record.Initialize("S:  Manufacturer=A Product=B");
    EXPECT_EQ(record.getmanufacturer(), "A Product=B");
    EXPECT_EQ(record.getproduct(), "B");
    EXPECT_EQ(record.getUsbHost(), "Unknown");
}

TEST(DeviceInfo, AManufacturerCalledProductEmptiesTheProductName) {
    deviceInfo record;
    record.Initialize("S:  Product=Mouse");
    record.Initialize("S:  Manufacturer=Product Company");
    EXPECT_EQ(record.getproduct(), "");
    EXPECT_EQ(record.getmanufacturer(), "Product Company");
}

TEST(DeviceInfo, KeepsBlanksAndBytesUnchanged) {
    deviceInfo record;
    record.Initialize("S:  Product= IntelliMouse\xAE  ");
    EXPECT_EQ(record.getproduct(), " IntelliMouse\xAE  ");
}

TEST(DeviceInfo, ALineWithoutTheWordsChangesNothing) {
    deviceInfo record;
    record.Initialize("S:  SerialNumber=1");
    record.Initialize("S:  Something=2");
    record.Initialize("");
    EXPECT_EQ(record.getserial(), "1");
}

}  // namespace
