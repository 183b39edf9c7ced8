// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/CimService.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include <gtest/gtest.h>

#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "wire/http/PercentEncoding.h"

using namespace cimhost;

namespace {

const std::string emptyAnswer =
    "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" "
    "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"X\"></IMETHODRESPONSE></SIMPLERSP>"
    "</MESSAGE></CIM>";

std::string message(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE "
           "ID=\"a &lt; b\" PROTOCOLVERSION=\"1.0\">" +
           content + "</MESSAGE></CIM>";
}

std::string call(const std::string& parameters) {
    return message(
        "<SIMPLEREQ><IMETHODCALL NAME=\"EnumerateInstanceNames\"><LOCALNAMESPACEPATH>"
        "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>" +
        parameters + "</IMETHODCALL></SIMPLEREQ>");
}

const std::string good =
    call("<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"A\"/></IPARAMVALUE>");

wire::HttpRequest request(const std::string& body) {
    return {"POST",
            "/cimom",
            false,
            {{"Host", "localhost"},
             {"Content-Type", "application/xml"},
             {"Content-Length", std::to_string(body.size())},
             {"CIMOperation", "MethodCall"},
             {"CIMMethod", "EnumerateInstanceNames"},
             {"CIMObject", "root%2Fx"}},
            body};
}

/// Has so many instances, whose text is as long as that.
class ManyInstances : public ReplayOperations {
public:
    ManyInstances(Pegasus::Uint32 count, std::size_t textBytes)
        : ReplayOperations(emptyAnswer), count_(count), text_(textBytes, 'x') {}

    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(const Pegasus::CIMNamespaceName&,
                                                            const Pegasus::CIMName& className, bool,
                                                            const ElementOptions&) override {
        const Pegasus::CIMValue value(Pegasus::String(text_.c_str()));
        Pegasus::Array<Pegasus::CIMInstance> instances;
        for (Pegasus::Uint32 i = 0; i < count_; ++i) {
            Pegasus::CIMInstance instance(className);
            instance.addProperty(Pegasus::CIMProperty(Pegasus::CIMName("Text"), value));
            instances.append(instance);
        }
        return instances;
    }

private:
    Pegasus::Uint32 count_;
    std::string text_;
};

/// Asks for all instances.
wire::HttpRequest enumeration() {
    const auto renamed = [](std::string text) {
        const std::string name = "EnumerateInstanceNames";
        return text.replace(text.find(name), name.size(), "EnumerateInstances");
    };
    wire::HttpRequest asked = request(renamed(good));
    asked.fields[4].value = renamed(asked.fields[4].value);
    return asked;
}

/// Whether the answer is that error.
bool isError(const wire::HttpResponse& response, const std::string& code, const std::string& text) {
    return response.status == 200 &&
           response.body.find("<ERROR CODE=\"" + code + "\"") != std::string::npos &&
           response.body.find(text) != std::string::npos;
}

class CimServiceTest : public testing::Test {
protected:
    wire::HttpResponse answer(wire::HttpRequest asked) const {
        return service_.answer(std::move(asked));
    }

    /// "400 request-not-valid: text"
    std::string refusal(const std::string& body) const {
        const wire::HttpResponse response = answer(request(body));
        EXPECT_EQ(response.body, "");
        return std::to_string(response.status) + " " +
               wire::findField(response.fields, "CIMError").value_or("") + ": " +
               wire::percentDecoded(wire::findField(response.fields, "PGErrorDetail").value_or(""));
    }

    ReplayOperations operations_{emptyAnswer};
    CimService service_{operations_};
};

}  // namespace

TEST_F(CimServiceTest, answersOperations) {
    const wire::HttpResponse response = answer(request(good));
    EXPECT_EQ(response.status, 200U);
    EXPECT_EQ(wire::findField(response.fields, "Content-Type"), "application/xml; charset=utf-8");
    EXPECT_EQ(wire::findField(response.fields, "CIMOperation"), "MethodResponse");
    EXPECT_EQ(operations_.lastCall(), "enumerateInstanceNames root/x A");
}

TEST_F(CimServiceTest, theMessageIdComesBackEscaped) {
    EXPECT_NE(answer(request(good)).body.find("<MESSAGE ID=\"a &lt; b\""), std::string::npos);
}

