// SPDX-License-Identifier: MIT
// Converts objects of the object model to text, for comparisons and messages of failed tests.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

inline std::string text(const Pegasus::String& value) {
    return std::string(static_cast<const char*>(value.getCString()));
}
inline std::string text(const Pegasus::CIMName& name) {
    return text(name.getString());
}
inline std::string text(const Pegasus::CIMNamespaceName& name) {
    return text(name.getString());
}
inline std::string text(const Pegasus::CIMObjectPath& path) {
    return text(path.toString());
}

/// Type and value: "uint16[] 2 5 8 " for an array, "string null" for a null.
inline std::string text(const Pegasus::CIMValue& value) {
    return std::string(Pegasus::cimTypeToString(value.getType())) +
           (value.isArray() ? "[] " : " ") +
           (value.isNull() ? std::string("null") : text(value.toString()));
}

/// "Name: type value" of every property, in order.
inline std::vector<std::string> propertiesOf(const Pegasus::CIMInstance& instance) {
    std::vector<std::string> texts;
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const Pegasus::CIMConstProperty property = instance.getProperty(i);
        texts.push_back(text(property.getName()) + ": " + text(property.getValue()));
    }
    return texts;
}

/// Type and value of one property, or "no property " and the name.
inline std::string propertyText(const Pegasus::CIMInstance& instance, const char* name) {
    const Pegasus::Uint32 position = instance.findProperty(Pegasus::CIMName(name));
    return position == PEG_NOT_FOUND ? std::string("no property ") + name
                                     : text(instance.getProperty(position).getValue());
}

/// The elements of a string array.
inline std::vector<std::string> lines(const Pegasus::CIMValue& value) {
    Pegasus::Array<Pegasus::String> array;
    value.get(array);
    std::vector<std::string> texts;
    for (Pegasus::Uint32 i = 0; i < array.size(); ++i) {
        texts.push_back(text(array[i]));
    }
    return texts;
}

/// The texts of paths, in order.
inline std::vector<std::string> texts(const Pegasus::Array<Pegasus::CIMObjectPath>& paths) {
    std::vector<std::string> all;
    for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
        all.push_back(text(paths[i]));
    }
    return all;
}

namespace Pegasus {

inline void PrintTo(const CIMValue& value, std::ostream* stream) {
    *stream << ::text(value);
}
inline void PrintTo(const CIMObjectPath& path, std::ostream* stream) {
    *stream << ::text(path);
}

}  // namespace Pegasus
