// SPDX-License-Identifier: MIT
// An exception that the object model throws but whose name OpenPegasus keeps out of its SDK:
// sources that are to compile against both catch it as Exception.
#pragma once

#include <Pegasus/Common/Exception.h>

namespace Pegasus {

/// A null pointer was handed in where a text is needed.
class NullPointer : public Exception {
public:
    NullPointer();
};

}  // namespace Pegasus
