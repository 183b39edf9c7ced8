// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/RequestHandler.h"

#include <algorithm>
#include <array>
#include <utility>

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "wire/cimxml/XmlError.h"

using namespace cimhost;

namespace {

std::string messageAround(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\">" +
           content + "</MESSAGE></CIM>";
}

std::string parameter(const std::string& name, const std::string& content) {
    return "<IPARAMVALUE NAME=\"" + name + "\">" + content + "</IPARAMVALUE>";
}
std::string value(const std::string& name, const std::string& text) {
    return parameter(name, "<VALUE>" + text + "</VALUE>");
}
std::string className(const std::string& name, const std::string& text) {
    return parameter(name, "<CLASSNAME NAME=\"" + text + "\"/>");
}

const std::string instanceName =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"string\">c"
    "</KEYVALUE></KEYBINDING></INSTANCENAME>";
const std::string instance =
    "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\" CLASSORIGIN=\"A\">"
    "<VALUE>c</VALUE></PROPERTY></INSTANCE>";
const std::string list = parameter("PropertyList",
                                   "<VALUE.ARRAY><VALUE>P</VALUE><VALUE>Q</VALUE>"
                                   "</VALUE.ARRAY>");
const std::string localNamespace =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"x\"/></LOCALNAMESPACEPATH>";
const std::string everyOption = value("LocalOnly", "false") + value("IncludeQualifiers", "true") +
                                value("IncludeClassOrigin", "true") + list;

/// One request, what the operations were asked by it and what was answered.
struct Handled {
    std::string call;
    std::string answer;
};

Handled handleMessage(const std::string& request, const std::string& response) {
    ReplayOperations operations(messageAround("<SIMPLERSP>" + response + "</SIMPLERSP>"));
    const wire::XmlDocument document(messageAround("<SIMPLEREQ>" + request + "</SIMPLEREQ>"));
    const wire::CimRequest read = wire::readRequest(document);
    const std::string answer = handleRequest(read, operations);
    std::string line;
    for (const char c : answer) {
        line += c == '\n' ? std::string() : std::string(1, c);
    }
    const std::size_t begin = line.find("<SIMPLERSP>") + 11;
    return {operations.lastCall(), line.substr(begin, line.find("</SIMPLERSP>") - begin)};
}

Handled handle(const std::string& operation, const std::string& parameters,
               const std::string& results = "") {
    return handleMessage(
        "<IMETHODCALL NAME=\"" + operation + "\">" + localNamespace + parameters + "</IMETHODCALL>",
        "<IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" + results +
            "</IRETURNVALUE></IMETHODRESPONSE>");
}

std::string callOf(const std::string& operation, const std::string& parameters,
                   const std::string& results = "") {
    return handle(operation, parameters, results).call;
}

std::string errorOf(const std::string& operation, const std::string& parameters) {
    const Handled handled = handle(operation, parameters);
    EXPECT_EQ(handled.call, "");
    const std::string begin = "<IMETHODRESPONSE NAME=\"" + operation + "\"><ERROR CODE=\"";
    EXPECT_EQ(handled.answer.substr(0, begin.size()), begin);
    const std::size_t end = handled.answer.find("\"/>");
    return handled.answer.substr(begin.size(), end - begin.size());
}

const std::string object = parameter("ObjectName", instanceName);

}  // namespace

TEST(RequestHandler, getInstance) {
    EXPECT_EQ(callOf("GetInstance", parameter("InstanceName", instanceName), instance),
              "getInstance root/x A.b=\"c\" local");
    EXPECT_EQ(
        callOf("GetInstance", parameter("InstanceName", instanceName) + everyOption, instance),
        "getInstance root/x A.b=\"c\" qualifiers origin only(P,Q)");
}

TEST(RequestHandler, theClassOriginIsWrittenWhereItWasAskedFor) {
    const std::string name = parameter("InstanceName", instanceName);
    const std::string without = "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\">";
    EXPECT_NE(handle("GetInstance", name, instance).answer.find(without), std::string::npos);
    EXPECT_EQ(handle("GetInstance", name + value("IncludeClassOrigin", "TRUE"), instance)
                  .answer.find(without),
              std::string::npos);
}

TEST(RequestHandler, enumerateInstances) {
    EXPECT_EQ(callOf("EnumerateInstances", className("ClassName", "A")),
              "enumerateInstances root/x A deep local");
    EXPECT_EQ(callOf("EnumerateInstances",
                     className("ClassName", "A") + value("DeepInheritance", "False") + everyOption),
              "enumerateInstances root/x A qualifiers origin only(P,Q)");
}

