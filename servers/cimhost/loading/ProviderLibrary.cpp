// SPDX-License-Identifier: MIT
#include "servers/cimhost/loading/ProviderLibrary.h"

#include <dlfcn.h>

namespace cimhost {

namespace {

constexpr const char* factoryName = "PegasusCreateProvider";

}  // namespace

ProviderLibrary::ProviderLibrary(const std::string& path) : path_(path) {
    // A bare name would be searched for in the system's directories; a file is meant.
    const std::string file = path.find('/') == std::string::npos ? "./" + path : path;
    handle_ = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr) {
        throw ProviderLibraryError("cannot load the provider library: " + std::string(::dlerror()));
    }
    factory_ = reinterpret_cast<Factory>(::dlsym(handle_, factoryName));
    if (factory_ == nullptr) {
        ::dlclose(handle_);
        throw ProviderLibraryError(path + " is no provider library: it has no function " +
                                   factoryName);
    }
}

ProviderLibrary::~ProviderLibrary() {
    ::dlclose(handle_);
}

std::unique_ptr<Pegasus::CIMBaseProvider> ProviderLibrary::createProvider(
    const std::string& name) const {
    std::unique_ptr<Pegasus::CIMBaseProvider> provider(factory_(Pegasus::String(name.c_str())));
    if (provider == nullptr) {
        throw ProviderLibraryError(path_ + " has no provider named " + name);
    }
    return provider;
}

}  // namespace cimhost
