// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlDocument.h"

#include <gtest/gtest.h>

#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

XmlDocument parse(const std::string& content) {
    return XmlDocument("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n" + content);
}

std::string textOf(const std::string& content) {
    return parse("<a>" + content + "</a>").root().text();
}

}  // namespace

TEST(XmlDocument, walksElements) {
    const XmlDocument document = parse("<a>\n<b/> t <!-- c --><c x='1'><d/></c>\n</a>");
    std::string names;
    for (const XmlElement child : document.root()) {
        names += child.name();
    }
    EXPECT_EQ(names, "bc");
    const XmlElement c = document.root().firstChild().next();
    EXPECT_EQ(c.firstChild().name(), "d");
    EXPECT_FALSE(c.next());
    EXPECT_FALSE(c.firstChild().firstChild());
    EXPECT_FALSE(XmlElement());
}

TEST(XmlDocument, decodesAttributes) {
    const XmlDocument document = parse("<a b='&lt;&#233;&#32;' c=''/>");
    EXPECT_EQ(document.root().attribute("b"), "<\u00e9 ");
    EXPECT_EQ(document.root().attribute("c"), "");
    EXPECT_EQ(document.root().attribute("d"), std::nullopt);
}

TEST(XmlDocument, dropsWhiteSpaceAtTheEndsOfText) {
    EXPECT_EQ(textOf(" \t\r\n two  words \n "), "two  words");
    EXPECT_EQ(textOf("   "), "");
    EXPECT_EQ(textOf(" !a~ "), "!a~");
    EXPECT_EQ(textOf("~a!"), "~a!");
    EXPECT_EQ(textOf(""), "");
}

TEST(XmlDocument, keepsSpacesWrittenAsReferences) {
    EXPECT_EQ(textOf(" &#32;x&#32; "), " x ");
    EXPECT_EQ(textOf("&#32;"), " ");
    EXPECT_EQ(textOf("\n&#10;x&#10;\n"), "\nx\n");
}

TEST(XmlDocument, keepsLineEndsInsideText) {
    EXPECT_EQ(textOf("line1\r\nline2\nline3\ttab"), "line1\r\nline2\nline3\ttab");
}

TEST(XmlDocument, takesCdataAsItIs) {
    EXPECT_EQ(textOf("<![CDATA[<x>&amp; ]]>"), "<x>&amp; ");
    EXPECT_EQ(textOf(" a<![CDATA[ <b> ]]>c "), "a <b> c");
}

TEST(XmlDocument, joinsTextAroundComments) {
    EXPECT_EQ(textOf("ab<!-- - -->cd"), "abcd");
}

TEST(XmlDocument, takesRawControlCharacters) {
    EXPECT_EQ(textOf("a\x01"
                     "b"),
              "a\x01"
              "b");
}

TEST(XmlDocument, refusesWhatTheScannerRefuses) {
    EXPECT_THROW(parse("<a>"), XmlError);
    EXPECT_THROW(XmlDocument("<?xml version='1.0'?><a><b/></a>", XmlLimits{1, 9, 9}), XmlError);
}
