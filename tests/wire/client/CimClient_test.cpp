// SPDX-License-Identifier: MIT
#include "wire/client/CimClient.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "tests/support/CimXmlAnswers.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/http/HttpServer.h"

using namespace wire;
using Pegasus::CIMObjectPath;
using Pegasus::String;

namespace {

const Pegasus::CIMNamespaceName nameSpace("root/x");

/// A server that answers every request with one response, and keeps the last request.
class FixedServer {
public:
    explicit FixedServer(HttpResponse response)
        : server_(ListenAddress("127.0.0.1", 0), [this, response](HttpRequest&& request) {
              last = std::move(request);
              ++requests;
              return response;
          }) {}

    CimClient client(const std::string& credentials = "") const {
        return CimClient(ServerUrl::parse("http://" + credentials +
                                          "127.0.0.1:" + std::to_string(server_.port())));
    }
    std::string url() const { return server_.url(); }

    HttpRequest last;
    int requests = 0;

private:
    HttpServer server_;
};

HttpResponse ok(const std::string& body) {
    return {200, {}, body};
}

const std::string fullPath =
    "<INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
    "<NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>" +
    std::string(instanceNameElement) + "</INSTANCEPATH>";

template <typename Ask>
std::string whatIsWrong(FixedServer& server, Ask ask) {
    try {
        CimClient client = server.client();
        ask(client);
        return "nothing";
    } catch (const ClientError& error) {
        const std::string text = error.what();
        const std::string begin = server.url() + ": ";
        EXPECT_EQ(text.substr(0, begin.size()), begin);
        return text.substr(begin.size());
    }
}

std::string whatIsWrongWith(const HttpResponse& response) {
    FixedServer server(response);
    return whatIsWrong(server,
                       [](CimClient& client) { client.enumerateInstanceNames(nameSpace, "A"); });
}

}  // namespace

TEST(CimClient, sendsWhatServersWantToSee) {
    FixedServer server(ok(results("")));
    server.client().enumerateInstanceNames(nameSpace, "A");
    EXPECT_EQ(server.last.method, "POST");
    EXPECT_EQ(server.last.target, "/cimom");
    EXPECT_EQ(findField(server.last.fields, "CIMOperation"), "MethodCall");
    EXPECT_EQ(findField(server.last.fields, "CIMMethod"), "EnumerateInstanceNames");
    EXPECT_EQ(findField(server.last.fields, "CIMObject"), "root%2Fx");
    EXPECT_EQ(findField(server.last.fields, "CIMProtocolVersion"), "1.0");
    EXPECT_EQ(findField(server.last.fields, "Authorization"), std::nullopt);
}

TEST(CimClient, sendsCredentials) {
    FixedServer server(ok(results("")));
    server.client("me:secret@").enumerateInstanceNames(nameSpace, "A");
    EXPECT_EQ(findField(server.last.fields, "Authorization"), "Basic bWU6c2VjcmV0");
}

TEST(CimClient, readsInstances) {
    FixedServer server(ok(results(instanceElement)));
    const Pegasus::CIMInstance got =
        server.client().getInstance(nameSpace, CIMObjectPath(String("A.b=\"c\"")));
    EXPECT_EQ(toUtf8(got.getPath().toString()), "A.b=\"c\"");
    String text;
    got.getProperty(0).getValue().get(text);
    EXPECT_EQ(toUtf8(text), "c ");
}

TEST(CimClient, readsEnumerations) {
    FixedServer server(ok(results(namedInstanceElement())));
    const auto instances = server.client().enumerateInstances(nameSpace, "A");
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(toUtf8(instances[0].getPath().toString()), "A.b=\"c\"");
}

TEST(CimClient, readsNames) {
    FixedServer server(ok(results(std::string(instanceNameElement) + instanceNameElement)));
    EXPECT_EQ(server.client().enumerateInstanceNames(nameSpace, "A").size(), 2U);
}

