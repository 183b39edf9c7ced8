// SPDX-License-Identifier: MIT
#include "cli/Table.h"

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

TEST(Table, AlignsColumnsAndEndsLinesWithoutBlanks) {
    Table table({"ID", "NAME", "X"});
    table.addRow({"0000:00:14.0", "one", "1"});
    table.addRow({"usb1", "", ""});
    table.addRow({"", "second", "2"});
    EXPECT_EQ(table.text(false),
              "ID            NAME    X\n"
              "0000:00:14.0  one     1\n"
              "usb1\n"
              "              second  2\n");
}

TEST(Table, CountsColumnsNotBytes) {
    Table table({"A", "B"});
    table.addRow({"\u65E5", "x"});
    table.addRow({"\u00FC", "y"});
    EXPECT_EQ(table.text(false), "A   B\n\u65E5  x\n\u00FC   y\n");
}

TEST(Table, TakesControlCharactersOutOfCells) {
    Table table({"A"});
    table.addRow({"x\x1B[2Jy\n"});
    EXPECT_EQ(table.text(false), "A\nx\uFFFD[2Jy\uFFFD\n");
}

TEST(Table, PrintsHeadingsInBold) {
    Table table({"A"});
    table.addRow({"x"});
    EXPECT_EQ(table.text(true), "\033[1mA\033[0m\nx\n");
}

TEST(Table, WithoutRowsHasItsHeadings) {
    EXPECT_EQ(Table({"A", "B"}).text(false), "A  B\n");
}

}  // namespace
}  // namespace usbhcdiag
