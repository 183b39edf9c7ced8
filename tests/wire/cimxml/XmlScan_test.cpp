// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlScan.h"

#include <string>

#include <gtest/gtest.h>

#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

constexpr std::string_view declaration = "<?xml version=\"1.0\"?>";

std::string document(std::string_view content) {
    return std::string(declaration) + std::string(content);
}

/// What is wrong with a document: "malformed: ..." or "invalid: ...", "nothing" if all is well.
std::string whatIsWrong(std::string_view text, const XmlLimits& limits = {}) {
    try {
        scanXml(text, limits);
        return "nothing";
    } catch (const XmlError& error) {
        return (error.fault() == XmlFault::notValid ? "invalid: " : "malformed: ") +
               std::string(error.what());
    }
}

std::string whatIsWrongInside(std::string_view content) {
    return whatIsWrong(document(content));
}

std::string nested(std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i) {
        text += "<a>";
    }
    for (std::size_t i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text;
}

}  // namespace

TEST(XmlScan, takesWellFormedDocuments) {
    EXPECT_EQ(whatIsWrongInside("<a/>"), "nothing");
    EXPECT_EQ(whatIsWrongInside("<a b='1' c = \"2\" >t&amp;<d ></d ><!-- x < & --></a >\n"),
              "nothing");
    EXPECT_EQ(whatIsWrongInside("<a><![CDATA[ <x> & ]]></a>"), "nothing");
    EXPECT_EQ(whatIsWrongInside("<!-- before --><a/><!-- behind --><?p i?>"), "nothing");
    EXPECT_EQ(whatIsWrong("\xEF\xBB\xBF \n" + document("<a/>")), "nothing");
    EXPECT_EQ(whatIsWrong("\xEF\xBB\xBF" + document("<a/>")), "nothing");
    EXPECT_EQ(whatIsWrongInside("<a b=\">\"/>"), "nothing");
    EXPECT_EQ(whatIsWrongInside("<\xC3\xA9/>"), "nothing");
}

TEST(XmlScan, wantsADeclaration) {
    const std::string missing =
        "invalid: line 1: the document does not begin with an XML declaration";
    EXPECT_EQ(whatIsWrong(""), missing);
    EXPECT_EQ(whatIsWrong("hello"), missing);
    EXPECT_EQ(whatIsWrong("<a/>"), missing);
    EXPECT_EQ(whatIsWrong("<?xml"), missing);
    EXPECT_EQ(whatIsWrong("<?xmlish?><a/>"), missing);
    EXPECT_EQ(whatIsWrong("<?xml version='1.0'"),
              "malformed: line 1: a processing instruction is not closed");
}

TEST(XmlScan, wantsOneRoot) {
    EXPECT_EQ(whatIsWrongInside(""), "invalid: line 1: there is no element");
    EXPECT_EQ(whatIsWrongInside("<a/>\n<extra/>"),
              "malformed: line 2: there is a second root element, \"extra\"");
    EXPECT_EQ(whatIsWrongInside("text<a/>"),
              "malformed: line 1: there is text outside the root element");
    EXPECT_EQ(whatIsWrongInside("<a/>text"),
              "malformed: line 1: there is text outside the root element");
    EXPECT_EQ(whatIsWrongInside("<![CDATA[x]]><a/>"),
              "malformed: line 1: there is text outside the root element");
}

TEST(XmlScan, wantsTagsThatMatch) {
    EXPECT_EQ(whatIsWrongInside("<a>\n<b>\n</a>"),
              "malformed: line 3: the closing tag of \"a\" does not match the element \"b\"");
    EXPECT_EQ(whatIsWrongInside("<a></a></a>"),
              "malformed: line 1: the closing tag of \"a\" does not match");
    EXPECT_EQ(whatIsWrongInside("<a>\n<b></b>"),
              "malformed: line 2: the element \"a\" is not closed");
    EXPECT_EQ(whatIsWrongInside("<a></a b>"),
              "malformed: line 1: the closing tag of \"a\" does not end");
    EXPECT_EQ(whatIsWrongInside("<a <b/>"), "malformed: line 1: the tag of \"a\" does not end");
    EXPECT_EQ(whatIsWrongInside("<a"), "malformed: line 1: the tag of \"a\" does not end");
    EXPECT_EQ(whatIsWrongInside("<a/ >"), "malformed: line 1: the tag of \"a\" does not end");
    EXPECT_EQ(whatIsWrongInside("< a/>"), "malformed: line 1: a name is expected");
    EXPECT_EQ(whatIsWrongInside("<1/>"), "malformed: line 1: a name is expected");
    EXPECT_EQ(whatIsWrongInside("<"), "malformed: line 1: a name is expected");
    EXPECT_EQ(whatIsWrongInside("<a></"), "malformed: line 1: a name is expected");
}

