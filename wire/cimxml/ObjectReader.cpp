// SPDX-License-Identifier: MIT
#include "wire/cimxml/ObjectReader.h"

#include <algorithm>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/ObjectLimits.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"
#include "wire/cimxml/XmlError.h"

namespace wire {

namespace {

using Pegasus::CIMKeyBinding;
using Pegasus::CIMObjectPath;

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

Pegasus::CIMName cimName(XmlElement element, const char* attribute, const std::string& text) {
    const Pegasus::String name = fromUtf8(text);
    if (!Pegasus::CIMName::legal(name)) {
        failNotValid(element,
                     "its attribute " + quoted(attribute) + " is not a CIM name: " + quoted(text));
    }
    return {name};
}

CIMKeyBinding::Type keyType(XmlElement keyValue) {
    const std::string type = keyValue.attribute("VALUETYPE").value_or("string");
    if (type == "string") {
        return CIMKeyBinding::STRING;
    }
    if (type == "numeric") {
        return CIMKeyBinding::NUMERIC;
    }
    if (type == "boolean") {
        return CIMKeyBinding::BOOLEAN;
    }
    failNotValid(keyValue, "its VALUETYPE is unknown: " + quoted(type));
}

// `depth`: how many references the element stands in.
CIMObjectPath readPathAt(XmlElement element, Pegasus::Uint32 depth);

CIMObjectPath readReference(XmlElement element, Pegasus::Uint32 depth) {
    const XmlElement path = onlyChild(expectElement(element, "VALUE.REFERENCE"));
    if (depth >= maximumReferenceDepth) {
        failNotValid(element, "references are nested more than " +
                                  std::to_string(maximumReferenceDepth) + " deep");
    }
    return readPathAt(path, depth + 1);
}

CIMKeyBinding readKeyBinding(XmlElement element, Pegasus::Uint32 depth) {
    const Pegasus::CIMName name = nameAttribute(expectElement(element, "KEYBINDING"), "NAME");
    const XmlElement key = onlyChild(element);
    if (key.name() == "VALUE.REFERENCE") {
        return {name, Pegasus::CIMValue(readReference(key, depth))};
    }
    expectElement(key, "KEYVALUE");
    const Pegasus::String value = fromUtf8(key.text());
    if (value.size() > maximumKeyLength) {
        failNotValid(key,
                     "its text is longer than " + std::to_string(maximumKeyLength) + " characters");
    }
    return {name, value, keyType(key)};
}

/// How many characters a key takes in the text of a path.
Pegasus::Uint32 lengthInPath(const CIMKeyBinding& key) {
    constexpr Pegasus::Uint32 separators = 4;  // .NAME="VALUE"
    const Pegasus::String& value = key.getValue();
    const Pegasus::Char16* const begin = value.getChar16Data();
    const auto escaped = std::count_if(begin, begin + value.size(), [](Pegasus::Uint16 unit) {
        return unit == '"' || unit == '\\';
    });
    return separators + key.getName().getString().size() + value.size() +
           static_cast<Pegasus::Uint32>(escaped);
}

/// The host and namespace of NAMESPACEPATH.
void readNamespacePath(XmlElement element, CIMObjectPath& path) {
    expectElement(element, "NAMESPACEPATH");
    const XmlElement host = expectElement(element.firstChild(), "HOST");
    try {
        path.setHost(fromUtf8(host.text()));
    } catch (const Pegasus::MalformedObjectNameException&) {
        failNotValid(host, quoted(host.text()) + " is not the name of a host");
    }
    path.setNameSpace(readLocalNamespace(host.next()));
}

void requirePathLength(XmlElement element, Pegasus::Uint32 length) {
    if (length > maximumPathLength) {
        failNotValid(element, "the path is longer than " + std::to_string(maximumPathLength) +
                                  " characters");
    }
}

/// Gives the path class and keys; it has host and namespace already.
void readNameInto(CIMObjectPath& path, XmlElement element, Pegasus::Uint32 depth) {
    constexpr Pegasus::Uint32 separators = 4;  // //HOST/NAMESPACE:CLASS
    Pegasus::Uint32 length =
        separators + path.getHost().size() + path.getNameSpace().getString().size();
    if (element && element.name() == "CLASSNAME") {
        path.setClassName(nameAttribute(element, "NAME"));
        requirePathLength(element, length + path.getClassName().getString().size());
        return;
    }
    path.setClassName(nameAttribute(expectElement(element, "INSTANCENAME"), "CLASSNAME"));
    length += path.getClassName().getString().size();
    requirePathLength(element, length);
    Pegasus::Array<CIMKeyBinding> keys;
    for (const XmlElement child : element) {
        const CIMKeyBinding key = readKeyBinding(child, depth);
        length += lengthInPath(key);
        requirePathLength(element, length);
        keys.append(key);
    }
    path.setKeyBindings(keys);
}

CIMObjectPath readPathAt(XmlElement element, Pegasus::Uint32 depth) {
    const std::string_view kind = element.name();
    const XmlElement first = element.firstChild();
    CIMObjectPath path;
    XmlElement name = element;
    if (kind == "LOCALINSTANCEPATH" || kind == "LOCALCLASSPATH") {
        path.setNameSpace(readLocalNamespace(first));
        name = first.next();
    } else if (kind == "INSTANCEPATH" || kind == "CLASSPATH") {
        readNamespacePath(first, path);
        name = first.next();
    }
    readNameInto(path, name, depth);
    return path;
}

Pegasus::CIMValue readReferenceArray(XmlElement element) {
    Pegasus::Array<CIMObjectPath> paths;
    for (const XmlElement reference : element) {
        paths.append(readReference(reference, 0));
    }
    return {paths};
}

std::vector<std::string> readTexts(XmlElement valueArray) {
    std::vector<std::string> texts;
    for (const XmlElement value : expectElement(valueArray, "VALUE.ARRAY")) {
        texts.push_back(readValueText(value));
    }
    return texts;
}

/// The type of a parameter that came without one, by the element that holds its value.
Pegasus::CIMType untypedAs(XmlElement content) {
    return content && (content.name() == "VALUE.REFERENCE" || content.name() == "VALUE.REFARRAY")
               ? Pegasus::CIMTYPE_REFERENCE
               : Pegasus::CIMTYPE_STRING;
}

Pegasus::Uint32 arraySize(XmlElement element) {
    const auto text = element.attribute("ARRAYSIZE");
    if (!text) {
        return 0;
    }
    try {
        Pegasus::Uint32 size = 0;
        parseValue(Pegasus::CIMTYPE_UINT32, *text).get(size);
        return size;
    } catch (const MalformedValue& error) {
        failNotValid(element, std::string("its ARRAYSIZE is wrong: ") + error.what());
    }
}

}  // namespace

void failNotValid(XmlElement element, const std::string& what) {
    throw XmlError(XmlFault::notValid, "element " + quoted(element.name()) + ": " + what);
}

XmlElement expectElement(XmlElement element, std::string_view name) {
    if (!element) {
        throw XmlError(XmlFault::notValid, "the element " + quoted(name) + " is missing");
    }
    if (element.name() != name) {
        failNotValid(element, quoted(name) + " is expected in its place");
    }
    return element;
}

XmlElement onlyChild(XmlElement element) {
    const XmlElement child = element.firstChild();
    if (!child || child.next()) {
        failNotValid(element, "exactly one element is expected inside");
    }
    return child;
}

std::string requiredAttribute(XmlElement element, const char* name) {
    auto value = element.attribute(name);
    if (!value) {
        failNotValid(element, "its attribute " + quoted(name) + " is missing");
    }
    return *std::move(value);
}

Pegasus::CIMName nameAttribute(XmlElement element, const char* name) {
    return cimName(element, name, requiredAttribute(element, name));
}

Pegasus::CIMName optionalNameAttribute(XmlElement element, const char* name) {
    const auto text = element.attribute(name);
    return text ? cimName(element, name, *text) : Pegasus::CIMName();
}

Pegasus::CIMType typeAttribute(XmlElement element, const char* name) {
    const std::string text = requiredAttribute(element, name);
    const auto type = typeOfName(text);
    if (!type) {
        failNotValid(element, quoted(text) + " is not a type");
    }
    return *type;
}

bool trueAttribute(XmlElement element, const char* name) {
    const auto text = element.attribute(name);
    return text && (*text == "true" || *text == "TRUE");
}

Pegasus::CIMNamespaceName readLocalNamespace(XmlElement element) {
    std::string path;
    for (const XmlElement component : expectElement(element, "LOCALNAMESPACEPATH")) {
        path += path.empty() ? "" : "/";
        path += requiredAttribute(expectElement(component, "NAMESPACE"), "NAME");
    }
    const Pegasus::String name = fromUtf8(path);
    if (path.empty() || !Pegasus::CIMNamespaceName::legal(name)) {
        failNotValid(element, quoted(path) + " is not a namespace");
    }
    return {name};
}

CIMObjectPath readName(XmlElement element) {
    CIMObjectPath path;
    readNameInto(path, element, 0);
    return path;
}

CIMObjectPath readPath(XmlElement element) {
    return readPathAt(element, 0);
}

std::string readValueText(XmlElement element) {
    if (expectElement(element, "VALUE").firstChild()) {
        failNotValid(element, "no elements are expected inside");
    }
    return element.text();
}

Pegasus::CIMValue readValue(XmlElement element, Pegasus::CIMType type) {
    const std::string_view kind = element.name();
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        if (kind == "VALUE.REFARRAY") {
            return readReferenceArray(element);
        }
        return {readReference(element, 0)};
    }
    try {
        if (kind == "VALUE.ARRAY") {
            return parseArray(type, readTexts(element));
        }
        return parseValue(type, readValueText(element));
    } catch (const MalformedValue& error) {
        failNotValid(element, error.what());
    }
}

