// SPDX-License-Identifier: MIT
// An exception of the object model that is not in the OpenPegasus SDK: sources that must compile
// with both catch it as Exception.
#pragma once

#include <Pegasus/Common/Exception.h>

namespace Pegasus {

/// An argument that must be a text is a null pointer.
class NullPointer : public Exception {
public:
    NullPointer();
};

}  // namespace Pegasus
