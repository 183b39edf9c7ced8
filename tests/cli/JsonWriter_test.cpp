// SPDX-License-Identifier: MIT
#include "cli/JsonWriter.h"

#include <limits>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "base/Utf8.h"

namespace usbhcdiag {
namespace {

std::string textOfString(std::string_view text) {
    return jsonText([text](JsonWriter& json) { json.string(text); });
}

TEST(JsonWriter, IndentsByTwoBlanks) {
    EXPECT_EQ(jsonText([](JsonWriter& json) {
                  json.beginObject();
                  json.member("number", 1U);
                  json.key("array");
                  json.beginArray();
                  json.value(true);
                  json.value(nullptr);
                  json.beginObject();
                  json.endObject();
                  json.beginArray();
                  json.endArray();
                  json.endArray();
                  json.endObject();
              }),
              "{\n"
              "  \"number\": 1,\n"
              "  \"array\": [\n"
              "    true,\n"
              "    null,\n"
              "    {},\n"
              "    []\n"
              "  ]\n"
              "}\n");
}

TEST(JsonWriter, WritesValuesByTheirType) {
    const auto text = [](const auto& value) {
        return jsonText([&value](JsonWriter& json) { json.value(value); });
    };
    EXPECT_EQ(text(false), "false\n");
    EXPECT_EQ(text(std::uint8_t{255}), "255\n");
    EXPECT_EQ(text(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615\n");
    EXPECT_EQ(text(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808\n");
    EXPECT_EQ(text(1.5), "1.5\n");
    EXPECT_EQ(text(480.0), "480.0\n");
    EXPECT_EQ(text(std::numeric_limits<double>::infinity()), "null\n");
    EXPECT_EQ(text("text"), "\"text\"\n");
    EXPECT_EQ(text(std::optional<std::string>("")), "\"\"\n");
    EXPECT_EQ(text(std::optional<bool>(false)), "false\n");
    EXPECT_EQ(text(std::optional<unsigned>()), "null\n");
}

TEST(JsonWriter, WritesNullForNoText) {
    EXPECT_EQ(jsonText([](JsonWriter& json) {
                  json.beginObject();
                  json.textOrNull("some", "text");
                  json.textOrNull("none", "");
                  json.endObject();
              }),
              "{\n  \"some\": \"text\",\n  \"none\": null\n}\n");
}

TEST(JsonWriter, EscapesWhatStringsMayNotHold) {
    EXPECT_EQ(textOfString("\"\\/\n\t\x1B\x7F\u00E9"), "\"\\\"\\\\/\\n\\t\\u001B\x7F\u00E9\"\n");
    EXPECT_EQ(textOfString(std::string("a\0b", 3)), "\"a\\u0000b\"\n");
}

TEST(JsonWriter, ReplacesWhatIsNoUtf8) {
    // A character that breaks off is replaced as one, any other byte by itself.
    EXPECT_EQ(textOfString("a\xFF\xFF"
                           "b"),
              "\"a\uFFFD\uFFFDb\"\n");
    EXPECT_EQ(textOfString("\xE2\x82"
                           "b\xF0\x9F\x98"),
              "\"\uFFFDb\uFFFD\"\n");
    EXPECT_EQ(textOfString("\xF0\x9F"
                           "b\xE2"),
              "\"\uFFFDb\uFFFD\"\n");
    // Half a surrogate pair, a longer form of a slash, and what is beyond the last code point.
    EXPECT_EQ(textOfString("\xED\xA0\x80"), "\"\uFFFD\uFFFD\uFFFD\"\n");
    EXPECT_EQ(textOfString("\xE0\x80\xAF"), "\"\uFFFD\uFFFD\uFFFD\"\n");
    EXPECT_EQ(textOfString("\xF4\x90\x80\x80"), "\"\uFFFD\uFFFD\uFFFD\uFFFD\"\n");
}

TEST(JsonWriter, PassesPartsOnThatAreShortAndWhole) {
    constexpr std::size_t longestPart = 65536;
    const std::string character = "\U0001F600";
    std::string longText;
    for (std::size_t i = 0; i < longestPart; ++i) {
        longText += character;
    }
    for (const std::string& shift : {std::string(), std::string("a"), std::string("ab")}) {
        std::vector<std::string> parts;
        JsonWriter json([&parts](std::string_view part) { parts.emplace_back(part); });
        json.string(shift + longText);
        EXPECT_GE(parts.size(), 3U);
        json.finish();
        std::string whole;
        for (const std::string& part : parts) {
            EXPECT_LE(part.size(), longestPart);
            EXPECT_TRUE(base::isUtf8(part));
            whole += part;
        }
        EXPECT_EQ(whole, '"' + shift + longText + "\"\n");
    }
}

}  // namespace
}  // namespace usbhcdiag
