// SPDX-License-Identifier: MIT
// The table of instances that tests, results and associations are kept in.
// One thread at a time may use a table.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Provider/Pair.h>

namespace Pegasus {

/// Instances with their paths, in the order of insertion. The paths have neither host nor
/// namespace.
using InstanceTable = Array<Pair<CIMObjectPath, CIMInstance>>;

/// A path in the form that the tables hold: class name and keys only.
CIMObjectPath tablePath(const CIMName& className, const Array<CIMKeyBinding>& keys);

/// Appends an instance and sets its path.
void appendTo(InstanceTable& table, const CIMObjectPath& path, CIMInstance& instance);

/// The index of the first entry with the class name and the keys of `path`, or PEG_NOT_FOUND. Host
/// and namespace of `path` are ignored.
Uint32 findPath(const InstanceTable& table, const CIMObjectPath& path);

// Instances that leave a table are clones: copies of a CIMInstance share their properties and path,
// and the server writes into what it receives while the next request changes the table.

/// A clone of one entry's instance, as an array of one. Throws IndexOutOfBoundsException.
Array<CIMInstance> cloneOfInstance(const InstanceTable& table, Uint32 index);

/// The same of the entry with that path. Throws BadReference "Invalid Reference" if there is none.
Array<CIMInstance> cloneOfInstance(const InstanceTable& table, const CIMObjectPath& path);

/// Clones of all instances in table order.
Array<CIMInstance> clonesOfInstances(const InstanceTable& table);

/// All paths in table order.
Array<CIMObjectPath> copiesOfPaths(const InstanceTable& table);

}  // namespace Pegasus
