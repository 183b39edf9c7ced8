// SPDX-License-Identifier: MIT
#include "cli/InstanceJson.h"

#include <vector>

#include <Pegasus/Common/CIMProperty.h>

#include "cli/ValueElements.h"
#include "wire/cimxml/StringConversion.h"

namespace usbhcdiag {
namespace {

void writeValue(JsonWriter& json, const Pegasus::CIMValue& value) {
    if (value.isNull()) {
        json.null();
        return;
    }
    if (value.isArray()) {
        json.beginArray();
    }
    for (const ValueElement& element : elementsOf(value)) {
        std::visit([&json](const auto& held) { json.value(held); }, element);
    }
    if (value.isArray()) {
        json.endArray();
    }
}

}  // namespace

void writeProperties(JsonWriter& json, const Pegasus::CIMInstance& instance) {
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const Pegasus::CIMConstProperty property = instance.getProperty(i);
        json.key(wire::toUtf8(property.getName().getString()));
        writeValue(json, property.getValue());
    }
}

void writeInstances(JsonWriter& json, const Pegasus::Array<Pegasus::CIMInstance>& instances) {
    json.beginArray();
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        json.beginObject();
        writeProperties(json, instances[i]);
        json.endObject();
    }
    json.endArray();
}

}  // namespace usbhcdiag
