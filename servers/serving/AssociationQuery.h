// SPDX-License-Identifier: MIT
// Following associations: from the instances of an association class to what they tie together.
//
// Functions without state; any thread may call them.
#pragma once

#include <functional>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

namespace serving {

/// Where to start and which ends count. Role names are compared ignoring case; an empty one admits
/// every role.
struct AssociationQuery {
    /// The object whose associations are asked for, with or without host and namespace.
    Pegasus::CIMObjectPath object;
    /// The property of the association in which the object must stand.
    Pegasus::String role;
    /// The property in which the other object must stand; only associatedPaths() asks.
    Pegasus::String resultRole;
    /// Whether an object of this class is wanted at the other end; unset admits every class. Only
    /// associatedPaths() asks.
    std::function<bool(const Pegasus::CIMName& className)> isResultClass;
};

/// Whether a property of that name is in the role that is asked for.
bool roleFits(const Pegasus::String& wanted, const Pegasus::CIMName& role);

/// Those of the association instances that refer to the query's object in the query's role.
Pegasus::Array<Pegasus::CIMInstance> referringInstances(
    const Pegasus::Array<Pegasus::CIMInstance>& associations, const AssociationQuery& query);

/// The objects that the association instances tie to the query's object, each once, in the order
/// of the instances.
Pegasus::Array<Pegasus::CIMObjectPath> associatedPaths(
    const Pegasus::Array<Pegasus::CIMInstance>& associations, const AssociationQuery& query);

}  // namespace serving