TEST(RequestHandler, enumerateInstanceNames) {
    const Handled handled =
        handle("EnumerateInstanceNames", className("ClassName", "A"), instanceName);
    EXPECT_EQ(handled.call, "enumerateInstanceNames root/x A");
    EXPECT_EQ(handled.answer, "<IMETHODRESPONSE NAME=\"EnumerateInstanceNames\"><IRETURNVALUE>" +
                                  instanceName + "</IRETURNVALUE></IMETHODRESPONSE>");
}

TEST(RequestHandler, createModifyAndDelete) {
    EXPECT_EQ(callOf("CreateInstance", parameter("NewInstance", instance), instanceName),
              "createInstance root/x A { b=c }");
    const std::string named =
        parameter("ModifiedInstance",
                  "<VALUE.NAMEDINSTANCE>" + instanceName + instance + "</VALUE.NAMEDINSTANCE>");
    EXPECT_EQ(callOf("ModifyInstance", named), "modifyInstance root/x A.b=\"c\" { b=c }");
    EXPECT_EQ(callOf("ModifyInstance", named + value("IncludeQualifiers", "TRUE") + list),
              "modifyInstance root/x A.b=\"c\" { b=c } only(P,Q)");
    EXPECT_EQ(callOf("DeleteInstance", parameter("InstanceName", instanceName)),
              "deleteInstance root/x A.b=\"c\"");
    EXPECT_EQ(handle("DeleteInstance", parameter("InstanceName", instanceName)).answer,
              "<IMETHODRESPONSE NAME=\"DeleteInstance\"></IMETHODRESPONSE>");
}

TEST(RequestHandler, getProperty) {
    const Handled handled =
        handle("GetProperty", parameter("InstanceName", instanceName) + value("PropertyName", "P"),
               "<VALUE>x</VALUE>");
    EXPECT_EQ(handled.call, "getProperty root/x A.b=\"c\" P");
    EXPECT_EQ(handled.answer,
              "<IMETHODRESPONSE NAME=\"GetProperty\"><IRETURNVALUE>"
              "<VALUE>x</VALUE></IRETURNVALUE></IMETHODRESPONSE>");
}

TEST(RequestHandler, classes) {
    const std::string definition = "<CLASS NAME=\"A\"></CLASS>";
    EXPECT_EQ(callOf("GetClass", className("ClassName", "A"), definition),
              "getClass root/x A local qualifiers");
    EXPECT_EQ(callOf("EnumerateClasses", "", definition),
              "enumerateClasses root/x  local qualifiers");
    EXPECT_EQ(callOf("EnumerateClasses",
                     className("ClassName", "A") + value("DeepInheritance", "TRUE") +
                         value("LocalOnly", "FALSE") + value("IncludeQualifiers", "FALSE")),
              "enumerateClasses root/x A deep");
    EXPECT_EQ(callOf("EnumerateClassNames", ""), "enumerateClassNames root/x ");
    const Handled names =
        handle("EnumerateClassNames", value("DeepInheritance", "TRUE"), "<CLASSNAME NAME=\"A\"/>");
    EXPECT_EQ(names.call, "enumerateClassNames root/x  deep");
    EXPECT_NE(names.answer.find("<CLASSNAME NAME=\"A\"/>"), std::string::npos);
}

TEST(RequestHandler, associations) {
    const std::string filter = className("AssocClass", "L") + className("ResultClass", "R") +
                               value("Role", "r") + value("ResultRole", "s");
    EXPECT_EQ(callOf("Associators", object), "associators root/x A.b=\"c\" local");
    EXPECT_EQ(
        callOf("Associators", object + filter + value("IncludeQualifiers", "TRUE") +
                                  value("IncludeClassOrigin", "TRUE") + list),
        "associators root/x A.b=\"c\" assoc=L result=R role=r resultRole=s local qualifiers origin "
        "only(P,Q)");
    EXPECT_EQ(callOf("AssociatorNames", object + filter),
              "associatorNames root/x A.b=\"c\" assoc=L result=R role=r resultRole=s");
    EXPECT_EQ(callOf("References", object + className("ResultClass", "R") + value("Role", "r")),
              "references root/x A.b=\"c\" result=R role=r local");
    EXPECT_EQ(callOf("ReferenceNames", object), "referenceNames root/x A.b=\"c\"");
    EXPECT_EQ(callOf("AssociatorNames", object + parameter("ResultClass", "")),
              "associatorNames root/x A.b=\"c\"")
        << "a null parameter is as good as none";
}

