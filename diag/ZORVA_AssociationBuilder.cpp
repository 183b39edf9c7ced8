// SPDX-License-Identifier: MIT
// The default roles are defined in usbhc/RoleReferences.cpp, since they name classes of the test.
#include "diag/ZORVA_AssociationBuilder.h"

#include <Pegasus/Provider/KeyBinding.h>

#include "diag/PathKeys.h"

namespace Pegasus {

ZORVA_AssociationBuilder::ZORVA_AssociationBuilder(CIMOMHandle& handle, String associationClass,
                                                   String role1Property, String role2Property,
                                                   String role1ReferenceClass,
                                                   String role2ReferenceClass) {
    describe(handle, associationClass, role1Property, role2Property, role1ReferenceClass,
             role2ReferenceClass);
    const Array<CIMObjectPath> role1 = ZORVA_AssociationBuilder::getRole1References();
    const Array<CIMObjectPath> role2 = ZORVA_AssociationBuilder::getRole2References();
    associations_ = ZORVA_AssociationBuilder::getAssociations(role1, role2);
}

ZORVA_AssociationBuilder::~ZORVA_AssociationBuilder() = default;

void ZORVA_AssociationBuilder::describe(CIMOMHandle& handle, const String& associationClass,
                                        const String& role1Property, const String& role2Property,
                                        const String& role1ReferenceClass,
                                        const String& role2ReferenceClass) {
    handle_ = handle;
    associationClass_ = associationClass;
    role1Property_ = role1Property;
    role2Property_ = role2Property;
    role1ReferenceClass_ = role1ReferenceClass;
    role2ReferenceClass_ = role2ReferenceClass;
}

Array<Pair<CIMObjectPath, CIMInstance>> ZORVA_AssociationBuilder::getAssociations(
    Array<CIMObjectPath> role1, Array<CIMObjectPath> role2) {
    const Array<CIMObjectPath>& role1Paths = role1;
    const Array<CIMObjectPath>& role2Paths = role2;
    InstanceTable table;
    for (Uint32 i = 0; i < role2Paths.size(); ++i) {
        for (Uint32 j = 0; j < role1Paths.size(); ++j) {
            appendAssociation(table, role1Paths[j], role2Paths[i]);
        }
    }
    return table;
}

Array<Pair<CIMObjectPath, CIMInstance>> ZORVA_AssociationBuilder::getAssociations(
    Array<CIMObjectPath> role1, Array<CIMObjectPath> role2, String role1KeyName,
    String role2KeyName) {
    const Array<CIMObjectPath>& role1Paths = role1;
    const Array<CIMObjectPath>& role2Paths = role2;
    InstanceTable table;
    // Declared outside the loops on purpose: a path without the key inherits the previous value.
    String role1KeyValue;
    String role2KeyValue;
    for (Uint32 i = 0; i < role2Paths.size(); ++i) {
        readLastKeyValue(role2Paths[i], role2KeyName, role2KeyValue);
        for (Uint32 j = 0; j < role1Paths.size(); ++j) {
            readLastKeyValue(role1Paths[j], role1KeyName, role1KeyValue);
            if (String::equalNoCase(role1KeyValue, role2KeyValue)) {
                appendAssociation(table, role1Paths[j], role2Paths[i]);
            }
        }
    }
    return table;
}

void ZORVA_AssociationBuilder::appendAssociation(InstanceTable& table, const CIMObjectPath& role1,
                                                 const CIMObjectPath& role2) const {
    const CIMName className(associationClass_);
    const CIMName role1Property(role1Property_);
    const CIMName role2Property(role2Property_);
    CIMInstance instance(className);
    instance.addProperty(
        CIMProperty(role2Property, CIMValue(role2), 0, CIMName(role2ReferenceClass_)));
    instance.addProperty(
        CIMProperty(role1Property, CIMValue(role1), 0, CIMName(role1ReferenceClass_)));

    Array<KeyBinding> keys;
    keys.append(KeyBinding(role1Property, role1.toString(), KeyBinding::STRING));
    keys.append(KeyBinding(role2Property, role2.toString(), KeyBinding::STRING));
    appendTo(table, tablePath(className, keys), instance);
}

Array<CIMInstance> ZORVA_AssociationBuilder::getAssocInstance(CIMObjectPath reference) {
    return cloneOfInstance(associations_, reference);
}

Array<CIMInstance> ZORVA_AssociationBuilder::enumAssocInstances() {
    return clonesOfInstances(associations_);
}

Array<CIMObjectPath> ZORVA_AssociationBuilder::enumAssocReferences() {
    return copiesOfPaths(associations_);
}

}  // namespace Pegasus
