// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimResponse.h"

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "tests/support/CimXmlAnswers.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

using namespace wire;

namespace {

CimRequest operation() {
    CimRequest request;
    request.messageId = "a & b";
    request.method = "GetInstance";
    return request;
}

CimRequest method() {
    CimRequest request = operation();
    request.intrinsic = false;
    request.method = "Run";
    return request;
}

std::string between(const std::string& text, const std::string& begin, const std::string& end) {
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find(end, from);
    return from == std::string::npos || to == std::string::npos
               ? "(not there)"
               : text.substr(from + begin.size(), to - from - begin.size());
}

}  // namespace

TEST(CimResponse, resultsStandInsideTheReturnValue) {
    const CimRequest request = operation();
    ResponseWriter writer(request);
    writer.results().className("A");
    const std::string text = writer.finish();
    EXPECT_EQ(text,
              "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
              "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
              "<MESSAGE ID=\"a &amp; b\" PROTOCOLVERSION=\"1.0\">\n"
              "<SIMPLERSP>\n"
              "<IMETHODRESPONSE NAME=\"GetInstance\">\n"
              "<IRETURNVALUE>\n"
              "<CLASSNAME NAME=\"A\"/>\n"
              "</IRETURNVALUE>\n"
              "</IMETHODRESPONSE>\n"
              "</SIMPLERSP>\n"
              "</MESSAGE>\n"
              "</CIM>\n");
}

TEST(CimResponse, withoutResultsThereIsNoReturnValue) {
    const CimRequest request = operation();
    const std::string text = ResponseWriter(request).finish();
    EXPECT_EQ(between(text, "<IMETHODRESPONSE NAME=\"GetInstance\">\n", "</IMETHODRESPONSE>"), "");
}

TEST(CimResponse, anErrorTakesThePlaceOfResults) {
    const CimRequest request = operation();
    ResponseWriter writer(request);
    writer.results().className("A");
    writer.fail({6, "CIM_ERR_NOT_FOUND: A.b=\"c\""});
    const std::string text = writer.finish();
    EXPECT_EQ(between(text, "<IMETHODRESPONSE NAME=\"GetInstance\">\n", "</IMETHODRESPONSE>"),
              "<ERROR CODE=\"6\" DESCRIPTION=\"CIM_ERR_NOT_FOUND: A.b=&quot;c&quot;\"/>\n");
    const XmlDocument document(text);
    try {
        readResponse(document);
        FAIL();
    } catch (const Pegasus::CIMException& error) {
        EXPECT_EQ(error.getCode(), Pegasus::CIM_ERR_NOT_FOUND);
        EXPECT_EQ(toUtf8(error.getMessage()), "CIM_ERR_NOT_FOUND: A.b=\"c\"");
    }
}

TEST(CimResponse, methodsAnswerWithValueAndParameters) {
    const CimRequest request = method();
    ResponseWriter writer(request);
    ObjectWriter results = writer.results();
    results.returnValue(Pegasus::CIMValue(Pegasus::Uint32(5)));
    results.paramValue(Pegasus::CIMParamValue("P", Pegasus::CIMValue(true)));
    const XmlDocument document(writer.finish());
    const CimResponse response = readResponse(document);
    EXPECT_EQ(readReturnValue(response.returnValue), Pegasus::CIMValue(Pegasus::Uint32(5)));
    ASSERT_EQ(response.outParameters.size(), 1U);
    EXPECT_EQ(response.outParameters[0].getValue(), Pegasus::CIMValue(true));
    EXPECT_FALSE(response.results);
}

TEST(CimResponse, aMethodMayAnswerWithNothing) {
    const CimRequest request = method();
    const XmlDocument document(ResponseWriter(request).finish());
    EXPECT_FALSE(readResponse(document).returnValue);
}

TEST(CimResponse, otherDocumentsAreRefused) {
    const auto whatIsWrong = [](const std::string& content) -> std::string {
        const XmlDocument document(answerAround(content));
        try {
            readResponse(document);
            return "nothing";
        } catch (const XmlError& error) {
            return error.what();
        }
    };
    EXPECT_EQ(whatIsWrong(""), "element \"SIMPLERSP\": exactly one element is expected inside");
    EXPECT_EQ(whatIsWrong("<FOO/>"),
              "element \"SIMPLERSP\": the response of a method is expected inside");
    EXPECT_EQ(whatIsWrong("<IMETHODRESPONSE NAME=\"X\"><ERROR CODE=\"six\"/></IMETHODRESPONSE>"),
              "element \"ERROR\": \"six\" is not a valid uint32");
    EXPECT_EQ(whatIsWrong("<METHODRESPONSE NAME=\"X\"><FOO/></METHODRESPONSE>"),
              "element \"FOO\": \"PARAMVALUE\" is expected in its place");
}