TEST(RequestHandler, pathsOfClassesAreAnsweredWhereAClassWasAskedFor) {
    const std::string classPath =
        "<OBJECTPATH><CLASSPATH><NAMESPACEPATH><HOST>h</HOST>" + localNamespace +
        "</NAMESPACEPATH><CLASSNAME NAME=\"A\"/></CLASSPATH></OBJECTPATH>";
    EXPECT_NE(handle("AssociatorNames", className("ObjectName", "A"), classPath)
                  .answer.find("<CLASSPATH>"),
              std::string::npos);
    EXPECT_NE(
        handle("ReferenceNames",
               parameter("ObjectName", "<INSTANCENAME CLASSNAME=\"A\"></INSTANCENAME>"), classPath)
            .answer.find("<INSTANCEPATH>"),
        std::string::npos);
}

TEST(RequestHandler, operationsAndParametersAreKnownInAnyCase) {
    EXPECT_EQ(callOf("enumerateinstancenames", className("CLASSNAME", "a")),
              "enumerateInstanceNames root/x a");
}

TEST(RequestHandler, theSizeOfTheAnswerIsToldWhileItGrowsAndAfterARefusal) {
    const std::string text(1000, 'x');
    std::string large = "<INSTANCE CLASSNAME=\"A\">";
    for (int i = 0; i < 50; ++i) {
        large += "<PROPERTY NAME=\"p" + std::to_string(i) + "\" TYPE=\"string\"><VALUE>" + text +
                 "</VALUE></PROPERTY>";
    }
    large += "</INSTANCE>";
    const std::string name =
        "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE "
        "VALUETYPE=\"string\">" +
        text + "</KEYVALUE></KEYBINDING></INSTANCENAME>";
    const std::string asked = className("ClassName", "A");
    const std::array<std::pair<std::string, std::string>, 2> cases{
        {{"EnumerateInstances",
          "<VALUE.NAMEDINSTANCE>" + instanceName + large + "</VALUE.NAMEDINSTANCE>"},
         {"EnumerateInstanceNames", name + name + name}}};
    for (const auto& [operation, results] : cases) {
        ReplayOperations operations(
            messageAround("<SIMPLERSP><IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" + results +
                          "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP>"));
        const wire::XmlDocument document(messageAround("<SIMPLEREQ><IMETHODCALL NAME=\"" +
                                                       operation + "\">" + localNamespace + asked +
                                                       "</IMETHODCALL></SIMPLEREQ>"));
        const wire::CimRequest request = wire::readRequest(document);
        std::size_t last = 0;
        std::size_t longestStep = 0;
        const std::string answer = handleRequest(request, operations, [&](std::size_t bytes) {
            longestStep = std::max(longestStep, bytes - last);
            last = bytes;
        });
        EXPECT_GT(answer.size(), 3 * text.size());
        EXPECT_LT(answer.size() - last, 200U) << "told to the end";
        EXPECT_LT(longestStep, 2 * text.size()) << operation;

        const std::string refused = handleRequest(request, operations, [&](std::size_t bytes) {
            last = bytes;
            if (bytes > 2 * text.size()) {
                throw Pegasus::CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED, "too large");
            }
        });
        EXPECT_NE(refused.find("<ERROR CODE=\"27\""), std::string::npos);
        EXPECT_LT(last, text.size()) << "what was dropped does not count";
    }
}

TEST(RequestHandler, otherOperationsAreNotSupported) {
    EXPECT_EQ(errorOf("FrobnicateInstances", ""),
              "7\" DESCRIPTION=\"CIM_ERR_NOT_SUPPORTED: FrobnicateInstances");
    EXPECT_EQ(errorOf("SetProperty", ""), "7\" DESCRIPTION=\"CIM_ERR_NOT_SUPPORTED: SetProperty");
}

TEST(RequestHandler, wrongParametersAreErrors) {
    EXPECT_EQ(errorOf("EnumerateInstanceNames", ""),
              "4\" DESCRIPTION=\"CIM_ERR_INVALID_PARAMETER: parameter &quot;ClassName&quot; is "
              "missing");
    EXPECT_EQ(errorOf("EnumerateInstanceNames", parameter("ClassName", "")),
              "4\" DESCRIPTION=\"CIM_ERR_INVALID_PARAMETER: parameter &quot;ClassName&quot; is "
              "missing");
    EXPECT_EQ(errorOf("EnumerateInstanceNames",
                      className("ClassName", "A") + className("classname", "A")),
              "4\" DESCRIPTION=\"CIM_ERR_INVALID_PARAMETER: parameter &quot;classname&quot; is "
              "given twice");
    EXPECT_EQ(errorOf("EnumerateInstanceNames", className("ClassName", "A") + value("Foo", "x")),
              "7\" DESCRIPTION=\"CIM_ERR_NOT_SUPPORTED: parameter &quot;Foo&quot; is unknown to "
              "this operation");
}

