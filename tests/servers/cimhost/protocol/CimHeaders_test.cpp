// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/CimHeaders.h"

#include <gtest/gtest.h>

#include "wire/cimxml/StringConversion.h"

using namespace cimhost;

namespace {

wire::HttpFields good() {
    return {{"Host", "h"},
            {"Content-Type", "application/xml; charset=\"utf-8\""},
            {"Content-Length", "1"},
            {"CIMOperation", "MethodCall"},
            {"CIMMethod", "GetInstance"},
            {"CIMObject", "root%2Fx"}};
}

wire::HttpFields with(const std::string& name, const std::string& value) {
    wire::HttpFields fields = good();
    for (wire::HttpField& field : fields) {
        if (field.name == name) {
            field.value = value;
            return fields;
        }
    }
    fields.push_back({name, value});
    return fields;
}

wire::HttpFields without(const std::string& name) {
    wire::HttpFields fields;
    for (const wire::HttpField& field : good()) {
        if (field.name != name) {
            fields.push_back(field);
        }
    }
    return fields;
}

wire::CimRequest operation() {
    wire::CimRequest request;
    request.protocolVersion = "1.0";
    request.method = "GetInstance";
    request.nameSpace = Pegasus::CIMNamespaceName("root/x");
    return request;
}

wire::CimRequest method(const std::string& object) {
    wire::CimRequest request = operation();
    request.intrinsic = false;
    request.method = "Run";
    request.object = Pegasus::CIMObjectPath(wire::fromUtf8(object));
    return request;
}

/// "400 header-mismatch: text", or "taken".
template <typename Check>
std::string outcome(Check check) {
    try {
        check();
        return "taken";
    } catch (const RequestRefused& refusal) {
        return std::to_string(refusal.status()) + " " + refusal.cimError() + ": " + refusal.what();
    }
}

std::string checked(const wire::HttpFields& fields, bool http10 = false) {
    return outcome([&] { CimHeaders(fields, false).check(http10); });
}

std::string checkedAgainst(const wire::HttpFields& fields, const wire::CimRequest& request) {
    return outcome([&] { CimHeaders(fields, false).checkAgainst(request); });
}

std::string checkedMethod(const std::string& cimObject, const std::string& object) {
    wire::HttpFields fields = with("CIMObject", cimObject);
    fields.push_back({"CIMMethod", "Run"});
    fields.erase(fields.begin() + 4);
    return checkedAgainst(fields, method(object));
}

}  // namespace

TEST(CimHeaders, takesWhatClientsSend) {
    EXPECT_EQ(checked(good()), "taken");
    EXPECT_EQ(checkedAgainst(good(), operation()), "taken");
}

TEST(CimHeaders, wantsAHostUnlessHttpIsOld) {
    EXPECT_EQ(checked(without("Host")), "400 : the header field Host is missing");
    EXPECT_EQ(checked(without("Host"), true), "taken");
}

TEST(CimHeaders, wantsALength) {
    EXPECT_EQ(checked(without("Content-Length")),
              "411 : the header field Content-Length is missing");
    wire::HttpFields chunked = without("Content-Length");
    chunked.push_back({"Transfer-Encoding", "chunked"});
    EXPECT_EQ(checked(chunked), "taken");
}

TEST(CimHeaders, wantsAMethodCall) {
    EXPECT_EQ(checked(without("CIMOperation")), "400 : the header field CIMOperation is missing");
    EXPECT_EQ(checked(with("CIMOperation", "Foo")),
              "400 unsupported-operation: CIMOperation \"Foo\" is not supported");
    EXPECT_EQ(checked(with("CIMOperation", "methodcall")), "taken");
}

TEST(CimHeaders, wantsXmlInUtf8) {
    for (const char* type : {"text/xml", "application/xml", "Application/XML;charset=UTF-8",
                             "text/xml; charset=\"utf-8\"", "text/xml; x=y; charset=utf-8"}) {
        EXPECT_EQ(checked(with("Content-Type", type)), "taken") << type;
    }
    EXPECT_EQ(checked(with("Content-Type", "text/plain")),
              "400 : Content-Type must be application/xml or text/xml, not \"text/plain\"");
    EXPECT_EQ(checked(without("Content-Type")),
              "400 : Content-Type must be application/xml or text/xml, not \"\"");
    EXPECT_EQ(checked(with("Content-Type", "application/xml; charset=\"iso-8859-1\"")),
              "400 : the charset must be utf-8, not \"iso-8859-1\"");
}

TEST(CimHeaders, wantsVersion1) {
    EXPECT_EQ(checked(with("CIMProtocolVersion", "2.0")),
              "501 unsupported-protocol-version: CIMProtocolVersion \"2.0\" is not supported");
    EXPECT_EQ(checked(with("CIMProtocolVersion", "1.4")), "taken");
}

TEST(CimHeaders, theVersionMustBeThatOfTheMessage) {
    wire::CimRequest request = operation();
    request.protocolVersion = "2.0";
    EXPECT_EQ(checkedAgainst(good(), request),
              "400 header-mismatch: CIMProtocolVersion is \"1.0\", but the message has \"2.0\"")
        << "1.0 where the field is missing";
    request.protocolVersion = "1.4";
    EXPECT_EQ(checkedAgainst(with("CIMProtocolVersion", "1.4"), request), "taken");
}

