// SPDX-License-Identifier: MIT
// What the tables of tests, results and associations have in common.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Provider/Pair.h>

namespace Pegasus {

/// Instances with their paths, in the order in which they were made. The paths carry neither host
/// nor namespace.
using InstanceTable = Array<Pair<CIMObjectPath, CIMInstance>>;

/// A path as the tables hold it: of that class and with those keys alone.
CIMObjectPath tablePath(const CIMName& className, const Array<CIMKeyBinding>& keys);

/// Appends an instance, which from then on carries its path.
void appendTo(InstanceTable& table, const CIMObjectPath& path, CIMInstance& instance);

/// The position of the first entry with the class name and the keys of `path`, whose host and
/// namespace do not count; PEG_NOT_FOUND if there is none.
Uint32 findPath(const InstanceTable& table, const CIMObjectPath& path);

// What leaves a table is a copy of its own. Copies of a CIMInstance share their properties and
// path, and the server writes into what it is handed while the next request changes the table.

/// A copy of one entry's instance, as an array of one.
Array<CIMInstance> copyOfInstance(const InstanceTable& table, Uint32 index);

/// Copies of all instances in table order.
Array<CIMInstance> copiesOfInstances(const InstanceTable& table);

/// All paths in table order.
Array<CIMObjectPath> copiesOfPaths(const InstanceTable& table);

}  // namespace Pegasus
