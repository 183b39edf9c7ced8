// SPDX-License-Identifier: MIT
// Makes in-parameters of the methods under test.
#pragma once

#include <string>

#include <Pegasus/Common/CIMParamValue.h>

#include "contract/Names.h"

/// The path of the managed element with that device ID, as a client sends it.
inline Pegasus::CIMObjectPath elementPath(const std::string& deviceId) {
    using namespace Pegasus;
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName(contract::properties::deviceId), String(deviceId.c_str()),
                              CIMKeyBinding::STRING));
    return CIMObjectPath(String(), CIMNamespaceName(contract::nameSpace),
                         CIMName(contract::classes::managedElement), keys);
}

/// An array of one parameter.
inline Pegasus::Array<Pegasus::CIMParamValue> parameter(const char* name,
                                                        const Pegasus::CIMValue& value) {
    Pegasus::Array<Pegasus::CIMParamValue> parameters;
    parameters.append(Pegasus::CIMParamValue(name, value));
    return parameters;
}

/// An array of "SystemElement", the managed element with that device ID.
inline Pegasus::Array<Pegasus::CIMParamValue> elementParameter(const std::string& deviceId) {
    return parameter(contract::parameters::systemElement, Pegasus::CIMValue(elementPath(deviceId)));
}