TEST(RequestHandler, parametersOfTheWrongFormAreNotValid) {
    const auto whatIsWrong = [](const std::string& operation,
                                const std::string& parameters) -> std::string {
        try {
            handle(operation, parameters);
            return "nothing";
        } catch (const wire::XmlError& error) {
            EXPECT_EQ(error.fault(), wire::XmlFault::notValid);
            return error.what();
        }
    };
    EXPECT_EQ(whatIsWrong("EnumerateInstanceNames", className("ClassName", "not a name")),
              "element \"CLASSNAME\": its attribute \"NAME\" is not a CIM name: \"not a name\"");
    EXPECT_EQ(whatIsWrong("EnumerateInstanceNames", value("ClassName", "A")),
              "element \"VALUE\": \"CLASSNAME\" is expected in its place");
    EXPECT_EQ(whatIsWrong("EnumerateInstances",
                          className("ClassName", "A") + value("DeepInheritance", "maybe")),
              "element \"VALUE\": \"maybe\" is not a valid boolean");
    EXPECT_EQ(whatIsWrong("GetInstance", className("InstanceName", "A")),
              "element \"CLASSNAME\": \"INSTANCENAME\" is expected in its place");
    EXPECT_EQ(whatIsWrong("GetInstance",
                          parameter("InstanceName", instanceName) + value("PropertyList", "P")),
              "element \"VALUE\": \"VALUE.ARRAY\" is expected in its place");
    EXPECT_EQ(whatIsWrong("GetInstance", parameter("InstanceName", instanceName) +
                                             parameter("PropertyList",
                                                       "<VALUE.ARRAY><VALUE>a b</VALUE>"
                                                       "</VALUE.ARRAY>")),
              "element \"VALUE\": \"a b\" is not a CIM name");
    EXPECT_EQ(whatIsWrong("ModifyInstance", parameter("ModifiedInstance", instance)),
              "element \"INSTANCE\": \"VALUE.NAMEDINSTANCE\" is expected in its place");
}

TEST(RequestHandler, methods) {
    const Handled handled = handleMessage(
        "<METHODCALL NAME=\"Run\"><LOCALINSTANCEPATH>" + localNamespace + instanceName +
            "</LOCALINSTANCEPATH><PARAMVALUE NAME=\"N\" PARAMTYPE=\"uint16\"><VALUE>7</VALUE>"
            "</PARAMVALUE><PARAMVALUE NAME=\"S\"><VALUE>7</VALUE></PARAMVALUE></METHODCALL>",
        "<METHODRESPONSE NAME=\"Run\"><RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE>"
        "</RETURNVALUE><PARAMVALUE NAME=\"O\" PARAMTYPE=\"string\"><VALUE>x</VALUE></PARAMVALUE>"
        "</METHODRESPONSE>");
    EXPECT_EQ(handled.call, "invokeMethod root/x root/x:A.b=\"c\" Run N:uint16=7 S~string=7");
    EXPECT_EQ(handled.answer,
              "<METHODRESPONSE NAME=\"Run\"><RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE>"
              "</RETURNVALUE><PARAMVALUE NAME=\"O\" PARAMTYPE=\"string\"><VALUE>x</VALUE>"
              "</PARAMVALUE></METHODRESPONSE>");
}

TEST(RequestHandler, anErrorOfAMethodIsAnswered) {
    const Handled handled =
        handleMessage("<METHODCALL NAME=\"Run\"><LOCALCLASSPATH>" + localNamespace +
                          "<CLASSNAME NAME=\"A\"/></LOCALCLASSPATH></METHODCALL>",
                      "<METHODRESPONSE NAME=\"Run\"><ERROR CODE=\"17\" "
                      "DESCRIPTION=\"CIM_ERR_METHOD_NOT_FOUND: Run\"/></METHODRESPONSE>");
    EXPECT_EQ(handled.answer,
              "<METHODRESPONSE NAME=\"Run\"><ERROR CODE=\"17\" "
              "DESCRIPTION=\"CIM_ERR_METHOD_NOT_FOUND: Run\"/></METHODRESPONSE>");
}
