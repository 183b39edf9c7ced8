// SPDX-License-Identifier: MIT
#include "servers/cimhost/operations/MethodParameters.h"

#include <string>
#include <vector>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"

namespace cimhost {

namespace {

using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMObjectPath;
using Pegasus::CIMParamValue;
using Pegasus::CIMType;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint32;

[[noreturn]] void refuse(CIMType type) {
    throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER,
                       String("Malformed ") + Pegasus::cimTypeToString(type) + " value");
}

CIMValue parseScalar(CIMType type, const String& text) {
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        return CIMValue(CIMObjectPath(text));
    }
    return wire::parseValue(type, wire::toUtf8(text));
}

CIMValue parseElements(CIMType type, const Array<String>& texts) {
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        Array<CIMObjectPath> paths;
        for (Uint32 index = 0; index < texts.size(); ++index) {
            paths.append(CIMObjectPath(texts[index]));
        }
        return CIMValue(paths);
    }
    std::vector<std::string> elements;
    elements.reserve(texts.size());
    for (Uint32 index = 0; index < texts.size(); ++index) {
        elements.push_back(wire::toUtf8(texts[index]));
    }
    return wire::parseArray(type, elements);
}

CIMValue typedValue(const wire::ParameterDefinition& declared, const CIMValue& untyped) {
    if (untyped.isNull()) {
        return CIMValue(declared.type, declared.isArray);
    }
    const bool isReference = untyped.getType() == Pegasus::CIMTYPE_REFERENCE;
    if (untyped.isArray() != declared.isArray ||
        (isReference && declared.type != Pegasus::CIMTYPE_REFERENCE)) {
        throw CIMException(Pegasus::CIM_ERR_TYPE_MISMATCH, declared.name.getString());
    }
    if (isReference) {
        return untyped;
    }
    try {
        if (declared.isArray) {
            Array<String> texts;
            untyped.get(texts);
            return parseElements(declared.type, texts);
        }
        String text;
        untyped.get(text);
        return parseScalar(declared.type, text);
    } catch (const Pegasus::Exception&) {
        refuse(declared.type);
    } catch (const wire::MalformedValue&) {
        refuse(declared.type);
    }
}

}  // namespace

Array<CIMParamValue> typedParameters(const wire::MethodDefinition& method,
                                     const Array<CIMParamValue>& parameters) {
    Array<CIMParamValue> result;
    for (Uint32 index = 0; index < parameters.size(); ++index) {
        const CIMParamValue& parameter = parameters[index];
        const wire::ParameterDefinition* declared = nullptr;
        if (!parameter.isTyped() && Pegasus::CIMName::legal(parameter.getParameterName())) {
            declared = method.findParameter(parameter.getParameterName());
        }
        result.append(declared == nullptr
                          ? parameter
                          : CIMParamValue(parameter.getParameterName(),
                                          typedValue(*declared, parameter.getValue()), true));
    }
    return result;
}

}  // namespace cimhost