TEST(CimClient, readsAssociatedNames) {
    FixedServer names(ok(results("<OBJECTPATH>" + fullPath + "</OBJECTPATH>")));
    const auto paths =
        names.client().associatorNames(nameSpace, CIMObjectPath(String("A.b=\"c\"")));
    ASSERT_EQ(paths.size(), 1U);
    EXPECT_EQ(toUtf8(paths[0].toString()), "//h/root/x:A.b=\"c\"");
}

TEST(CimClient, takesAnAnswerWithoutResults) {
    FixedServer server(ok(answerAround("<IMETHODRESPONSE NAME=\"X\"></IMETHODRESPONSE>")));
    EXPECT_EQ(server.client().enumerateInstanceNames(nameSpace, "A").size(), 0U);
    EXPECT_EQ(server.client().enumerateInstances(nameSpace, "A").size(), 0U);
}

TEST(CimClient, invokesMethods) {
    FixedServer server(ok(methodAnswer(
        "Run",
        "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>5</VALUE>"
        "</RETURNVALUE><PARAMVALUE NAME=\"P\" PARAMTYPE=\"reference\"><VALUE.REFERENCE>" +
            fullPath + "</VALUE.REFERENCE></PARAMVALUE>")));
    const MethodResult result =
        server.client().invokeMethod(nameSpace, CIMObjectPath(String("//other/root/y:A.b=\"c d\"")),
                                     "Run", Pegasus::Array<Pegasus::CIMParamValue>());
    ASSERT_TRUE(result.returnValue.has_value());
    EXPECT_EQ(*result.returnValue, Pegasus::CIMValue(Pegasus::Uint32(5)));
    EXPECT_EQ(result.outParameters.size(), 1U);
    EXPECT_EQ(findField(server.last.fields, "CIMMethod"), "Run");
    EXPECT_EQ(findField(server.last.fields, "CIMObject"), "root%2Fx%3AA.b%3D%22c%20d%22");
}

TEST(CimClient, aMethodMayAnswerWithoutAValue) {
    FixedServer server(ok(methodAnswer("Run", "")));
    EXPECT_FALSE(server.client()
                     .invokeMethod(nameSpace, CIMObjectPath(String("A")), "Run",
                                   Pegasus::Array<Pegasus::CIMParamValue>())
                     .returnValue.has_value());
}

TEST(CimClient, errorsKeepCodeAndText) {
    FixedServer server(ok(answerAround(
        "<IMETHODRESPONSE NAME=\"X\"><ERROR CODE=\"6\" DESCRIPTION=\"CIM_ERR_NOT_FOUND: "
        "A.b=&quot;c&quot;\"/></IMETHODRESPONSE>")));
    try {
        server.client().getInstance(nameSpace, CIMObjectPath(String("A.b=\"c\"")));
        FAIL();
    } catch (const Pegasus::CIMException& error) {
        EXPECT_EQ(error.getCode(), Pegasus::CIM_ERR_NOT_FOUND);
        EXPECT_EQ(toUtf8(error.getMessage()), "CIM_ERR_NOT_FOUND: A.b=\"c\"");
    }
}

TEST(CimClient, errorsMayComeInTheTrailer) {
    FixedServer server(
        HttpResponse{200,
                     {{"CIMStatusCode", "5"},
                      {"CIMStatusCodeDescription", "CIM_ERR_INVALID_CLASS%3A%20VT_Nope"}},
                     answerAround("<IMETHODRESPONSE NAME=\"X\"></IMETHODRESPONSE>")});
    try {
        server.client().enumerateInstanceNames(nameSpace, "A");
        FAIL();
    } catch (const Pegasus::CIMException& error) {
        EXPECT_EQ(error.getCode(), Pegasus::CIM_ERR_INVALID_CLASS);
        EXPECT_EQ(toUtf8(error.getMessage()), "CIM_ERR_INVALID_CLASS: VT_Nope");
    }
}

TEST(CimClient, refusalsAreExplained) {
    EXPECT_EQ(whatIsWrongWith({401, {}, ""}),
              "the server answers 401 Unauthorized: it wants other credentials");
    EXPECT_EQ(
        whatIsWrongWith({400, {{"CIMError", "request-not-valid"}, {"PGErrorDetail", "a%20b"}}, ""}),
        "the server answers 400 Bad Request: request-not-valid: a b");
}

