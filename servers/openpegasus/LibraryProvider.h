// SPDX-License-Identifier: MIT
// The provider library as the adapter sees it.
#pragma once

#include <memory>

#include "servers/serving/ServedProvider.h"

namespace openpegasus {

/// A provider object fresh from the library's factory, not yet initialized.
///
/// The library and OpenPegasus name their provider classes alike, so no unit can see both; this
/// header names object-model types only and either side can include it.
class LibraryProvider {
public:
    /// Asks the library's factory; null if the library has no provider of that name.
    static std::unique_ptr<LibraryProvider> create(const Pegasus::String& providerName);

    LibraryProvider(const LibraryProvider&) = delete;
    LibraryProvider& operator=(const LibraryProvider&) = delete;
    ~LibraryProvider();

    /// Initializes the provider and hands it over. To be called once, by any thread.
    std::unique_ptr<serving::ServedProvider> serve(
        std::shared_ptr<Pegasus::CIMOMConnection> server);

private:
    explicit LibraryProvider(std::unique_ptr<Pegasus::CIMBaseProvider> provider);

    std::unique_ptr<Pegasus::CIMBaseProvider> provider_;
};

}  // namespace openpegasus
