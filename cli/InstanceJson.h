// SPDX-License-Identifier: MIT
// CIM instances as JSON.
// Functions without state; any thread may call them for different writers.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>

#include "cli/JsonWriter.h"

namespace usbhcdiag {

/// The properties of an instance as members of an object, in the order in which the server delivered them.
/// Numbers, booleans and arrays are such in JSON, too, null is null, everything else is text (date and
/// time, and references, in their CIM form).
void writeProperties(JsonWriter& json, const Pegasus::CIMInstance& instance);

/// Instances as an array of objects.
void writeInstances(JsonWriter& json, const Pegasus::Array<Pegasus::CIMInstance>& instances);

}  // namespace usbhcdiag
