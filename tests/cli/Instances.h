// SPDX-License-Identifier: MIT
// Instances that hold a value to be shown.
#pragma once

#include <initializer_list>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>

namespace usbhcdiag {

template <typename T>
Pegasus::CIMValue arrayOf(std::initializer_list<T> elements) {
    Pegasus::Array<T> array;
    for (const T& element : elements) {
        array.append(element);
    }
    return Pegasus::CIMValue(array);
}

/// An instance with a single property.
inline Pegasus::CIMInstance instanceWith(const char* name, const Pegasus::CIMValue& value) {
    Pegasus::CIMInstance instance(Pegasus::CIMName("ZORVA_UsbHc"));
    instance.addProperty(Pegasus::CIMProperty(Pegasus::CIMName(name), value));
    return instance;
}

}  // namespace usbhcdiag
