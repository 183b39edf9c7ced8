// SPDX-License-Identifier: MIT
#include "diag/InstanceProperties.h"

#include <Pegasus/Provider/ProviderExceptions.h>

namespace Pegasus {
namespace {

Uint32 positionOf(const CIMInstance& instance, const CIMName& name) {
    const Uint32 position = instance.findProperty(name);
    if (position == PEG_NOT_FOUND) {
        throw NoSuchProperty(name.getString());
    }
    return position;
}

}  // namespace

bool hasProperties(const CIMInstance& instance) {
    return !instance.isUninitialized() && instance.getPropertyCount() > 0;
}

CIMName toPropertyName(const String& text) {
    if (!CIMName::legal(text)) {
        throw NoSuchProperty(text);
    }
    return CIMName(text);
}

CIMProperty propertyOf(CIMInstance& instance, const CIMName& name) {
    return instance.getProperty(positionOf(instance, name));
}

CIMValue propertyValueOf(const CIMInstance& instance, const CIMName& name) {
    return instance.getProperty(positionOf(instance, name)).getValue();
}

bool hasPropertyValue(const CIMInstance& instance, const CIMName& name, const CIMValue& value) {
    return instance.getProperty(positionOf(instance, name)).getValue() == value;
}

void addProperty(CIMInstance& instance, const CIMName& name, const CIMValue& value) {
    instance.addProperty(CIMProperty(name, value));
}

}  // namespace Pegasus
