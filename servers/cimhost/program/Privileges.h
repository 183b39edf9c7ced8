// SPDX-License-Identifier: MIT
// What cimhost may do once it serves: no more than it needs.
#pragma once

#include <string>
#include <vector>

namespace cimhost {

/// Gives up, for good, what a server that only answers on loopback does not need: every capability, the
/// way to new privileges through programs (no_new_privs), and the system calls that
/// filterSystemCalls() refuses.
///
/// Returns what the kernel did not let go of or does not know, a text for each, to be shown as a
/// warning; none on kernels since 3.5 that are built with seccomp. Whatever fails, the rest is done.
///
/// Holds for the calling thread and those that it starts: call it before there are others.
std::vector<std::string> giveUpPrivileges();

}  // namespace cimhost
