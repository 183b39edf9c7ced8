// SPDX-License-Identifier: MIT
// Class definitions from CIM-XML: what a client of the server under test would read.
#pragma once

#include "wire/cimxml/ClassDefinition.h"
#include "wire/cimxml/XmlDocument.h"

/// The definition in a CLASS element. Throws wire::XmlError.
wire::ClassDefinition readClass(wire::XmlElement element);
