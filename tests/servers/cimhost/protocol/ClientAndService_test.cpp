// SPDX-License-Identifier: MIT
// The project's client against the project's server: each understands what the other writes.
#include <gtest/gtest.h>

#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "wire/client/CimClient.h"
#include "wire/http/HttpServer.h"

using namespace cimhost;
using namespace wire;
using Pegasus::CIMObjectPath;
using Pegasus::String;

namespace {

const Pegasus::CIMNamespaceName nameSpace("root/x");

std::string responseAround(const std::string& content) {
    return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>" +
           content + "</SIMPLERSP></MESSAGE></CIM>";
}

std::string results(const std::string& content) {
    return responseAround("<IMETHODRESPONSE NAME=\"X\"><IRETURNVALUE>" + content +
                          "</IRETURNVALUE></IMETHODRESPONSE>");
}

const std::string instanceName =
    "<INSTANCENAME CLASSNAME=\"A\"><KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"string\">c"
    "</KEYVALUE></KEYBINDING></INSTANCENAME>";
const std::string instance =
    "<INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"b\" TYPE=\"string\"><VALUE>c&#32;</VALUE>"
    "</PROPERTY></INSTANCE>";

}  // namespace

TEST(ClientAndService, enumerationsAreUnderstood) {
    ReplayOperations operations(
        results("<VALUE.NAMEDINSTANCE>" + instanceName + instance + "</VALUE.NAMEDINSTANCE>"));
    const CimService service(operations);
    const HttpServer server(ListenAddress("127.0.0.1", 0), [&](HttpRequest&& request) {
        return service.answer(std::move(request));
    });
    CimClient client(ServerUrl::parse(server.url()));
    EXPECT_EQ(client.enumerateInstances(nameSpace, "A").size(), 1U);
}

TEST(ClientAndService, methodsWithOddKeysAreUnderstood) {
    ReplayOperations operations(responseAround("<METHODRESPONSE NAME=\"Run\"></METHODRESPONSE>"));
    const CimService service(operations);
    const HttpServer server(ListenAddress("127.0.0.1", 0), [&](HttpRequest&& request) {
        return service.answer(std::move(request));
    });
    CimClient client(ServerUrl::parse(server.url()));
    for (const char* key :
         {" two  blanks ", "100%25", "a\"b\\c", "\u00e9", "A.b=\"c\"", "a,b=1", "tab\there"}) {
        Pegasus::Array<Pegasus::CIMKeyBinding> keys;
        keys.append(Pegasus::CIMKeyBinding("k", String(key), Pegasus::CIMKeyBinding::STRING));
        const CIMObjectPath path(String(), Pegasus::CIMNamespaceName(), "A", keys);
        EXPECT_NO_THROW(
            client.invokeMethod(nameSpace, path, "Run", Pegasus::Array<Pegasus::CIMParamValue>()))
            << key;
    }
}
