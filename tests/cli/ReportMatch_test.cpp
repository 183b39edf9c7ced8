// SPDX-License-Identifier: MIT
// A report is taken for that of a list only if it can be.
#include "cli/ReportMatch.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

using Report = std::vector<std::string>;

std::string device(const std::string& ids, const std::string& strings) {
    return "T:  Bus=01 Lev=01 Prnt=01 Port=01 Cnt=01 Dev#=  2 Spd=12  MxCh= 0\nP:  " + ids + "\n" +
           strings + "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms\n";
}

const std::string ids = "Vendor=046d ProdID=c00e Rev=11.10";
const std::string mouse = device(ids, "S:  Product=Mouse\nS:  SerialNumber=A1\n");

Report block(const std::string& product, const std::string& serial,
             const std::string& vendorId = "046d") {
    return {"Product Name                  " + product,
            "Serial Number                 " + serial,
            "Vendor Name                   ",
            "Vendor ID                     " + vendorId,
            "Product ID                    c00e",
            "Revision                      11.10",
            "USB Specification             ",
            "Interface Class               Human Interface Device",
            "          "};
}

Report operator+(Report one, const Report& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

bool matches(const Report& report, const std::string& text) {
    return isReportOf(report, text, ReportedList(text));
}

TEST(ReportMatch, KnowsTheReportOfAList) {
    EXPECT_TRUE(matches(block("Mouse", "A1"), mouse));
    EXPECT_TRUE(matches({}, ""));
}

TEST(ReportMatch, KnowsThatADeviceCameOrWent) {
    EXPECT_FALSE(matches(block("Mouse", "A1"), mouse + mouse));
    EXPECT_FALSE(matches(block("Mouse", "A1"), ""));
    EXPECT_FALSE(matches({}, mouse));
}

TEST(ReportMatch, KnowsThatADeviceTookThePlaceOfAnother) {
    EXPECT_FALSE(matches(block("Keyboard", "A1"), mouse));
    EXPECT_FALSE(matches(block("Mouse", "A2"), mouse));
    EXPECT_FALSE(matches(block("Mouse", "A1", "0461"), mouse));
    const std::string other = device(ids, "S:  Product=Disk\n");
    EXPECT_TRUE(matches(block("Mouse", "A1") + block("Disk", ""), mouse + other));
    EXPECT_FALSE(matches(block("Disk", "") + block("Mouse", "A1"), mouse + other));
}

TEST(ReportMatch, TextOfAnotherEncodingIsTheSame) {
    EXPECT_TRUE(matches(block("M\u00FCs \uFFFDx", ""), device(ids, "S:  Product=M\xFCs \x01x\n")));
}

TEST(ReportMatch, FieldsMayBeThoseOfADeviceWithoutBlock) {
    const std::string lender = "T:  Bus=01 Lev=01\nS:  Product=Lender\n";
    EXPECT_TRUE(matches(block("Lender", ""), lender + device(ids, "")));
    EXPECT_TRUE(matches(block("Nobody's", ""), "S:  Product=Nobody's\n" + device(ids, "")));
    EXPECT_FALSE(matches(block("Other", ""), lender + device(ids, "")));
}

TEST(ReportMatch, BlocksOfNoDeviceAreOnlyCounted) {
    const std::string list = "Tt\nE:\n" + mouse;
    EXPECT_TRUE(matches(block("", "") + block("Mouse", "A1"), list));
    EXPECT_FALSE(matches(block("Mouse", "A1") + block("Disk", ""), list));
    EXPECT_FALSE(matches(block("Mouse", "A1"), list));
}

TEST(ReportMatch, ANameThatNamesAFieldIsStillItsOwn) {
    EXPECT_TRUE(matches(block("x", "Product=x"),
                        device(ids, "S:  Product=Mouse\nS:  SerialNumber=Product=x\n")));
}

}  // namespace
}  // namespace usbhcdiag
