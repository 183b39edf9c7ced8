// SPDX-License-Identifier: MIT
#include "servers/cimhost/operations/MethodParameters.h"

#include <string>
#include <vector>

#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"

namespace cimhost {

namespace {

using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMParamValue;
using Pegasus::CIMType;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint32;

[[noreturn]] void refuse(CIMType type) {
    throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER,
                       String("Malformed ") + Pegasus::cimTypeToString(type) + " value");
}

CIMValue parseElements(CIMType type, const Array<String>& texts) {
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
    // A text is no reference, even if it spells a path: OpenPegasus refuses it, too.
    try {
        if (declared.isArray) {
            Array<String> texts;
            untyped.get(texts);
            return parseElements(declared.type, texts);
        }
        String text;
        untyped.get(text);
        return wire::parseValue(declared.type, wire::toUtf8(text));
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
