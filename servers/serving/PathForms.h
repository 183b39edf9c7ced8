// SPDX-License-Identifier: MIT
// Object paths reach a server in several spellings; these functions tell which mean the same
// object.
//
// Functions without state; any thread may call them.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>

namespace serving {

/// The path without host and namespace, its keys untouched.
Pegasus::CIMObjectPath withoutLocation(const Pegasus::CIMObjectPath& path);

/// The one spelling that all spellings of a path share: no host, no namespace, and every key whose
/// text is itself a path (typed as a reference or, as association instances carry it, as a string)
/// rewritten as a reference in this same spelling, paths within paths up to eight levels deep.
Pegasus::CIMObjectPath canonicalPath(const Pegasus::CIMObjectPath& path);

/// Whether some key of the path holds the text of another path, so that it has several spellings.
bool hasPathKey(const Pegasus::CIMObjectPath& path);

/// The parameters with the namespace filled into every reference, or element of an array of
/// references, that names neither host nor namespace: clients leave it out when the object lies in
/// the namespace of the request. The given parameters are not changed.
Pegasus::Array<Pegasus::CIMParamValue> withNamespaceInReferences(
    const Pegasus::Array<Pegasus::CIMParamValue>& parameters,
    const Pegasus::CIMNamespaceName& nameSpace);

}  // namespace serving
