// SPDX-License-Identifier: MIT
// A request as a client writes it.
#pragma once

#include <string>
#include <string_view>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/String.h>

#include "wire/cimxml/ObjectWriter.h"

namespace wire {

/// A request for an operation of the protocol, written from front to back. Parameters that are
/// null names, empty roles or null lists are left out. One thread at a time.
class OperationRequestWriter {
public:
    OperationRequestWriter(std::string_view messageId, std::string_view operation,
                           const Pegasus::CIMNamespaceName& nameSpace);

    void className(std::string_view parameter, const Pegasus::CIMName& name);
    void instanceName(std::string_view parameter, const Pegasus::CIMObjectPath& path);
    void boolean(std::string_view parameter, bool value);
    void text(std::string_view parameter, const Pegasus::String& value);
    void propertyList(const Pegasus::CIMPropertyList& properties);

    /// Ends the request and hands it out. The writer is of no use afterwards.
    std::string finish();

private:
    void begin(std::string_view parameter);
    void end();

    std::string out_;
    ObjectWriter objects_;
};

/// A request to invoke a method on an instance, or on a class where `object` has no keys. Host and
/// namespace of `object` are not looked at.
std::string writeMethodRequest(std::string_view messageId, const Pegasus::CIMName& method,
                               const Pegasus::CIMNamespaceName& nameSpace,
                               const Pegasus::CIMObjectPath& object,
                               const Pegasus::Array<Pegasus::CIMParamValue>& parameters);

}  // namespace wire
