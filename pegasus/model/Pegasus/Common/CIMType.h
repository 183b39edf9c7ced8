// SPDX-License-Identifier: MIT
// The types of CIM values.
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// The type of a value, or of the elements of an array value.
enum CIMType {
    CIMTYPE_BOOLEAN,
    CIMTYPE_UINT8,
    CIMTYPE_SINT8,
    CIMTYPE_UINT16,
    CIMTYPE_SINT16,
    CIMTYPE_UINT32,
    CIMTYPE_SINT32,
    CIMTYPE_UINT64,
    CIMTYPE_SINT64,
    CIMTYPE_REAL32,
    CIMTYPE_REAL64,
    CIMTYPE_CHAR16,
    CIMTYPE_STRING,
    CIMTYPE_DATETIME,
    CIMTYPE_REFERENCE,
    CIMTYPE_OBJECT,
    CIMTYPE_INSTANCE
};

/// The name of a type in CIM, for example "uint16"; "unknown" for any other number. Any thread may
/// call it.
const char* cimTypeToString(CIMType type);

}  // namespace Pegasus
