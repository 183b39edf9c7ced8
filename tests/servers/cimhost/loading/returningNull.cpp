// SPDX-License-Identifier: MIT
// A provider library that knows no provider.
extern "C" void* PegasusCreateProvider(const void* /*name*/) {
    return nullptr;
}
