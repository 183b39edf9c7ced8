// SPDX-License-Identifier: MIT
#include "wire/client/CimClient.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <thread>
#include <utility>

#include <Pegasus/Common/Exception.h>

#include "base/Integers.h"
#include "wire/cimxml/CimResponse.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/RequestWriter.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"
#include "wire/cimxml/XmlDocument.h"
#include "wire/cimxml/XmlError.h"
#include "wire/http/PercentEncoding.h"

namespace wire {

namespace {

using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMPropertyList;

// An answer may hold every result that a server keeps: as much as the HTTP limit lets through.
constexpr XmlLimits answerLimits{64, 4'000'000, 64};

/// What is inside each element of the results: of OBJECTPATH the path, otherwise the element.
XmlElement unwrapped(XmlElement element) {
    return element.name() == "OBJECTPATH" ? onlyChild(element) : element;
}

Array<CIMObjectPath> readPaths(const CimResponse& response) {
    Array<CIMObjectPath> paths;
    for (const XmlElement element : response.results) {
        paths.append(readPath(unwrapped(element)));
    }
    return paths;
}

Array<CIMInstance> readInstances(const CimResponse& response) {
    Array<CIMInstance> instances;
    for (const XmlElement element : response.results) {
        instances.append(readInstanceWithPath(element));
    }
    return instances;
}

/// Servers that answer in chunks send an error after the answer, in the trailer.
void throwErrorOfTrailer(const HttpResponse& response) {
    const auto code = findField(response.fields, "CIMStatusCode");
    if (!code || *code == "0") {
        return;
    }
    Pegasus::Uint32 status = Pegasus::CIM_ERR_FAILED;
    parseValue(Pegasus::CIMTYPE_UINT32, *code).get(status);
    const std::string text =
        percentDecoded(findField(response.fields, "CIMStatusCodeDescription").value_or(""));
    throw Pegasus::CIMException(static_cast<Pegasus::CIMStatusCode>(status), fromUtf8(text));
}

std::string refusalText(const HttpResponse& response) {
    std::string text = "the server answers " + std::to_string(response.status) + " " +
                       std::string(reasonPhrase(response.status));
    if (response.status == 401) {
        text += ": it wants other credentials";
    }
    if (const auto place = findField(response.fields, "Location")) {
        text += ": it redirects to " + *place + ", which is not followed";
    }
    const bool isNotFound = response.status == 404 || response.status == 405;
    if (isNotFound && !findField(response.fields, "CIMError")) {
        text += ": this is no CIM server";
    }
    for (const char* field : {"CIMError", "PGErrorDetail"}) {
        if (const auto value = findField(response.fields, field)) {
            text += ": " + percentDecoded(*value);
        }
    }
    return text;
}

/// After what time a server that refused wants to be asked again; none if it does not say, or says
/// longer than a person would wait.
std::optional<std::chrono::seconds> pauseBefore(const HttpResponse& response) {
    constexpr std::uint32_t longest = 60;
    const auto field = findField(response.fields, "Retry-After");
    const auto seconds =
        response.status == 503 && field ? base::parseDigits<std::uint32_t>(*field) : std::nullopt;
    return seconds && *seconds <= longest ? std::optional(std::chrono::seconds(*seconds))
                                          : std::nullopt;
}

}  // namespace

CimClient::CimClient(const ServerUrl& url, const HttpClientOptions& options)
    : url_(url.withoutCredentials()), http_(url, options) {}

void CimClient::fail(const std::string& what) const {
    throw ClientError(url_ + ": " + what);
}

std::string CimClient::nextMessageId() {
    return std::to_string(++lastMessage_);
}

HttpResponse CimClient::ask(const HttpFields& fields, const std::string& body) {
    constexpr int repetitions = 2;
    for (int repeated = 0;; ++repeated) {
        HttpResponse response = http_.post("/cimom", fields, body);
        const auto pause = pauseBefore(response);
        if (!pause || repeated == repetitions) {
            return response;
        }
        std::this_thread::sleep_for(*pause);
    }
}

std::string CimClient::exchange(const std::string& method, const std::string& object,
                                const std::string& body) {
    HttpResponse response = ask({{"Content-Type", "application/xml; charset=\"utf-8\""},
                                 {"CIMProtocolVersion", "1.0"},
                                 {"CIMOperation", "MethodCall"},
                                 {"CIMMethod", percentEncoded(method)},
                                 {"CIMObject", percentEncoded(object)}},
                                body);
    if (response.status != 200) {
        fail(refusalText(response));
    }
    throwErrorOfTrailer(response);
    return std::move(response.body);
}

template <typename Ask>
auto CimClient::guarded(Ask ask) {
    try {
        return ask();
    } catch (const HttpError& error) {
        fail(error.what());
    } catch (const XmlError& error) {
        fail(std::string("the answer is not CIM-XML: ") + error.what());
    } catch (const MalformedValue& error) {
        fail(std::string("the answer is not CIM-XML: ") + error.what());
    }
}

/// One operation: writes its request, sends it, has the answer read.
class CimClient::OperationRequest {
public:
    OperationRequest(CimClient& client, std::string operation, const CIMNamespaceName& nameSpace)
        : client_(client),
          operation_(std::move(operation)),
          nameSpace_(toUtf8(nameSpace.getString())),
          writer_(client.nextMessageId(), operation_, nameSpace) {}