TEST(CimHeaders, theMethodMustBeThatOfTheMessage) {
    EXPECT_EQ(checkedAgainst(with("CIMMethod", "GetClass"), operation()),
              "400 header-mismatch: CIMMethod is \"GetClass\", but the message has "
              "\"GetInstance\"");
    EXPECT_EQ(checkedAgainst(without("CIMMethod"), operation()),
              "400 header-mismatch: the header field CIMMethod is missing");
    EXPECT_EQ(checkedAgainst(with("CIMMethod", "getinstance"), operation()), "taken");
    EXPECT_EQ(checkedAgainst(with("CIMMethod", "Get%49nstance"), operation()), "taken");
    wire::HttpFields twice = good();
    twice.push_back({"CIMMethod", "GetClass"});
    EXPECT_EQ(checkedAgainst(twice, operation()),
              "400 header-mismatch: CIMMethod is \"GetInstance, GetClass\", but the message has "
              "\"GetInstance\"");
}

TEST(CimHeaders, theNamespaceMustBeThatOfTheMessage) {
    EXPECT_EQ(checkedAgainst(with("CIMObject", "root%2Fother"), operation()),
              "400 header-mismatch: CIMObject is \"root%2Fother\", but the message has "
              "\"root/x\"");
    EXPECT_EQ(checkedAgainst(without("CIMObject"), operation()),
              "400 header-mismatch: the header field CIMObject is missing");
    EXPECT_EQ(checkedAgainst(with("CIMObject", "root/x"), operation()), "taken");
    EXPECT_EQ(checkedAgainst(with("CIMObject", "ROOT%2fX"), operation()), "taken");
}

TEST(CimHeaders, theObjectMustBeThatOfTheMessage) {
    EXPECT_EQ(checkedMethod("root%2Fx%3AA.b%3D%22c%22", "root/x:A.b=\"c\""), "taken");
    EXPECT_EQ(checkedMethod("root%2Fx%3AA.b=\"c\"", "root/x:A.b=\"c\""), "taken")
        << "half encoded, as wbemcli does";
    EXPECT_EQ(checkedMethod("Root/X:a.B=\"c\"", "root/x:A.b=\"c\""), "taken")
        << "names have no case";
    EXPECT_EQ(checkedMethod("root/x:A.b=\"c\",a=1", "root/x:A.a=1,b=\"c\""), "taken")
        << "keys have no order";
    EXPECT_EQ(checkedMethod("root/x:A", "root/x:A"), "taken");
    EXPECT_EQ(checkedMethod("root/x:A.b=\"100%25\"", "root/x:A.b=\"100%25\""), "taken")
        << "not encoded at all";
    EXPECT_EQ(checkedMethod("root/x:A.b=\"C\"", "root/x:A.b=\"c\""),
              "400 header-mismatch: CIMObject is \"root/x:A.b=\"C\"\", but the message has "
              "\"root/x:A.b=\"c\"\"");
    for (const char* other :
         {"root/x:A", "root/y:A.b=\"c\"", "root/x:Z.b=\"c\"", "root/x:A.z=\"c\"",
          "root/x:A.b=\"c\",d=1", "A.b=\"c\"", "nonsense:", "", "\xFF"}) {
        EXPECT_EQ(checkedMethod(other, "root/x:A.b=\"c\"").substr(0, 19), "400 header-mismatch")
            << other;
    }
}

TEST(CimHeaders, fieldsOfMPostHaveAPrefix) {
    const wire::HttpFields fields{{"Man", "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=42"},
                                  {"42-CIMMethod", "GetInstance"},
                                  {"CIMObject", "root/x"},
                                  {"43-CIMOperation", "MethodCall"}};
    const CimHeaders headers(fields, true);
    EXPECT_EQ(headers.find("CIMMethod"), "GetInstance");
    EXPECT_EQ(headers.find("CIMObject"), "root/x") << "the prefix may be missing";
    EXPECT_EQ(headers.find("CIMOperation"), std::nullopt);
    EXPECT_EQ(CimHeaders(fields, false).find("CIMMethod"), std::nullopt);
}

TEST(CimHeaders, answersToMPostHaveThePrefixToo) {
    const wire::HttpFields fields{{"Man", "http://www.dmtf.org/cim/mapping/http/v1.0;ns=42"}};
    wire::HttpFields answer;
    const CimHeaders headers(fields, true);
    headers.appendExtension(answer);
    headers.append(answer, "CIMOperation", "MethodResponse");
    ASSERT_EQ(answer.size(), 4U);
    EXPECT_EQ(answer[0].name, "Ext");
    EXPECT_EQ(answer[1].name, "Cache-Control");
    EXPECT_EQ(answer[2].value, "http://www.dmtf.org/cim/mapping/http/v1.0; ns=42");
    EXPECT_EQ(answer[3].name, "42-CIMOperation");
}

TEST(CimHeaders, aBrokenManFieldGetsANumberOfOurs) {
    for (const char* man : {"", "x; ns=", "x; ns=4\n2", "x; ns=1234567890"}) {
        const wire::HttpFields fields{{"Man", man}};
        wire::HttpFields answer;
        CimHeaders(fields, true).append(answer, "CIMError", "x");
        EXPECT_EQ(answer[0].name, "73-CIMError") << man;
    }
}

TEST(CimHeaders, answersToPostHaveNoPrefix) {
    wire::HttpFields answer;
    const wire::HttpFields none;
    const CimHeaders headers(none, false);
    headers.appendExtension(answer);
    headers.append(answer, "CIMError", "x");
    ASSERT_EQ(answer.size(), 1U);
    EXPECT_EQ(answer[0].name, "CIMError");
}
