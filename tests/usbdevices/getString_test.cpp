// SPDX-License-Identifier: MIT
#include "usbdevices/getString.h"

#include <gtest/gtest.h>

namespace {

TEST(GetString, TakesTheTextBetweenKeyAndEndWithItsBlanks) {
    EXPECT_EQ(getString("T:  Bus=01 Lev=00 ", "bus=", "lev="), "01 ");
    EXPECT_EQ(getString("Dev#=  1 Spd=12", "dev#=", "spd="), "  1 ");
}

TEST(GetString, FindsTheKeyInAnyCaseAndKeepsTheCaseOfTheText) {
    for (const char* line : {"BUS=Aa LEV=", "Bus=Aa Lev=", "bus=Aa lev="}) {
        EXPECT_EQ(getString(line, "bus=", "lev="), "Aa ") << line;
    }
}

TEST(GetString, TakesTheFirstOccurrenceOfTheKey) {
    EXPECT_EQ(getString("Sub=01 Prot=02 Sub=03 Prot=04", "sub=", "prot"), "01 ");
}

TEST(GetString, WithoutTheKeyIsEmpty) {
    EXPECT_EQ(getString("T:  Lev=00 ", "bus=", "lev="), "");
    EXPECT_EQ(getString("T:  Lev=00 ", "bus=", "\n"), "");
}

TEST(GetString, WithoutTheEndIsEmptyDespiteTheKey) {
    EXPECT_EQ(getString("T:  Bus=01 ", "bus=", "lev="), "");
}

TEST(GetString, ALineFeedAsEndMeansTheEndOfTheLine) {
    EXPECT_EQ(getString("P:  Rev= 2.04  ", "rev=", "\n"), " 2.04  ");
    EXPECT_EQ(getString("P:  Rev=", "rev=", "\n"), "");
}

TEST(GetString, AnEndBeforeTheKeyDoesNotCount) {
    EXPECT_EQ(getString("Lev=7 Bus=01 Lev=00", "bus=", "lev="), "01 ");
    EXPECT_EQ(getString("Lev=7 Bus=01", "bus=", "lev="), "");
}

TEST(GetString, SearchesTheEndFromTheBeginningOfTheKey) {
    // An end inside the key is found first.
    EXPECT_EQ(getString("Vendor=0409 dor", "vendor=", "dor"), "");
    EXPECT_EQ(getString("Vendor=0409 Vendor=", "vendor=", "vendor="), "");
    // So is one at the end of the key, and one right after it.
    EXPECT_EQ(getString("Vendor=0409 ", "vendor=", "="), "");
    EXPECT_EQ(getString("Vendor=ProdID=0", "vendor=", "prodid"), "");
}

TEST(GetString, AnEmptyLineIsEmpty) {
    EXPECT_EQ(getString("", "bus=", "lev="), "");
    EXPECT_EQ(getString("", "bus=", "\n"), "");
}

TEST(GetString, KeepsBytesThatAreNoAscii) {
    EXPECT_EQ(getString("Product=Maus\xAE \xC3\xBC\xFF", "product=", "\n"),
              "Maus\xAE \xC3\xBC\xFF");
    EXPECT_EQ(getString("\xFF\xFE"
                        "bus=\x80lev=",
                        "bus=", "lev="),
              "\x80");
}

TEST(LowerCase, ChangesOnlyTheLettersAToZ) {
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        const char expected = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : character;
        EXPECT_EQ(lowerCase(character), expected) << byte;
    }
}

TEST(FindIgnoringCase, FindsAMatchAtEitherEnd) {
    EXPECT_EQ(findIgnoringCase("OHCI", "ohci"), 0U);
    EXPECT_EQ(findIgnoringCase("xxOhCi", "ohci"), 2U);
    EXPECT_EQ(findIgnoringCase("ohc", "ohci"), std::string_view::npos);
    EXPECT_EQ(findIgnoringCase("ohci", "ohci", 1), std::string_view::npos);
    EXPECT_EQ(findIgnoringCase("ohci", "ohci", 9), std::string_view::npos);
    EXPECT_EQ(findIgnoringCase("", "ohci"), std::string_view::npos);
    EXPECT_EQ(findIgnoringCase("oohci", "ohci"), 1U);
}

}  // namespace