TEST_F(CimServiceTest, errorsOfOperationsAreAnswers) {
    ReplayOperations failing(6, "CIM_ERR_NOT_FOUND: x");
    const wire::HttpResponse response = CimService(failing).answer(request(good));
    EXPECT_EQ(response.status, 200U);
    EXPECT_NE(response.body.find("<ERROR CODE=\"6\" DESCRIPTION=\"CIM_ERR_NOT_FOUND: x\"/>"),
              std::string::npos);
}

TEST_F(CimServiceTest, refusesOtherMethods) {
    for (const char* method : {"GET", "HEAD", "PUT", "DELETE", "OPTIONS", "TRACE"}) {
        wire::HttpRequest other = request(good);
        other.method = method;
        const wire::HttpResponse response = answer(other);
        EXPECT_EQ(response.status, 405U) << method;
        EXPECT_EQ(wire::findField(response.fields, "Allow"), "POST, M-POST");
    }
    wire::HttpRequest odd = request(good);
    odd.method = "BREW";
    EXPECT_EQ(answer(odd).status, 501U);
    EXPECT_EQ(operations_.lastCall(), "");
}

TEST_F(CimServiceTest, answersMPost) {
    wire::HttpRequest extended = request(good);
    extended.method = "M-POST";
    extended.fields.push_back({"Man", "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=42"});
    for (wire::HttpField& field : extended.fields) {
        if (field.name.compare(0, 3, "CIM") == 0) {
            field.name.insert(0, "42-");
        }
    }
    EXPECT_EQ(wire::findField(answer(extended).fields, "42-CIMOperation"), "MethodResponse");
    extended.body = "hello";
    EXPECT_EQ(wire::findField(answer(extended).fields, "42-CIMError"), "request-not-valid");
    EXPECT_EQ(wire::findField(answer(extended).fields, "Ext"), "");
}

TEST_F(CimServiceTest, namesTheFaultOfAMessage) {
    EXPECT_EQ(refusal("hello"),
              "400 request-not-valid: line 1: the document does not begin with an XML declaration");
    EXPECT_EQ(refusal(""),
              "400 request-not-valid: line 1: the document does not begin with an XML declaration");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><CIM>"),
              "400 request-not-well-formed: line 1: the element \"CIM\" is not closed");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><FOO/>"),
              "400 request-not-valid: element \"FOO\": \"CIM\" is expected in its place");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><CIM CIMVERSION=\"3.0\" DTDVERSION=\"2.0\"/>"),
              "501 unsupported-cim-version: CIMVERSION \"3.0\" is not supported");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"3.0\"/>"),
              "501 unsupported-dtd-version: DTDVERSION \"3.0\" is not supported");
    EXPECT_EQ(refusal(message("<MULTIREQ/>")),
              "501 multiple-requests-unsupported: several requests in one message");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><!DOCTYPE CIM><CIM/>"),
              "400 request-not-valid: line 1: document type declarations are refused");
    EXPECT_EQ(refusal(call("<IPARAMVALUE NAME=\"ClassName\"><VALUE>A</VALUE></IPARAMVALUE>")),
              "400 request-not-valid: element \"VALUE\": \"CLASSNAME\" is expected in its place");
    EXPECT_EQ(refusal("<?xml version=\"1.0\"?><CIM>\x93</CIM>"),
              "400 request-not-valid: the document is not UTF-8");
}

