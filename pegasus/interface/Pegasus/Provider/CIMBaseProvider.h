// SPDX-License-Identifier: MIT
// The interface that all providers share: their life cycle.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {
inline namespace provider_interface {

/// Base of all providers. The server calls initialize() once before any other operation and
/// terminate() once after the last, then deletes the object. These calls come from any thread, but
/// do not overlap with other calls.
class CIMBaseProvider {
public:
    CIMBaseProvider() = default;
    CIMBaseProvider(const CIMBaseProvider&) = delete;
    CIMBaseProvider& operator=(const CIMBaseProvider&) = delete;
    virtual ~CIMBaseProvider() = default;

    /// Gives the provider the handle for calls back into the server. It may be copied.
    virtual void initialize(CIMOMHandle& cimom) = 0;

    /// Tells the provider that no further operations follow.
    virtual void terminate() = 0;
};

/// The type of providers that the factory of a library returns.
using CIMProvider = CIMBaseProvider;

}  // namespace provider_interface
}  // namespace Pegasus
