// SPDX-License-Identifier: MIT
// The refusal of a request that waited too long for the provider.
#pragma once

#include <Pegasus/Common/Exception.h>

namespace serving {

/// A request was given up because the provider is still at work on it or on one before it. What it
/// has begun goes on by itself; the code of the library must stay in memory for it.
class ProviderBusy : public Pegasus::CIMException {
public:
    explicit ProviderBusy(
        const char* message = "the provider is still at work on an earlier request")
        : CIMException(Pegasus::CIM_ERR_FAILED, Pegasus::String(message)) {}
};

}  // namespace serving
