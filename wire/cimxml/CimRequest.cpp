// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimRequest.h"

#include "wire/cimxml/Message.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/XmlError.h"

namespace wire {

namespace {

void readIntrinsicCall(XmlElement call, CimRequest& request) {
    const XmlElement nameSpace = call.firstChild();
    request.nameSpace = readLocalNamespace(nameSpace);
    for (XmlElement parameter = nameSpace.next(); parameter; parameter = parameter.next()) {
        expectElement(parameter, "IPARAMVALUE");
        request.intrinsicParameters.push_back({requiredAttribute(parameter, "NAME"), parameter});
    }
}

void readExtrinsicCall(XmlElement call, CimRequest& request) {
    const XmlElement object = call.firstChild();
    if (!object || (object.name() != "LOCALINSTANCEPATH" && object.name() != "LOCALCLASSPATH")) {
        failNotValid(call, "the local path of an instance or class is expected first");
    }
    request.object = readPath(object);
    request.nameSpace = request.object.getNameSpace();
    for (XmlElement parameter = object.next(); parameter; parameter = parameter.next()) {
        request.parameters.append(readParamValue(parameter));
    }
}

}  // namespace

CimRequest readRequest(const XmlDocument& document) {
    const XmlElement message = readMessage(document.root());
    CimRequest request;
    request.messageId = requiredAttribute(message, "ID");
    request.protocolVersion = requiredAttribute(message, "PROTOCOLVERSION");

    const XmlElement simple = message.firstChild();
    if (simple && simple.name() == "MULTIREQ") {
        throw XmlError(XmlFault::multipleRequests, "several requests in one message");
    }
    XmlElement call = expectElement(simple, "SIMPLEREQ").firstChild();
    while (call && call.name() == "CORRELATOR") {
        call = call.next();
    }
    if (!call || (call.name() != "IMETHODCALL" && call.name() != "METHODCALL") || call.next()) {
        failNotValid(simple, "one method call is expected inside");
    }
    request.method = requiredAttribute(call, "NAME");
    request.intrinsic = call.name() == "IMETHODCALL";
    if (request.intrinsic) {
        readIntrinsicCall(call, request);
    } else {
        nameAttribute(call, "NAME");
        readExtrinsicCall(call, request);
    }
    return request;
}

}  // namespace wire
