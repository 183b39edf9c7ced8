// SPDX-License-Identifier: MIT
// A provider library that knows no provider.
extern "C" __attribute__((visibility("default"))) void* PegasusCreateProvider(
    const void* /*name*/) {
    return nullptr;
}
