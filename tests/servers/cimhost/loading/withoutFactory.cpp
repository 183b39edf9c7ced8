// SPDX-License-Identifier: MIT
// A library that is no provider library.
extern "C" int somethingElse() {
    return 0;
}