TEST(CimClient, answersThatAreNotCimXmlAreExplained) {
    EXPECT_EQ(whatIsWrongWith(ok("<html>")),
              "the answer is not CIM-XML: line 1: the document does not begin with an XML "
              "declaration");
    EXPECT_EQ(whatIsWrongWith(ok(results("<FOO/>"))),
              "the answer is not CIM-XML: element \"FOO\": \"INSTANCENAME\" is expected in its "
              "place");
    EXPECT_EQ(whatIsWrongWith({200, {{"CIMStatusCode", "six"}}, results("")}),
              "the answer is not CIM-XML: \"six\" is not a valid uint32");
    FixedServer server(ok(answerAround("<IMETHODRESPONSE NAME=\"X\"></IMETHODRESPONSE>")));
    EXPECT_EQ(whatIsWrong(server,
                          [](CimClient& client) {
                              client.getInstance(nameSpace, CIMObjectPath(String("A.b=\"c\"")));
                          }),
              "the answer is not CIM-XML: the element \"IRETURNVALUE\" is missing");
}

TEST(CimClient, saysThatNobodyListens) {
    std::string url;
    {
        const FixedServer server(ok(""));
        url = server.url();
    }
    CimClient client(ServerUrl::parse(url));
    try {
        client.enumerateInstanceNames(nameSpace, "A");
        FAIL();
    } catch (const ClientError& error) {
        EXPECT_EQ(std::string(error.what()), url + ": cannot connect (Connection refused)");
    }
}

namespace {

/// A server that is busy for the first requests, and counts all.
class BusyServer {
public:
    BusyServer(int refusals, std::string retryAfter)
        : server_(ListenAddress("127.0.0.1", 0), [=](HttpRequest&&) {
              HttpResponse refusal{503, {}, {}};
              if (!retryAfter.empty()) {
                  refusal.fields.push_back({"Retry-After", retryAfter});
              }
              return requests_++ < refusals ? refusal : ok(results(""));
          }) {}

    /// "answered", or why not.
    std::string ask() const {
        try {
            CimClient(ServerUrl::parse(server_.url())).enumerateInstanceNames(nameSpace, "A");
            return "answered";
        } catch (const ClientError& error) {
            return std::string(error.what()).substr(server_.url().size());
        }
    }
    int requests() const { return requests_; }

private:
    std::atomic<int> requests_{0};
    HttpServer server_;
};

constexpr char tooBusy[] = ": the server answers 503 Service Unavailable";

}  // namespace

TEST(CimClient, comesAgainToABusyServer) {
    const BusyServer server(2, "0");
    EXPECT_EQ(server.ask(), "answered");
    EXPECT_EQ(server.requests(), 3);
}

TEST(CimClient, comesAgainTwiceAtMost) {
    const BusyServer server(3, "0");
    EXPECT_EQ(server.ask(), tooBusy);
    EXPECT_EQ(server.requests(), 3);
}

TEST(CimClient, waitsAsLongAsTheServerSays) {
    const BusyServer server(1, "1");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(server.ask(), "answered");
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(CimClient, doesNotComeAgainUnlessTheServerSaysWhenAndThatIsSoon) {
    for (const char* retryAfter : {"", "61", "-1", "Wed, 21 Oct 2026 07:28:00 GMT"}) {
        const BusyServer server(1, retryAfter);
        EXPECT_EQ(server.ask(), tooBusy) << retryAfter;
        EXPECT_EQ(server.requests(), 1) << retryAfter;
    }
}

TEST(CimClient, repeatsNothingButWhatABusyServerRefused) {
    FixedServer server({500, {{"Retry-After", "0"}}, {}});
    EXPECT_THROW(server.client().enumerateInstanceNames(nameSpace, "A"), ClientError);
    EXPECT_EQ(server.requests, 1);
}
