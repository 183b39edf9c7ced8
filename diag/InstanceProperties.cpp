// SPDX-License-Identifier: MIT
// Reading and building the properties of instances.
#include "diag/InstanceProperties.h"

#include <Pegasus/Provider/ProviderExceptions.h>

namespace Pegasus {
namespace {

Uint32 positionOf(const CIMInstance& instance, const String& name) {
    // A text that is no legal name would be refused by the name's constructor; no property has it.
    const Uint32 position =
        CIMName::legal(name) ? instance.findProperty(CIMName(name)) : PEG_NOT_FOUND;
    if (position == PEG_NOT_FOUND) {
        throw NoSuchProperty(name);
    }
    return position;
}

}  // namespace

bool hasProperties(const CIMInstance& instance) {
    return !instance.isUninitialized() && instance.getPropertyCount() > 0;
}

CIMProperty propertyOf(CIMInstance& instance, const String& name) {
    return instance.getProperty(positionOf(instance, name));
}

CIMValue propertyValueOf(const CIMInstance& instance, const String& name) {
    return instance.getProperty(positionOf(instance, name)).getValue();
}

void addProperty(CIMInstance& instance, const char* name, const CIMValue& value) {
    instance.addProperty(CIMProperty(CIMName(name), value));
}

}  // namespace Pegasus
