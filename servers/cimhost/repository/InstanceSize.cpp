// SPDX-License-Identifier: MIT
#include "servers/cimhost/repository/InstanceSize.h"

#include <type_traits>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>

#include "wire/cimxml/ValueTypes.h"

namespace cimhost {

namespace {

using Pegasus::Array;
using Pegasus::CIMObjectPath;
using Pegasus::CIMValue;
using Pegasus::Uint32;

// Names are shared with the class; what else belongs to a property is about this large.
constexpr std::size_t propertyBytes = 128;
constexpr std::size_t instanceBytes = 256;

std::size_t textBytes(const Pegasus::String& text) {
    return sizeof text + text.size() * sizeof(Pegasus::Char16);
}

template <typename T>
std::size_t elementBytes(const T& element) {
    if constexpr (std::is_same_v<T, Pegasus::String>) {
        return textBytes(element);
    } else if constexpr (std::is_same_v<T, CIMObjectPath>) {
        // The keys hold about what the text does.
        return instanceBytes + textBytes(element.toString());
    } else {
        return sizeof element;
    }
}

template <typename T>
std::size_t valueBytes(const CIMValue& value) {
    if (!value.isArray()) {
        T scalar{};
        value.get(scalar);
        return elementBytes(scalar);
    }
    Array<T> elements;
    value.get(elements);
    // Only reading keeps the elements shared with the value.
    const Array<T>& shared = elements;
    std::size_t bytes = 0;
    for (Uint32 i = 0; i < shared.size(); ++i) {
        bytes += elementBytes(shared[i]);
    }
    return bytes;
}

}  // namespace

std::size_t sizeOf(const CIMValue& value) {
    if (value.isNull()) {
        return 0;
    }
    if (value.getType() == Pegasus::CIMTYPE_REFERENCE) {
        return valueBytes<CIMObjectPath>(value);
    }
    return wire::withType(
        value.getType(), [&](auto tag) { return valueBytes<typename decltype(tag)::Type>(value); });
}

std::size_t sizeOf(const Pegasus::CIMInstance& instance) {
    std::size_t bytes = instanceBytes + elementBytes(instance.getPath());
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        bytes += propertyBytes + sizeOf(instance.getProperty(i).getValue());
    }
    return bytes;
}

}  // namespace cimhost
