// SPDX-License-Identifier: MIT
#include "wire/http/PercentEncoding.h"

#include <gtest/gtest.h>

using namespace wire;

TEST(PercentEncoding, encodesAllButLettersDigitsAndFourMarks) {
    EXPECT_EQ(percentEncoded("root/x:A.b=\"c\""), "root%2Fx%3AA.b%3D%22c%22");
    EXPECT_EQ(percentEncoded("aZ09-._~"), "aZ09-._~");
    EXPECT_EQ(percentEncoded("\xC3\xA9 %\r\n"), "%C3%A9%20%25%0D%0A");
}

TEST(PercentEncoding, decodesWhatItEncodes) {
    std::string all;
    for (int c = 0; c < 256; ++c) {
        all += static_cast<char>(c);
    }
    EXPECT_EQ(percentDecoded(percentEncoded(all)), all);
    EXPECT_EQ(percentDecoded("%2f%2F"), "//");
}

TEST(PercentEncoding, brokenEscapesStay) {
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%2"), "%2");
    EXPECT_EQ(percentDecoded("%zz%-1%+1"), "%zz%-1%+1");
    EXPECT_EQ(percentDecoded("%2g"), "%2g");
}
