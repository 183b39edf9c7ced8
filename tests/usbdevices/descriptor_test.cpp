// SPDX-License-Identifier: MIT
#include "usbdevices/descriptor.h"

#include <gtest/gtest.h>

namespace {

TEST(Descriptor, TakesVersionAndProtocol) {
    descriptor record;
    record.Initialize("D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1");
    EXPECT_EQ(record.getVersion(), " 1.10 ");
    EXPECT_EQ(record.getProtocol(), "00 ");
}

TEST(Descriptor, BeginsEmptyAndEndsEmptyWithAnEmptyLine) {
    descriptor record;
    EXPECT_EQ(record.getVersion(), "");
    EXPECT_EQ(record.getProtocol(), "");
    record.Initialize("D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1");
    record.Initialize("");
    EXPECT_EQ(record.getVersion(), "");
    EXPECT_EQ(record.getProtocol(), "");
}

TEST(Descriptor, ASecondLineReplacesBothFields) {
    descriptor record;
    record.Initialize("D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1");
    record.Initialize("D:  Ver= 2.00 Cls=00");
    EXPECT_EQ(record.getVersion(), " 2.00 ");
    EXPECT_EQ(record.getProtocol(), "");
}

TEST(Descriptor, WithoutTheNextItemIsEmpty) {
    descriptor record;
    record.Initialize("D:  Ver= 1.10 Prot=00 ");
    EXPECT_EQ(record.getVersion(), "");
    EXPECT_EQ(record.getProtocol(), "");
}

}  // namespace
