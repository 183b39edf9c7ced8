// SPDX-License-Identifier: MIT
#include "servers/cimhost/repository/InstanceForms.h"

#include <cstdint>
#include <string>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "servers/serving/PathForms.h"
#include "wire/cimxml/ObjectLimits.h"
#include "wire/cimxml/StringConversion.h"

namespace cimhost {

namespace {

using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMKeyBinding;
using Pegasus::CIMObjectPath;
using Pegasus::CIMProperty;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint32;

CIMProperty makeProperty(const wire::PropertyDefinition& definition, const CIMValue& value,
                         bool propagated) {
    return CIMProperty(definition.name, value, definition.arraySize, definition.referenceClass,
                       definition.classOrigin, propagated);
}

CIMObjectPath relativeToNamespace(const CIMObjectPath& path,
                                  const Pegasus::CIMNamespaceName& nameSpace) {
    const bool elsewhere = !path.getNameSpace().isNull() && !path.getNameSpace().equal(nameSpace);
    return elsewhere ? path : serving::withoutLocation(path);
}

void requireLength(const String& what, const String& text, Uint32 limit) {
    if (text.size() > limit) {
        throw CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED,
                           what + String(" is longer than ") +
                               String(std::to_string(limit).c_str()) + String(" characters"));
    }
}

CIMObjectPath buildPath(const wire::ClassDefinition& definition, const CIMInstance& instance) {
    Pegasus::Array<CIMKeyBinding> keys;
    for (const wire::PropertyDefinition& property : definition.properties) {
        if (!property.isKey()) {
            continue;
        }
        const CIMValue& value =
            instance.getProperty(instance.findProperty(property.name)).getValue();
        if (value.isNull() || value.isArray()) {
            throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER,
                               String("the key ") + property.name.getString() + " has no value");
        }
        const CIMKeyBinding key(property.name, value);
        if (key.getType() != CIMKeyBinding::REFERENCE) {
            requireLength(String("the key ") + property.name.getString(), key.getValue(),
                          wire::maximumKeyLength);
        }
        keys.append(key);
    }
    CIMObjectPath path(String(), Pegasus::CIMNamespaceName(), definition.name, keys);
    requireLength("the path of the instance", path.toString(), wire::maximumPathLength);
    return path;
}

std::string folded(const String& name) {
    return base::toLower(wire::toUtf8(name));
}

/// A whole number of at most 64 bits in decimal, whatever its spelling; any other text as it stands.
std::string normalNumber(const std::string& text) {
    if (const auto number = base::parseInteger<std::uint64_t>(text)) {
        return std::to_string(*number);
    }
    const auto number = base::parseInteger<std::int64_t>(text);
    return number ? std::to_string(*number) : text;
}

std::string canonicalIdentity(const CIMObjectPath& path) {
    // Lengths before the texts keep any two different lists of keys apart, whatever they contain.
    std::string identity = folded(path.getClassName().getString());
    const auto& keys = path.getKeyBindings();
    for (Uint32 index = 0; index < keys.size(); ++index) {
        const CIMKeyBinding& key = keys[index];
        std::string value = wire::toUtf8(key.getValue());
        char type = 's';
        switch (key.getType()) {
            case CIMKeyBinding::NUMERIC:
                type = 'n';
                value = normalNumber(value);
                break;
            case CIMKeyBinding::BOOLEAN:
                type = 'b';
                value = folded(key.getValue());
                break;
            case CIMKeyBinding::REFERENCE:
                type = 'r';
                value = canonicalIdentity(CIMObjectPath(key.getValue()));
                break;
            default:
                break;
        }
        identity += '\n';
        identity += folded(key.getName().getString());
        identity += type;
        identity += std::to_string(value.size());
        identity += ':';
        identity += value;
    }
    return identity;
}

}  // namespace

CIMValue storedValue(const wire::PropertyDefinition& property, const CIMValue& given,
                     const Pegasus::CIMNamespaceName& nameSpace) {
    if (given.getType() != property.type || given.isArray() != property.isArray) {
        throw CIMException(Pegasus::CIM_ERR_FAILED, "type mismatch");
    }
    if (property.type != Pegasus::CIMTYPE_REFERENCE || given.isNull()) {
        return given;
    }
    CIMObjectPath path;
    given.get(path);
    return CIMValue(relativeToNamespace(path, nameSpace));
}

CIMInstance completeInstance(const wire::ClassDefinition& definition, const CIMInstance& given,
                             const Pegasus::CIMNamespaceName& nameSpace) {
    if (wire::isQualified(definition.qualifiers, "Abstract")) {
        throw CIMException(Pegasus::CIM_ERR_INVALID_PARAMETER,
                           String("the class ") + definition.name.getString() + " is abstract");
    }
    CIMInstance instance(definition.name);
    for (const wire::PropertyDefinition& property : definition.properties) {
        if (given.findProperty(property.name) == PEG_NOT_FOUND) {
            instance.addProperty(makeProperty(property, property.defaultValue, true));
        }
    }
    for (Uint32 index = 0; index < given.getPropertyCount(); ++index) {
        const Pegasus::CIMConstProperty property = given.getProperty(index);
        const wire::PropertyDefinition* const declared =
            definition.findProperty(property.getName());
        if (declared == nullptr) {
            throw CIMException(Pegasus::CIM_ERR_FAILED,
                               String("no such property: ") + property.getName().getString());
        }
        instance.addProperty(
            makeProperty(*declared, storedValue(*declared, property.getValue(), nameSpace), false));
    }
    instance.setPath(buildPath(definition, instance));
    return instance;
}

std::string instanceIdentity(const CIMObjectPath& path) {
    return canonicalIdentity(serving::canonicalPath(path));
}

}  // namespace cimhost
