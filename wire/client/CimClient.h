// SPDX-License-Identifier: MIT
// A client of CIM servers: cimhost, OpenPegasus or any other that speaks CIM-XML over HTTP.
#pragma once

#include <stdexcept>
#include <string>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include "wire/cimxml/MethodResult.h"
#include "wire/client/HttpClient.h"
#include "wire/client/ServerUrl.h"

namespace wire {

class XmlDocument;

/// Thrown when a server could not be asked: it is not there, refuses the credentials or the
/// request, or answers with something that is not CIM-XML. what() begins with the server's URL,
/// without credentials.
class ClientError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Asks one server, over one connection that is kept open. One thread at a time.
///
/// A server that is too busy (503) and says for how long (Retry-After, in seconds, a minute at most) is
/// asked again after that, twice at most.
///
/// Every operation throws ClientError, or, where the server answered with an error,
/// Pegasus::CIMException with the server's code and description ("CIM_ERR_NOT_FOUND: ...").
/// `CIMPropertyList()`, which is null, asks for every property.
class CimClient {
public:
    /// Does not connect yet. Throws HttpError for options that cannot be used.
    explicit CimClient(const ServerUrl& url, const HttpClientOptions& options = {});

    /// The instance of that name. Its path is the name asked for, since servers send none.
    Pegasus::CIMInstance getInstance(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& instanceName,
        const Pegasus::CIMPropertyList& properties = Pegasus::CIMPropertyList());

    /// The instances of a class and of its subclasses with all their properties; paths without
    /// host and namespace.
    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        const Pegasus::CIMPropertyList& properties = Pegasus::CIMPropertyList());

    /// The names of the instances of a class and of its subclasses, without host and namespace.
    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className);

    /// The full paths of what is associated with an instance.
    Pegasus::Array<Pegasus::CIMObjectPath> associatorNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName);

    /// Invokes a method on an instance, or on a class where `objectName` has no keys. Parameters
    /// travel with their type where isTyped() says so.
    MethodResult invokeMethod(const Pegasus::CIMNamespaceName& nameSpace,
                              const Pegasus::CIMObjectPath& objectName,
                              const Pegasus::CIMName& methodName,
                              const Pegasus::Array<Pegasus::CIMParamValue>& inParameters);

private:
    class OperationRequest;

    /// Sends a request, again later if the server has no time for it now.
    HttpResponse ask(const HttpFields& fields, const std::string& body);
    /// Sends a request and hands the answer's body back.
    std::string exchange(const std::string& method, const std::string& object,
                         const std::string& body);
    [[noreturn]] void fail(const std::string& what) const;
    std::string nextMessageId();

    /// Runs `ask`, which sends and reads, and turns what goes wrong on the way into ClientError.
    template <typename Ask>
    auto guarded(Ask ask);

    std::string url_;
    HttpClient http_;
    unsigned long lastMessage_ = 0;
};

}  // namespace wire
