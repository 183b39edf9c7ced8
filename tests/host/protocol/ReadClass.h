// SPDX-License-Identifier: MIT
// Class definitions from CIM-XML: what a client of the server under test would read.
#pragma once

#include "host/cimxml/XmlDocument.h"
#include "host/schema/ClassDefinition.h"

/// The definition in a CLASS element. Throws cimhost::XmlError.
cimhost::ClassDefinition readClass(cimhost::XmlElement element);
