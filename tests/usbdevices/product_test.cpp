// SPDX-License-Identifier: MIT
#include "usbdevices/product.h"

#include <gtest/gtest.h>

namespace {

TEST(Product, TakesIdentifiersAndRevisionAsText) {
    product record;
    record.Initialize("P:  Vendor=0000 ProdID=0000 Rev= 2.04");
    EXPECT_EQ(record.getVendor(), "0000 ");
    EXPECT_EQ(record.getProduct(), "0000 ");
    EXPECT_EQ(record.getRevision(), " 2.04");
}

TEST(Product, KeepsOddRevisionsAndTrailingBlanks) {
    product record;
    record.Initialize("P:  Vendor=04b8 ProdID=010A Rev= a.03 ");
    EXPECT_EQ(record.getProduct(), "010A ");
    EXPECT_EQ(record.getRevision(), " a.03 ");
}

TEST(Product, WithoutRevisionHasNoProductEither) {
    product record;
    record.Initialize("P:  Vendor=04b8 ProdID=010a");
    EXPECT_EQ(record.getVendor(), "04b8 ");
    EXPECT_EQ(record.getProduct(), "");
    EXPECT_EQ(record.getRevision(), "");
}

TEST(Product, ASecondLineReplacesEveryField) {
    product record;
    EXPECT_EQ(record.getVendor() + record.getProduct() + record.getRevision(), "");
    record.Initialize("P:  Vendor=04b8 ProdID=010a Rev= 1.00");
    record.Initialize("P:  Rev= 2.00");
    EXPECT_EQ(record.getVendor(), "");
    EXPECT_EQ(record.getProduct(), "");
    EXPECT_EQ(record.getRevision(), " 2.00");
}

TEST(Product, AnEmptyLineEmptiesEveryField) {
    product record;
    record.Initialize("P:  Vendor=04b8 ProdID=010a Rev= 1.00");
    record.Initialize("");
    EXPECT_EQ(record.getVendor(), "");
    EXPECT_EQ(record.getProduct(), "");
    EXPECT_EQ(record.getRevision(), "");
}

}  // namespace
