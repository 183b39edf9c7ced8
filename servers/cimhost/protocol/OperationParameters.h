// SPDX-License-Identifier: MIT
// The parameters of an operation, read by what the operation calls for.
#pragma once

#include <initializer_list>
#include <string_view>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/String.h>

#include "wire/cimxml/CimRequest.h"

namespace cimhost {

/// Reads parameters by name (compared without case). Where a parameter is absent or null, optional
/// ones have a default, the others are CIM_ERR_INVALID_PARAMETER. A parameter of the wrong form is
/// an XmlError. Refers to the request. One thread at a time.
class OperationParameters {
public:
    /// `known` are the names that the operation has. Throws Pegasus::CIMException:
    /// CIM_ERR_NOT_SUPPORTED for a parameter of another name, CIM_ERR_INVALID_PARAMETER for one that
    /// is given twice.
    OperationParameters(const wire::CimRequest& request,
                        std::initializer_list<std::string_view> known);

    Pegasus::CIMName className(std::string_view name) const;
    Pegasus::CIMName optionalClassName(std::string_view name) const;
    Pegasus::CIMObjectPath instanceName(std::string_view name) const;

    /// The name of an instance, or of a class: then without keys.
    Pegasus::CIMObjectPath objectName(std::string_view name) const;

    /// Whether objectName() was given as the name of a class.
    bool isClassName(std::string_view name) const;

    Pegasus::CIMInstance instance(std::string_view name) const;
    Pegasus::CIMInstance namedInstance(std::string_view name) const;
    Pegasus::CIMName propertyName(std::string_view name) const;
    Pegasus::String optionalText(std::string_view name) const;
    bool boolean(std::string_view name, bool otherwise) const;

    /// Null where no list is given.
    Pegasus::CIMPropertyList propertyList(std::string_view name) const;

private:
    /// What stands inside the parameter; no element where it is absent or null.
    wire::XmlElement find(std::string_view name) const;
    wire::XmlElement require(std::string_view name) const;

    const wire::CimRequest& request_;
};

}  // namespace cimhost
