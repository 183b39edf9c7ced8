// SPDX-License-Identifier: MIT
// The basic types of the object model and the macros that sources written for OpenPegasus use.
#pragma once

#define PEGASUS_NAMESPACE_BEGIN namespace Pegasus {
#define PEGASUS_NAMESPACE_END }
#define PEGASUS_USING_PEGASUS using namespace Pegasus
#define PEGASUS_USING_STD using namespace std
/// Marks a symbol that a library exports.
#define PEGASUS_EXPORT __attribute__((visibility("default")))

namespace Pegasus {

using Boolean = bool;
using Uint8 = unsigned char;
using Sint8 = signed char;
using Uint16 = unsigned short;
using Sint16 = signed short;
using Uint32 = unsigned int;
using Sint32 = signed int;
using Uint64 = unsigned long long;
using Sint64 = signed long long;
using Real32 = float;
using Real64 = double;

}  // namespace Pegasus

/// The index that searches return if there is no match.
#define PEG_NOT_FOUND Pegasus::Uint32(-1)
