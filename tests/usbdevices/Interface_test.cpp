// SPDX-License-Identifier: MIT
#include "usbdevices/Interface.h"

#include <gtest/gtest.h>

namespace {

TEST(InterfaceRecord, TakesEveryItemOfALine) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub");
    EXPECT_EQ(record.getDriver(), "hub");
    EXPECT_EQ(record.getClass(), "09");
    EXPECT_EQ(record.getSubClass(), "00 ");
    EXPECT_EQ(record.getInterface(), " 0 ");
    EXPECT_EQ(record.getProtocol(), "00 ");
}

TEST(InterfaceRecord, TakesItsOwnSubClassAndProtocol) {
    Interface record;
    record.Initialize("I:* If#= 2 Alt= 1 #EPs= 2 Cls=08(stor.) Sub=06 Prot=50 Driver=usb-storage");
    EXPECT_EQ(record.getSubClass(), "06 ");
    EXPECT_EQ(record.getProtocol(), "50 ");
    EXPECT_EQ(record.getInterface(), " 2 ");
}

TEST(InterfaceRecord, KeepsTheTextForNoDriver) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 0 #EPs= 1 Cls=ff(vend.) Sub=00 Prot=00 Driver=(none)");
    EXPECT_EQ(record.getDriver(), "(none)");
    EXPECT_EQ(record.getClass(), "ff");
}

TEST(InterfaceRecord, KeepsADriverNameWithBlanks) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 9 #EPs= 1 Cls=ff(vend.) Sub=00 Prot=00 Driver=Two words ");
    EXPECT_EQ(record.getDriver(), "Two words ");
}

TEST(InterfaceRecord, WithoutDriverHasNoProtocolEither) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 ");
    EXPECT_EQ(record.getDriver(), "");
    EXPECT_EQ(record.getProtocol(), "");
    EXPECT_EQ(record.getClass(), "09");
    EXPECT_EQ(record.getSubClass(), "00 ");
}

TEST(InterfaceRecord, ASecondLineReplacesEveryField) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub");
    record.Initialize("I:  If#= 1 Alt= 0");
    EXPECT_EQ(record.getInterface(), " 1 ");
    EXPECT_EQ(record.getDriver(), "");
    EXPECT_EQ(record.getClass(), "");
    EXPECT_EQ(record.getSubClass(), "");
    EXPECT_EQ(record.getProtocol(), "");
}

TEST(InterfaceRecord, AnEmptyLineEmptiesEveryField) {
    Interface record;
    record.Initialize("I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub");
    record.Initialize("");
    EXPECT_EQ(record.getDriver(), "");
    EXPECT_EQ(record.getClass(), "");
    EXPECT_EQ(record.getSubClass(), "");
    EXPECT_EQ(record.getInterface(), "");
    EXPECT_EQ(record.getProtocol(), "");
}

}  // namespace