TEST(XmlScan, wantsAttributesThatAreQuotedAndDifferent) {
    EXPECT_EQ(whatIsWrongInside("<a b=1/>"),
              "malformed: line 1: the value of the attribute \"b\" is not quoted");
    EXPECT_EQ(whatIsWrongInside("<a b/>"), "malformed: line 1: the attribute \"b\" has no value");
    EXPECT_EQ(whatIsWrongInside("<a b='1\">"),
              "malformed: line 1: the value of the attribute \"b\" does not end");
    EXPECT_EQ(whatIsWrongInside("<a b='<'/>"),
              "malformed: line 1: the value of the attribute \"b\" holds a \"<\"");
    EXPECT_EQ(whatIsWrongInside("<a b='1' c='2' b='3'/>"),
              "malformed: line 1: the attribute \"b\" is given twice");
    EXPECT_EQ(whatIsWrongInside("<a b='1'c='2'/>"),
              "malformed: line 1: attributes of \"a\" are not separated");
    EXPECT_EQ(whatIsWrongInside("<a b='&nbsp;'/>"),
              "malformed: line 1: unknown reference \"&nbsp\"");
}

TEST(XmlScan, wantsSectionsThatEnd) {
    EXPECT_EQ(whatIsWrongInside("<a><![CDATA[ ]] ></a>"),
              "malformed: line 1: a CDATA section is not closed");
    EXPECT_EQ(whatIsWrongInside("<!-- <a/>"), "malformed: line 1: a comment is not closed");
    EXPECT_EQ(whatIsWrongInside("<!--><a/>"), "malformed: line 1: a comment is not closed");
    EXPECT_EQ(whatIsWrongInside("<a>\n\n&undefined;</a>"),
              "malformed: line 1: unknown reference \"&undefined\"")
        << "the line where the text begins";
}

TEST(XmlScan, refusesDocumentTypes) {
    const std::string refused = "invalid: line 1: document type declarations are refused";
    EXPECT_EQ(whatIsWrongInside("<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>"), refused);
    EXPECT_EQ(whatIsWrongInside("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"), refused);
    EXPECT_EQ(whatIsWrongInside("<a><!ENTITY e 'x'></a>"), "malformed: line 1: a name is expected");
}

TEST(XmlScan, refusesBytesThatAreNoText) {
    EXPECT_EQ(whatIsWrongInside("<a>\x93</a>"), "invalid: the document is not UTF-8");
    EXPECT_EQ(whatIsWrong(document("<a>") + std::string(1, '\0') + "</a>"),
              "malformed: the document holds a NUL character");
}

TEST(XmlScan, takesSixtyFourLevelsAndNoMore) {
    EXPECT_EQ(whatIsWrongInside(nested(64)), "nothing");
    EXPECT_EQ(whatIsWrongInside(nested(65)),
              "malformed: line 1: elements are nested more than 64 deep");
}

TEST(XmlScan, takesFiftyThousandElementsAndNoMore) {
    std::string elements;
    for (int i = 0; i < 49'999; ++i) {
        elements += "<b/>";
    }
    EXPECT_EQ(whatIsWrongInside("<a>" + elements + "</a>"), "nothing");
    EXPECT_EQ(whatIsWrongInside("<a><b/>" + elements + "</a>"),
              "malformed: line 1: there are more than 50000 elements");
}

TEST(XmlScan, takesThirtyTwoAttributesAndNoMore) {
    std::string attributes;
    for (int i = 0; i < 32; ++i) {
        attributes += " a" + std::to_string(i) + "='x'";
    }
    EXPECT_EQ(whatIsWrongInside("<a" + attributes + "/>"), "nothing");
    EXPECT_EQ(whatIsWrongInside("<a b='x'" + attributes + "/>"),
              "malformed: line 1: the element \"a\" has more than 32 attributes");
}

TEST(XmlScan, limitsCanBeChosen) {
    const XmlLimits limits{2, 3, 1};
    EXPECT_EQ(whatIsWrong(document("<a><b/><b c='1'/></a>"), limits), "nothing");
    EXPECT_EQ(whatIsWrong(document("<a><b/><b/><b/></a>"), limits),
              "malformed: line 1: there are more than 3 elements");
    EXPECT_EQ(whatIsWrong(document("<a><b><c/></b></a>"), limits),
              "malformed: line 1: elements are nested more than 2 deep");
}
