// SPDX-License-Identifier: MIT
// The provider library, loaded as a CIM server loads it.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include <Pegasus/Provider/CIMBaseProvider.h>

namespace cimhost {

/// A library that is no use as a provider; the text names the file and what is wrong with it.
class ProviderLibraryError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A loaded provider library. One thread uses it at a time.
class ProviderLibrary {
public:
    /// Loads the library and finds its factory, PegasusCreateProvider. Throws ProviderLibraryError.
    explicit ProviderLibrary(const std::string& path);
    ProviderLibrary(const ProviderLibrary&) = delete;
    ProviderLibrary& operator=(const ProviderLibrary&) = delete;

    /// Unloads the library; nothing made by it may be left.
    ~ProviderLibrary();

    /// A new provider of that name. Throws ProviderLibraryError where the library has none.
    std::unique_ptr<Pegasus::CIMBaseProvider> createProvider(const std::string& name) const;

private:
    using Factory = Pegasus::CIMProvider* (*)(const Pegasus::String& name);

    std::string path_;
    void* handle_ = nullptr;
    Factory factory_ = nullptr;
};

}  // namespace cimhost
