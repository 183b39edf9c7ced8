// SPDX-License-Identifier: MIT
#include "base/Utf8.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace base {

namespace {

constexpr char32_t afterLast = lastCodePoint + 1;

/// Bytes that no code point has, with how they go wrong.
const std::vector<std::pair<std::string, const char*>> notUtf8 = {
    {"\x80", "a continuation alone"},
    {"\xBF", "a continuation alone"},
    {"\xC0\x80", "U+0000 in two bytes"},
    {"\xC1\xBF", "U+007F in two bytes"},
    {"\xE0\x80\x80", "U+0000 in three bytes"},
    {"\xE0\x9F\xBF", "U+07FF in three bytes"},
    {"\xF0\x80\x80\x80", "U+0000 in four bytes"},
    {"\xF0\x8F\xBF\xBF", "U+FFFF in four bytes"},
    {"\xF4\x90\x80\x80", "U+110000"},
    {"\xF5\x80\x80\x80", "more than four bytes could be needed for"},
    {"\xF8\x88\x80\x80\x80", "five bytes"},
    {"\xFC\x84\x80\x80\x80\x80", "six bytes"},
    {"\xFE", "no first byte"},
    {"\xFF", "no first byte"},
    {"\xC2", "cut off"},
    {"\xE2", "cut off"},
    {"\xE2\x82", "cut off"},
    {"\xF0", "cut off"},
    {"\xF0\x9F", "cut off"},
    {"\xF0\x9F\x98", "cut off"},
    {"\xC2z", "the second byte continues nothing"},
    {"\xC2\xC2\x80", "the second byte begins another"},
    {"\xE2\x82z", "the third byte continues nothing"},
    {"\xE2z\x82", "the second byte continues nothing"},
    {"\xF0\x9F\x98z", "the fourth byte continues nothing"},
};

std::string written(char32_t code) {
    std::string text;
    appendUtf8(text, code);
    return text;
}

Utf8Sequence read(const std::string& bytes) {
    const Utf8Sequence generalized = readGeneralizedUtf8(bytes.data(), bytes.size());
    const Utf8Sequence sequence = readUtf8(bytes.data(), bytes.size());
    if (isSurrogate(generalized.code)) {
        EXPECT_EQ(sequence.length, 0U);
    } else {
        EXPECT_EQ(sequence.length, generalized.length);
        EXPECT_EQ(sequence.code, generalized.code);
    }
    return generalized;
}

TEST(Utf8, writesTheFirstAndTheLastCodePointOfEachLength) {
    EXPECT_EQ(written(0), std::string(1, '\0'));
    EXPECT_EQ(written(0x7F), "\x7F");
    EXPECT_EQ(written(0x80), "\xC2\x80");
    EXPECT_EQ(written(0x7FF), "\xDF\xBF");
    EXPECT_EQ(written(0x800), "\xE0\xA0\x80");
    EXPECT_EQ(written(0xD7FF), "\xED\x9F\xBF");
    EXPECT_EQ(written(0xD800), "\xED\xA0\x80") << "half a pair by its number";
    EXPECT_EQ(written(0xDFFF), "\xED\xBF\xBF") << "half a pair by its number";
    EXPECT_EQ(written(0xE000), "\xEE\x80\x80");
    EXPECT_EQ(written(0xFFFF), "\xEF\xBF\xBF");
    EXPECT_EQ(written(0x10000), "\xF0\x90\x80\x80");
    EXPECT_EQ(written(lastCodePoint), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8, readsBackEveryCodePoint) {
    for (char32_t code = 0; code < afterLast; ++code) {
        const std::string bytes = written(code);
        ASSERT_EQ(bytes.size(), utf8Length(code)) << std::hex << std::uint32_t{code};
        for (const char* after : {"", "z", "\x80"}) {
            const Utf8Sequence sequence = read(bytes + after);
            ASSERT_EQ(sequence.code, code) << std::hex << std::uint32_t{code};
            ASSERT_EQ(sequence.length, bytes.size()) << std::hex << std::uint32_t{code};
        }
        ASSERT_EQ(isUtf8(bytes), code < 0xD800 || code > 0xDFFF) << std::hex << std::uint32_t{code};
    }
}

// Each pair of a first and a second byte, so that no range of either is open at its end.
TEST(Utf8, readsNoOtherPairsOfBytes) {
    int wellFormed = 0;
    for (int first = 0x80; first < 0x100; ++first) {
        for (int second = 0; second < 0x100; ++second) {
            const std::string two = {static_cast<char>(first), static_cast<char>(second)};
            wellFormed += read(two).length == 2 ? 1 : 0;
            wellFormed += read(two + "\x80").length == 3 ? 1 : 0;
            wellFormed += read(two + "\x80\x80").length == 4 ? 1 : 0;
        }
    }
    // U+0080 to U+07FF; of three and four bytes those whose last one or two have no bits, of which
    // three bytes have the surrogates and four end at U+10FFFF. Two bytes stay two whatever follows.
    EXPECT_EQ(wellFormed, 0x780 + (0x10000 - 0x800) / 0x40 + 0x100000 / 0x1000);
}

TEST(Utf8, readsNothingElse) {
    for (const auto& [bytes, how] : notUtf8) {
        EXPECT_EQ(read(bytes).length, 0U) << how;
    }
}

TEST(Utf8, readsNothingThatFollowsTheBytes) {
    for (const std::string bytes : {"\xC2\x80", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
        for (std::size_t size = 1; size < bytes.size(); ++size) {
            EXPECT_EQ(readUtf8(bytes.data(), size).length, 0U) << size << " of " << bytes.size();
        }
        EXPECT_EQ(readUtf8(bytes.data(), bytes.size()).length, bytes.size());
    }
}

TEST(Utf8, knowsBytesThatContinue) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(continuesUtf8(static_cast<char>(byte)), byte >= 0x80 && byte < 0xC0) << byte;
    }
}

TEST(Utf8, isNotCutWithinASequence) {
    const std::string text = "a\u00e9\u20ac\U0001F600";  // 1, 2, 3 and 4 bytes
    const std::vector<std::size_t> lengths = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10, 10};
    for (std::size_t longest = 0; longest < lengths.size(); ++longest) {
        EXPECT_EQ(utf8Prefix(text, longest), text.substr(0, lengths[longest])) << longest;
    }
    EXPECT_EQ(utf8Prefix("\x80\x80\x80", 2), "") << "no end of a sequence";
    EXPECT_EQ(utf8Prefix("", 0), "");
    EXPECT_EQ(utf8Prefix(std::string_view("ab\x80").substr(0, 2), 2), "ab")
        << "what follows the text is not looked at";
}

