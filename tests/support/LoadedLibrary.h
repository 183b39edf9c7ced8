// SPDX-License-Identifier: MIT
// Loads the provider library as a server does.
#pragma once

#include <dlfcn.h>

#include <stdexcept>
#include <string>

#include <Pegasus/Provider/CIMBaseProvider.h>

#include "contract/Names.h"

/// Loads the library at the path as OpenPegasus does (its symbols global) and unloads it when
/// destroyed. Provider objects, and exceptions that they threw, must be destroyed before. Throws
/// std::runtime_error if the library or its factory cannot be loaded.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const char* path) : library_(dlopen(path, RTLD_NOW | RTLD_GLOBAL)) {
        if (library_ == nullptr) {
            throw std::runtime_error(dlerror());
        }
        create_ = reinterpret_cast<Create>(dlsym(library_, "PegasusCreateProvider"));
        if (create_ == nullptr) {
            throw std::runtime_error(dlerror());
        }
    }
    ~LoadedLibrary() { dlclose(library_); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    Pegasus::CIMProvider* create(const char* name = contract::provider) const {
        return create_(name);
    }

private:
    using Create = Pegasus::CIMProvider* (*)(const Pegasus::String&);

    void* library_;
    Create create_ = nullptr;
};
