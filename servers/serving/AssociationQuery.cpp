// SPDX-License-Identifier: MIT
#include "servers/serving/AssociationQuery.h"

#include <set>

#include <Pegasus/Common/CIMProperty.h>

#include "servers/serving/PathForms.h"

using namespace Pegasus;

namespace serving {

namespace {

/// The path that a property refers to, or a null path where it is no reference or refers to
/// nothing.
CIMObjectPath referenceIn(const CIMConstProperty& property) {
    CIMObjectPath path;
    if (property.getType() == CIMTYPE_REFERENCE && !property.isArray() &&
        !property.getValue().isNull()) {
        property.getValue().get(path);
    }
    return path;
}

/// Position of the property in which the association refers to the object, or PEG_NOT_FOUND.
Uint32 findObjectEnd(const CIMInstance& association, const CIMObjectPath& canonicalObject,
                     const String& role) {
    for (Uint32 i = 0; i < association.getPropertyCount(); i++) {
        const CIMConstProperty property = association.getProperty(i);
        if (!roleFits(role, property.getName())) {
            continue;
        }
        const CIMObjectPath path = referenceIn(property);
        if (!path.getClassName().isNull() && canonicalPath(path) == canonicalObject) {
            return i;
        }
    }
    return PEG_NOT_FOUND;
}

}  // namespace

bool roleFits(const String& wanted, const CIMName& role) {
    return wanted.size() == 0 || String::equalNoCase(wanted, role.getString());
}

Array<CIMInstance> referringInstances(const Array<CIMInstance>& associations,
                                      const AssociationQuery& query) {
    const CIMObjectPath object = canonicalPath(query.object);
    Array<CIMInstance> referring;
    for (Uint32 i = 0; i < associations.size(); i++) {
        if (findObjectEnd(associations[i], object, query.role) != PEG_NOT_FOUND) {
            referring.append(associations[i]);
        }
    }
    return referring;
}

Array<CIMObjectPath> associatedPaths(const Array<CIMInstance>& associations,
                                     const AssociationQuery& query) {
    const CIMObjectPath object = canonicalPath(query.object);
    Array<CIMObjectPath> associated;
    std::set<String> seen;
    for (Uint32 i = 0; i < associations.size(); i++) {
        const CIMInstance& association = associations[i];
        const Uint32 objectEnd = findObjectEnd(association, object, query.role);
        if (objectEnd == PEG_NOT_FOUND) {
            continue;
        }
        for (Uint32 end = 0; end < association.getPropertyCount(); end++) {
            const CIMConstProperty property = association.getProperty(end);
            if (end == objectEnd || !roleFits(query.resultRole, property.getName())) {
                continue;
            }
            const CIMObjectPath path = referenceIn(property);
            const bool wanted = !path.getClassName().isNull() &&
                                (!query.isResultClass || query.isResultClass(path.getClassName()));
            if (wanted && seen.insert(path.toString()).second) {
                associated.append(path);
            }
        }
    }
    return associated;
}

}  // namespace serving