TEST(Utf8, knowsSurrogates) {
    EXPECT_FALSE(isSurrogate(0xD7FF));
    EXPECT_TRUE(isSurrogate(0xD800));
    EXPECT_TRUE(isSurrogate(0xDFFF));
    EXPECT_FALSE(isSurrogate(0xE000));
    EXPECT_FALSE(isSurrogate(0x1D800));
}

TEST(Utf8, isWhatAWholeTextIs) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8(std::string_view("a\0b", 3)));
    EXPECT_TRUE(isUtf8("a\u00e9\u20ac\U0001F600\U0010FFFF"));
    EXPECT_TRUE(isUtf8("\xED\x9F\xBF\xEE\x80\x80")) << "around the surrogates";
    EXPECT_TRUE(isUtf8("\xEF\xBF\xBE\xEF\xBF\xBF")) << "U+FFFE and U+FFFF";
    EXPECT_FALSE(isUtf8("\xED\xA0\x80")) << "a surrogate";
    EXPECT_FALSE(isUtf8("\xED\xBF\xBF")) << "a surrogate";
    EXPECT_FALSE(isUtf8("\xED\xA0\xBD\xED\xB8\x80")) << "a pair of surrogates";
}

// ASCII is looked at in blocks, so others have to be found at every place in and between them.
TEST(Utf8, isNotWhatATextWithASingleFaultIs) {
    for (const auto& [bytes, how] : notUtf8) {
        for (std::size_t at = 0; at <= 20; ++at) {
            const std::string before(at, 'a');
            EXPECT_FALSE(isUtf8(before + bytes)) << how << " after " << at;
            EXPECT_FALSE(isUtf8(before + bytes + "0123456789ABCDEF")) << how << " after " << at;
            EXPECT_FALSE(isUtf8(before + "\u20ac" + bytes)) << how << " after " << at;
        }
    }
}

}  // namespace

}  // namespace base
