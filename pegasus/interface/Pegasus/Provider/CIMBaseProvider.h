// SPDX-License-Identifier: MIT
// What every provider is to its server: something to initialize, to terminate and to delete.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

namespace Pegasus {
inline namespace provider_interface {

/// Base of all providers. The server calls initialize() once before any other operation and
/// terminate() once after the last, then deletes the object; none of these overlap.
class CIMBaseProvider {
public:
    CIMBaseProvider() = default;
    CIMBaseProvider(const CIMBaseProvider&) = delete;
    CIMBaseProvider& operator=(const CIMBaseProvider&) = delete;
    virtual ~CIMBaseProvider() = default;

    /// Hands over the handle through which the provider may call the server from now on.
    virtual void initialize(CIMOMHandle& cimom) = 0;

    /// Tells the provider that no further operation follows.
    virtual void terminate() = 0;
};

/// The name under which the library's factory returns a provider.
using CIMProvider = CIMBaseProvider;

}  // namespace provider_interface
}  // namespace Pegasus
