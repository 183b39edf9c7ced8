// SPDX-License-Identifier: MIT
#include "cli/ValueElements.h"

#include <type_traits>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueTypes.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using wire::toUtf8;

template <typename T>
ValueElement elementOf(const T& value) {
    if constexpr (std::is_same_v<T, Boolean>) {
        return value;
    } else if constexpr (std::is_floating_point_v<T>) {
        return double{value};
    } else if constexpr (std::is_unsigned_v<T>) {
        return std::uint64_t{value};
    } else if constexpr (std::is_integral_v<T>) {
        return std::int64_t{value};
    } else if constexpr (std::is_same_v<T, String>) {
        return toUtf8(value);
    } else if constexpr (std::is_same_v<T, Char16>) {
        return toUtf8(String(&value, 1));
    } else {
        return toUtf8(value.toString());
    }
}

template <typename T>
std::vector<ValueElement> typedElements(const CIMValue& value) {
    if (!value.isArray()) {
        T scalar{};
        value.get(scalar);
        return {elementOf(scalar)};
    }
    Array<T> array;
    value.get(array);
    // Only reading keeps the elements shared with the value.
    const Array<T>& shared = array;
    std::vector<ValueElement> elements;
    elements.reserve(shared.size());
    for (Uint32 i = 0; i < shared.size(); ++i) {
        elements.push_back(elementOf(shared[i]));
    }
    return elements;
}

}  // namespace

std::vector<ValueElement> elementsOf(const CIMValue& value) {
    if (value.isNull()) {
        return {};
    }
    if (value.getType() == CIMTYPE_REFERENCE) {
        return typedElements<CIMObjectPath>(value);
    }
    return wire::withType(value.getType(), [&](auto tag) {
        return typedElements<typename decltype(tag)::Type>(value);
    });
}

}  // namespace usbhcdiag