Pegasus::CIMValue readContent(XmlElement element, Pegasus::CIMType type, bool isArray) {
    for (const XmlElement content : element) {
        if (content.name() == "QUALIFIER") {
            continue;
        }
        if (content.next()) {
            failNotValid(element, "more than one value is inside");
        }
        Pegasus::CIMValue value = readValue(content, type);
        if (value.isArray() != isArray) {
            failNotValid(element, isArray ? "an array is expected" : "no array is expected");
        }
        return value;
    }
    return {type, isArray};
}

Pegasus::CIMProperty readProperty(XmlElement element) {
    const std::string_view kind = element.name();
    const bool isArray = kind == "PROPERTY.ARRAY";
    Pegasus::CIMType type = Pegasus::CIMTYPE_REFERENCE;
    if (kind != "PROPERTY.REFERENCE") {
        if (!isArray) {
            expectElement(element, "PROPERTY");
        }
        type = typeAttribute(element, "TYPE");
        if (type == Pegasus::CIMTYPE_REFERENCE) {
            failNotValid(element, "its TYPE cannot be \"reference\"");
        }
    }
    return {nameAttribute(element, "NAME"),
            readContent(element, type, isArray),
            arraySize(element),
            optionalNameAttribute(element, "REFERENCECLASS"),
            optionalNameAttribute(element, "CLASSORIGIN"),
            trueAttribute(element, "PROPAGATED")};
}

