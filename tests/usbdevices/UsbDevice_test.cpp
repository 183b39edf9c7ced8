// SPDX-License-Identifier: MIT
#include "usbdevices/UsbDevice.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

TEST(UsbDevice, BeginsWithSixEmptyRecordsOfItsOwn) {
    const UsbDevice one;
    const UsbDevice other;
    EXPECT_NE(one.getTopology(), other.getTopology());
    EXPECT_EQ(one.getTopology()->getBus(), "");
    EXPECT_EQ(one.getDescriptor()->getVersion(), "");
    EXPECT_EQ(one.getInterface()->getDriver(), "");
    EXPECT_EQ(one.getDeviceInfo()->getUsbHost(), "");
    EXPECT_EQ(one.getProduct()->getVendor(), "");
    EXPECT_EQ(one.getConfiguration()->getPower(), "");
}

TEST(UsbDevice, HandsEachLineToItsRecord) {
    UsbDevice device;
    device.setTopology("T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2");
    device.setDescriptor("D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1");
    device.setInterface("I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub");
    device.setDeviceInfo("S:  Product=USB OHCI Root Hub");
    device.setProduct("P:  Vendor=1d6b ProdID=0001 Rev= 2.04");
    device.setConfiguration("C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA");
    EXPECT_EQ(device.getTopology()->getBus(), "01 ");
    EXPECT_EQ(device.getDescriptor()->getVersion(), " 1.10 ");
    EXPECT_EQ(device.getInterface()->getDriver(), "hub");
    EXPECT_EQ(device.getDeviceInfo()->getproduct(), "USB OHCI Root Hub");
    EXPECT_EQ(device.getProduct()->getVendor(), "1d6b ");
    EXPECT_EQ(device.getConfiguration()->getPower(), "  0");
}

TEST(UsbDevice, CopiesShareTheRecords) {
    UsbDevice device;
    const UsbDevice copy = device;
    device.setConfiguration("C:* MxPwr=500mA");
    EXPECT_EQ(copy.getConfiguration(), device.getConfiguration());
    EXPECT_EQ(copy.getConfiguration()->getPower(), "500");
}

TEST(UsbDevice, RecordsLiveAsLongAsTheLastCopy) {
    auto device = std::make_unique<UsbDevice>();
    device->setDeviceInfo(
        "S:  Product=a name that is too long to be kept inside of a string object");
    const UsbDevice copy = *device;
    device.reset();
    EXPECT_EQ(copy.getDeviceInfo()->getproduct(),
              "a name that is too long to be kept inside of a string object");
}

TEST(UsbDevice, TheLastLineOfAKindCounts) {
    UsbDevice device;
    device.setInterface("I:  If#= 0 Alt= 0 #EPs= 1 Cls=01(audio) Sub=01 Prot=00 Driver=snd");
    device.setInterface("I:  If#= 1 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=00 Prot=00 Driver=usbhid");
    EXPECT_EQ(device.getInterface()->getInterface(), " 1 ");
    EXPECT_EQ(device.getInterface()->getDriver(), "usbhid");
}

}  // namespace
