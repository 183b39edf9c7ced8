// SPDX-License-Identifier: MIT
#include "cli/TerminalText.h"

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

TEST(TerminalText, KeepsTheLinesOfAText) {
    EXPECT_EQ(linesWithoutControls("a\x1B\n\nb\r\n"), "a\uFFFD\n\nb\uFFFD\n");
    EXPECT_EQ(linesWithoutControls(""), "");
    EXPECT_EQ(linesWithoutControls("a"), "a");
}

TEST(TerminalText, ReplacesLineFeedsAlone) {
    EXPECT_EQ(withoutLineFeeds("a\nb\r\x1B\n"), "a\uFFFDb\r\x1B\uFFFD");
}

TEST(TerminalText, CountsColumns) {
    EXPECT_EQ(displayWidth(""), 0U);
    EXPECT_EQ(displayWidth("usb1"), 4U);
    EXPECT_EQ(displayWidth("M\u00FCller"), 6U);
    EXPECT_EQ(displayWidth("\u65E5\u672C"), 4U) << "wide characters";
    EXPECT_EQ(displayWidth("e\u0301"), 1U) << "a combining accent";
}

TEST(TerminalText, CountsWhatIsNotUtf8AsOneColumnEach) {
    EXPECT_EQ(displayWidth("\xFF\xFE"), 2U);
    EXPECT_EQ(displayWidth("\xE6\x97"), 2U) << "cut";
    EXPECT_EQ(displayWidth("\xED\xA0\x80"), 3U) << "a surrogate";
}

}  // namespace
}  // namespace usbhcdiag