Pegasus::CIMInstance readInstance(XmlElement element) {
    Pegasus::CIMInstance instance(nameAttribute(expectElement(element, "INSTANCE"), "CLASSNAME"));
    for (const XmlElement child : element) {
        if (child.name() == "QUALIFIER") {
            continue;
        }
        // Also what bounds the walk over all earlier properties that addProperty() is.
        if (instance.getPropertyCount() >= maximumProperties) {
            failNotValid(element, "there are more than " + std::to_string(maximumProperties) +
                                      " properties inside");
        }
        const Pegasus::CIMProperty property = readProperty(child);
        try {
            instance.addProperty(property);
        } catch (const Pegasus::AlreadyExistsException&) {
            failNotValid(element, "the property " + quoted(toUtf8(property.getName().getString())) +
                                      " is given twice");
        }
    }
    return instance;
}

Pegasus::CIMInstance readInstanceWithPath(XmlElement element) {
    const XmlElement name = element.firstChild();
    if (!name) {
        failNotValid(element, "the name of the instance is missing");
    }
    CIMObjectPath path = readPath(name);
    Pegasus::CIMInstance instance = readInstance(name.next());
    if (!path.getClassName().equal(instance.getClassName())) {
        failNotValid(element, "the name and the instance are of different classes");
    }
    instance.setPath(path);
    return instance;
}

Pegasus::CIMParamValue readParamValue(XmlElement element) {
    const std::string name = requiredAttribute(expectElement(element, "PARAMVALUE"), "NAME");
    if (name.empty()) {
        failNotValid(element, "its attribute \"NAME\" is empty");
    }
    const XmlElement content = element.firstChild();
    if (content && content.next()) {
        failNotValid(element, "more than one value is inside");
    }
    const bool typed = element.attribute("PARAMTYPE").has_value();
    const Pegasus::CIMType type = typed ? typeAttribute(element, "PARAMTYPE") : untypedAs(content);
    const Pegasus::CIMValue value =
        content ? readValue(content, type) : Pegasus::CIMValue(type, false);
    return {fromUtf8(name), value, typed};
}

}  // namespace wire
