// SPDX-License-Identifier: MIT
// The project's client against the project's server: each understands what the other writes.
#include <gtest/gtest.h>

#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "tests/support/CimXmlAnswers.h"
#include "wire/client/CimClient.h"
#include "wire/http/HttpServer.h"

using namespace cimhost;
using namespace wire;
using Pegasus::CIMObjectPath;
using Pegasus::String;

namespace {

const Pegasus::CIMNamespaceName nameSpace("root/x");

/// The service with operations that give one answer, and a client that is connected to it.
class Connected {
public:
    explicit Connected(const std::string& answer) : operations_(answer) {}

    CimClient& client() { return client_; }

private:
    ReplayOperations operations_;
    const CimService service_{operations_};
    const HttpServer server_{ListenAddress("127.0.0.1", 0), [this](HttpRequest&& request) {
                                 return service_.answer(std::move(request));
                             }};
    CimClient client_{ServerUrl::parse(server_.url())};
};

}  // namespace

TEST(ClientAndService, enumerationsAreUnderstood) {
    Connected service(results(namedInstanceElement()));
    EXPECT_EQ(service.client().enumerateInstances(nameSpace, "A").size(), 1U);
}

TEST(ClientAndService, methodsWithOddKeysAreUnderstood) {
    Connected service(methodAnswer("Run", ""));
    for (const char* key :
         {" two  blanks ", "100%25", "a\"b\\c", "\u00e9", "A.b=\"c\"", "a,b=1", "tab\there"}) {
        Pegasus::Array<Pegasus::CIMKeyBinding> keys;
        keys.append(Pegasus::CIMKeyBinding("k", String(key), Pegasus::CIMKeyBinding::STRING));
        const CIMObjectPath path(String(), Pegasus::CIMNamespaceName(), "A", keys);
        EXPECT_NO_THROW(service.client().invokeMethod(nameSpace, path, "Run",
                                                      Pegasus::Array<Pegasus::CIMParamValue>()))
            << key;
    }
}
