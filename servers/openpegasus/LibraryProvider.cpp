// SPDX-License-Identifier: MIT
#include "servers/openpegasus/LibraryProvider.h"

#include <utility>

#include <Pegasus/Provider/CIMBaseProvider.h>

using namespace Pegasus;

// The library's factory. In this build the build system gives it another name than the one written
// here and in the library, since that name is the adapter's, which the server looks up.
extern "C" CIMProvider* PegasusCreateProvider(const String& providerName);

namespace openpegasus {

namespace {

/// One set for the loaded library, whichever of its provider objects a request is for: what they
/// protect lives in the library, not in the object.
serving::ProviderLocks libraryLocks;

}  // namespace

std::unique_ptr<LibraryProvider> LibraryProvider::create(const String& providerName) {
    std::unique_ptr<CIMBaseProvider> provider(PegasusCreateProvider(providerName));
    if (!provider) {
        return nullptr;
    }
    return std::unique_ptr<LibraryProvider>(new LibraryProvider(std::move(provider)));
}

LibraryProvider::LibraryProvider(std::unique_ptr<CIMBaseProvider> provider)
    : provider_(std::move(provider)) {}

LibraryProvider::~LibraryProvider() = default;

std::unique_ptr<serving::ServedProvider> LibraryProvider::serve(
    std::shared_ptr<CIMOMConnection> server) {
    return std::make_unique<serving::ServedProvider>(std::move(provider_), libraryLocks,
                                                     std::move(server));
}

}  // namespace openpegasus
