// SPDX-License-Identifier: MIT
#include "usbdevices/configuration.h"

#include <gtest/gtest.h>

namespace {

TEST(Configuration, TakesThePowerWithoutItsUnit) {
    configuration record;
    record.Initialize("C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA");
    EXPECT_EQ(record.getPower(), "  0");
    record.Initialize("C:  #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr=100mA");
    EXPECT_EQ(record.getPower(), "100");
}

TEST(Configuration, WithoutTheUnitIsEmpty) {
    configuration record;
    EXPECT_EQ(record.getPower(), "");
    record.Initialize("C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA");
    record.Initialize("C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=100");
    EXPECT_EQ(record.getPower(), "");
}

TEST(Configuration, AnEmptyLineEmptiesThePower) {
    configuration record;
    record.Initialize("C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA");
    record.Initialize("");
    EXPECT_EQ(record.getPower(), "");
}

}  // namespace
