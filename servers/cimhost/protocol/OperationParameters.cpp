// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/OperationParameters.h"

#include <algorithm>
#include <string>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "wire/cimxml/ObjectLimits.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/StringConversion.h"

namespace cimhost {

namespace {

[[noreturn]] void fail(Pegasus::CIMStatusCode code, std::string_view name, const char* what) {
    throw Pegasus::CIMException(code,
                                wire::fromUtf8("parameter \"" + std::string(name) + "\" " + what));
}

Pegasus::CIMName nameFromValue(wire::XmlElement value) {
    const std::string text = wire::readValueText(value);
    const Pegasus::String name = wire::fromUtf8(text);
    if (!Pegasus::CIMName::legal(name)) {
        wire::failNotValid(value, "\"" + text + "\" is not a CIM name");
    }
    return {name};
}

}  // namespace

OperationParameters::OperationParameters(const wire::CimRequest& request,
                                         std::initializer_list<std::string_view> known)
    : request_(request) {
    const auto& given = request.intrinsicParameters;
    for (auto parameter = given.begin(); parameter != given.end(); ++parameter) {
        const auto hasName = [&](std::string_view name) {
            return base::equalIgnoringCase(name, parameter->name);
        };
        if (std::none_of(known.begin(), known.end(), hasName)) {
            fail(Pegasus::CIM_ERR_NOT_SUPPORTED, parameter->name, "is unknown to this operation");
        }
        if (std::any_of(given.begin(), parameter,
                        [&](const auto& earlier) { return hasName(earlier.name); })) {
            fail(Pegasus::CIM_ERR_INVALID_PARAMETER, parameter->name, "is given twice");
        }
    }
}

wire::XmlElement OperationParameters::find(std::string_view name) const {
    for (const wire::IntrinsicParameter& parameter : request_.intrinsicParameters) {
        if (base::equalIgnoringCase(parameter.name, name)) {
            return parameter.element.firstChild() ? wire::onlyChild(parameter.element)
                                                  : wire::XmlElement();
        }
    }
    return {};
}

wire::XmlElement OperationParameters::require(std::string_view name) const {
    const wire::XmlElement element = find(name);
    if (!element) {
        fail(Pegasus::CIM_ERR_INVALID_PARAMETER, name, "is missing");
    }
    return element;
}

Pegasus::CIMName OperationParameters::className(std::string_view name) const {
    return wire::nameAttribute(wire::expectElement(require(name), "CLASSNAME"), "NAME");
}

Pegasus::CIMName OperationParameters::optionalClassName(std::string_view name) const {
    return find(name) ? className(name) : Pegasus::CIMName();
}

Pegasus::CIMObjectPath OperationParameters::instanceName(std::string_view name) const {
    return wire::readName(wire::expectElement(require(name), "INSTANCENAME"));
}

Pegasus::CIMObjectPath OperationParameters::objectName(std::string_view name) const {
    return wire::readName(require(name));
}

bool OperationParameters::isClassName(std::string_view name) const {
    return require(name).name() == "CLASSNAME";
}

Pegasus::CIMInstance OperationParameters::instance(std::string_view name) const {
    return wire::readInstance(require(name));
}

Pegasus::CIMInstance OperationParameters::namedInstance(std::string_view name) const {
    return wire::readInstanceWithPath(wire::expectElement(require(name), "VALUE.NAMEDINSTANCE"));
}

Pegasus::CIMName OperationParameters::propertyName(std::string_view name) const {
    return nameFromValue(require(name));
}

Pegasus::String OperationParameters::optionalText(std::string_view name) const {
    const wire::XmlElement value = find(name);
    return value ? wire::fromUtf8(wire::readValueText(value)) : Pegasus::String();
}

bool OperationParameters::boolean(std::string_view name, bool otherwise) const {
    if (const wire::XmlElement value = find(name)) {
        wire::readValue(value, Pegasus::CIMTYPE_BOOLEAN).get(otherwise);
    }
    return otherwise;
}

Pegasus::CIMPropertyList OperationParameters::propertyList(std::string_view name) const {
    const wire::XmlElement list = find(name);
    if (!list) {
        return {};
    }
    Pegasus::Array<Pegasus::CIMName> names;
    for (const wire::XmlElement value : wire::expectElement(list, "VALUE.ARRAY")) {
        // Each property of each instance is looked for in this list.
        if (names.size() >= wire::maximumProperties) {
            wire::failNotValid(list, "there are more than " +
                                         std::to_string(wire::maximumProperties) + " names inside");
        }
        names.append(nameFromValue(value));
    }
    return {names};
}

}  // namespace cimhost