TEST_F(CimServiceTest, aLongTextIsNotRepeatedWhole) {
    const std::string long_(100'000, 'x');
    const std::string text = refusal(
        call("<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"1" + long_ + "\"/></IPARAMVALUE>"));
    EXPECT_LT(text.size(), 500U);
    EXPECT_EQ(text.substr(0, 40), "400 request-not-valid: element \"CLASSNAM");
}

TEST_F(CimServiceTest, headersThatContradictTheMessageAreRefused) {
    wire::HttpRequest wrong = request(good);
    wrong.fields[4].value = "GetClass";
    const wire::HttpResponse response = answer(wrong);
    EXPECT_EQ(response.status, 400U);
    EXPECT_EQ(wire::findField(response.fields, "CIMError"), "header-mismatch");
    EXPECT_EQ(operations_.lastCall(), "");
}

TEST_F(CimServiceTest, limitsOfXmlCanBeChosen) {
    const CimService strict(operations_, {}, wire::XmlLimits{3, 100, 10});
    const wire::HttpResponse response = strict.answer(request(good));
    EXPECT_EQ(wire::findField(response.fields, "CIMError"), "request-not-well-formed");
}

TEST_F(CimServiceTest, tenThousandResultsOf5KBAreAnsweredAndHalfAsManyAgainRefused) {
    ManyInstances many(10'000, 5000);
    EXPECT_GT(CimService(many).answer(enumeration()).body.size(), 50'000'000U);
    ManyInstances more(15'000, 5000);
    const wire::HttpResponse refused = CimService(more).answer(enumeration());
    EXPECT_TRUE(isError(refused, "27", "the answer would be larger than 64 MiB"));
    EXPECT_LT(refused.body.capacity(), 10'000U) << "the memory of what was written is given back";
}

TEST_F(CimServiceTest, largeAnswersCountUntilTheyHaveBeenSent) {
    ManyInstances one(1, 6000);
    const CimService service(one, {}, {}, {10'000, 10'000, 1000});
    wire::HttpResponse first = service.answer(enumeration());
    EXPECT_GT(first.body.size(), 6000U);
    EXPECT_TRUE(
        isError(service.answer(enumeration()), "27", "together be larger than 10000 bytes"));
    EXPECT_EQ(service.answer(request(good)).body.find("<ERROR"), std::string::npos)
        << "small ones are always given";
    first = {};
    EXPECT_GT(service.answer(enumeration()).body.size(), 6000U);
}

TEST_F(CimServiceTest, credentialsAreDemanded) {
    const std::string path = testing::TempDir() + "service." + std::to_string(getpid());
    std::ofstream(path) << "me:secret\n";
    chmod(path.c_str(), 0600);
    const CimService guarded(operations_, Credentials::fromFile(path));
    unlink(path.c_str());

    const wire::HttpResponse missing = guarded.answer(request(good));
    EXPECT_EQ(missing.status, 401U);
    EXPECT_EQ(wire::findField(missing.fields, "WWW-Authenticate"), "Basic realm=\"cimhost\"");
    EXPECT_EQ(missing.body, "");

    wire::HttpRequest wrong = request(good);
    wrong.fields.push_back({"Authorization", "Basic bWU6d3Jvbmc="});
    EXPECT_EQ(guarded.answer(std::move(wrong)).status, 401U);

    wire::HttpRequest broken = request("hello");
    EXPECT_EQ(guarded.answer(std::move(broken)).status, 401U) << "before anything is read";
    EXPECT_EQ(operations_.lastCall(), "");

    wire::HttpRequest right = request(good);
    right.fields.push_back({"Authorization", "Basic bWU6c2VjcmV0"});
    EXPECT_EQ(guarded.answer(std::move(right)).status, 200U);
}

TEST_F(CimServiceTest, wrongCredentialsAreCountedWithoutAWordOfTheClient) {
    const std::string path = testing::TempDir() + "service." + std::to_string(getpid());
    std::ofstream(path) << "me:secret\n";
    chmod(path.c_str(), 0600);
    const CimService guarded(operations_, Credentials::fromFile(path));
    unlink(path.c_str());

    testing::internal::CaptureStderr();
    guarded.answer(request(good));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "none given";
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i) {
        wire::HttpRequest wrong = request(good);
        wrong.fields.push_back({"Authorization", "Basic \x1b[31m"});
        guarded.answer(std::move(wrong));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "cimhost: a wrong user or password was refused (1 so far)\n"
              "cimhost: a wrong user or password was refused (2 so far)\n");
}

TEST_F(CimServiceTest, requestsOfBrowsersAreRefusedBeforeAnythingElse) {
    for (const char* const method : {"POST", "M-POST", "GET", "OPTIONS"}) {
        wire::HttpRequest asked = request(good);
        asked.method = method;
        asked.fields.push_back({"Origin", "http://localhost"});
        const wire::HttpResponse response = answer(asked);
        EXPECT_EQ(response.status, 403U) << method;
        EXPECT_EQ(operations_.lastCall(), "") << method;
    }
    wire::HttpRequest elsewhere = request(good);
    elsewhere.fields[0].value = "evil.example";
    const wire::HttpResponse response = answer(elsewhere);
    EXPECT_EQ(response.status, 403U);
    EXPECT_EQ(
        wire::percentDecoded(wire::findField(response.fields, "PGErrorDetail").value_or("")),
        "the Host \"evil.example\" is neither a loopback address nor \"localhost\" nor the name of "
        "this machine");
}

TEST_F(CimServiceTest, credentialsThatNobodyAskedForAreIgnored) {
    wire::HttpRequest with = request(good);
    with.fields.push_back({"Authorization", "Basic bWU6c2VjcmV0"});
    EXPECT_EQ(answer(with).status, 200U);
}