    OperationRequestWriter& writer() { return writer_; }

    /// `read` gets the Response; what it returns must not refer to it.
    template <typename Read>
    auto send(Read read) {
        return client_.guarded([&] {
            const XmlDocument answer(client_.exchange(operation_, nameSpace_, writer_.finish()),
                                     answerLimits);
            return read(readResponse(answer));
        });
    }

private:
    CimClient& client_;
    std::string operation_;
    std::string nameSpace_;
    OperationRequestWriter writer_;
};

CIMInstance CimClient::getInstance(const CIMNamespaceName& nameSpace,
                                   const CIMObjectPath& instanceName,
                                   const CIMPropertyList& properties) {
    OperationRequest request(*this, "GetInstance", nameSpace);
    request.writer().instanceName("InstanceName", instanceName);
    request.writer().boolean("LocalOnly", false);
    request.writer().propertyList(properties);
    return request.send([&](const CimResponse& response) {
        CIMInstance instance =
            readInstance(expectElement(response.results, "IRETURNVALUE").firstChild());
        CIMObjectPath path = instanceName;
        path.setClassName(instance.getClassName());
        instance.setPath(path);
        return instance;
    });
}

Array<CIMInstance> CimClient::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                 const CIMName& className,
                                                 const CIMPropertyList& properties) {
    OperationRequest request(*this, "EnumerateInstances", nameSpace);
    request.writer().className("ClassName", className);
    request.writer().boolean("LocalOnly", false);
    request.writer().boolean("DeepInheritance", true);
    request.writer().propertyList(properties);
    return request.send(readInstances);
}

Array<CIMObjectPath> CimClient::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                       const CIMName& className) {
    OperationRequest request(*this, "EnumerateInstanceNames", nameSpace);
    request.writer().className("ClassName", className);
    return request.send(readPaths);
}

Array<CIMObjectPath> CimClient::associatorNames(const CIMNamespaceName& nameSpace,
                                                const CIMObjectPath& objectName) {
    OperationRequest request(*this, "AssociatorNames", nameSpace);
    request.writer().instanceName("ObjectName", objectName);
    return request.send(readPaths);
}

MethodResult CimClient::invokeMethod(const CIMNamespaceName& nameSpace,
                                     const CIMObjectPath& objectName, const CIMName& methodName,
                                     const Array<Pegasus::CIMParamValue>& inParameters) {
    const CIMObjectPath local(Pegasus::String(), nameSpace, objectName.getClassName(),
                              objectName.getKeyBindings());
    return guarded([&] {
        const XmlDocument answer(exchange(toUtf8(methodName.getString()), toUtf8(local.toString()),
                                          writeMethodRequest(nextMessageId(), methodName, nameSpace,
                                                             objectName, inParameters)),
                                 answerLimits);
        const CimResponse response = readResponse(answer);
        MethodResult result;
        result.outParameters = response.outParameters;
        if (response.returnValue) {
            result.returnValue = readReturnValue(response.returnValue);
        }
        return result;
    });
}

}  // namespace wire
