// SPDX-License-Identifier: MIT
#include "usbdevices/topology.h"

#include <gtest/gtest.h>

namespace {

TEST(Topology, TakesEveryItemOfALine) {
    topology record;
    record.Initialize("T:  Bus=01 Lev=02 Prnt=03 Port=04 Cnt=05 Dev#=  6 Spd=12  MxCh= 2");
    EXPECT_EQ(record.getBus(), "01 ");
    EXPECT_EQ(record.getLevel(), "02 ");
    EXPECT_EQ(record.getParentDevice(), "03 ");
    EXPECT_EQ(record.getPort(), "04 ");
    EXPECT_EQ(record.getDeviceLevelNum(), "05 ");
    EXPECT_EQ(record.getDeviceBusNumber(), "  6 ");
    EXPECT_EQ(record.getSpeed(), "12  ");
    EXPECT_EQ(record.getConnections(), " 2");
}

TEST(Topology, BeginsEmpty) {
    const topology record;
    for (const auto& value :
         {record.getBus(), record.getLevel(), record.getParentDevice(), record.getPort(),
          record.getDeviceLevelNum(), record.getDeviceBusNumber(), record.getSpeed(),
          record.getConnections()}) {
        EXPECT_EQ(value, "");
    }
}

TEST(Topology, FindsKeysInAnyCase) {
    topology record;
    record.Initialize("T:  BUS=0A LEV=00 prnt=00 PORT=0b cnt=00 dEV#=  1 SPD=12   MXCH= 4");
    EXPECT_EQ(record.getBus(), "0A ");
    EXPECT_EQ(record.getPort(), "0b ");
    EXPECT_EQ(record.getConnections(), " 4");
}

TEST(Topology, WithoutConnectionsHasNoSpeedEither) {
    topology record;
    record.Initialize("T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  ");
    EXPECT_EQ(record.getDeviceBusNumber(), "  1 ");
    EXPECT_EQ(record.getSpeed(), "");
    EXPECT_EQ(record.getConnections(), "");
}

TEST(Topology, KeepsTrailingBlanksOfTheLine) {
    topology record;
    record.Initialize("T:  Spd=12  MxCh= 2   ");
    EXPECT_EQ(record.getConnections(), " 2   ");
}

TEST(Topology, ASecondLineReplacesEveryField) {
    topology record;
    record.Initialize("T:  Bus=01 Lev=02 Prnt=03 Port=04 Cnt=05 Dev#=  6 Spd=12  MxCh= 2");
    record.Initialize("T:  Bus=07 Lev=");
    EXPECT_EQ(record.getBus(), "07 ");
    EXPECT_EQ(record.getLevel(), "");
    EXPECT_EQ(record.getParentDevice(), "");
    EXPECT_EQ(record.getPort(), "");
    EXPECT_EQ(record.getDeviceLevelNum(), "");
    EXPECT_EQ(record.getDeviceBusNumber(), "");
    EXPECT_EQ(record.getSpeed(), "");
    EXPECT_EQ(record.getConnections(), "");
}

TEST(Topology, AnEmptyLineEmptiesEveryField) {
    topology record;
    record.Initialize("T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2");
    record.Initialize("");
    for (const auto& value :
         {record.getBus(), record.getLevel(), record.getParentDevice(), record.getPort(),
          record.getDeviceLevelNum(), record.getDeviceBusNumber(), record.getSpeed(),
          record.getConnections()}) {
        EXPECT_EQ(value, "");
    }
}

TEST(Topology, ValuesOfALineOfAnotherKindAreTaken) {
    topology record;
    record.Initialize("S:  Product=Bus=9 Lev=Port");
    EXPECT_EQ(record.getBus(), "9 ");
    EXPECT_EQ(record.getLevel(), "");
}

}  // namespace
