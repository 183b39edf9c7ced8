// SPDX-License-Identifier: MIT
// A request as a server reads it.
//
// Plain values: one thread at a time may change one, any number may read it.
#pragma once

#include <string>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>

#include "wire/cimxml/XmlDocument.h"

namespace wire {

/// A parameter of an intrinsic method: what its name calls for is read when the operation is known.
struct IntrinsicParameter {
    std::string name;
    XmlElement element;  ///< IPARAMVALUE
};

/// A request. It refers to the document that it was read from, which must outlive it.
struct CimRequest {
    std::string messageId;        ///< as the client chose it
    std::string protocolVersion;  ///< of the message, "1.0" for example
    bool intrinsic = true;  ///< an operation of the protocol, as opposed to a method of a class
    std::string method;     ///< operation or method, in the client's case
    Pegasus::CIMNamespaceName nameSpace;
    std::vector<IntrinsicParameter> intrinsicParameters;
    Pegasus::CIMObjectPath object;                      ///< of a method: class, keys and namespace
    Pegasus::Array<Pegasus::CIMParamValue> parameters;  ///< of a method
};

/// Reads a request. Throws XmlError for a document that is none, and for versions of the protocol
/// that are not spoken here.
CimRequest readRequest(const XmlDocument& document);

}  // namespace wire
