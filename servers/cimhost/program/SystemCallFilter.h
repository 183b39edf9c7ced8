// SPDX-License-Identifier: MIT
// The system calls that cimhost does without.
#pragma once

// Whether this is a build with AddressSanitizer: clang says it with __has_feature, g++ with a macro.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZORVA_LEAK_CHECK
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define ZORVA_LEAK_CHECK
#endif

namespace cimhost {

/// Has the kernel refuse (seccomp) what cimhost never does, but somebody who got hold of it might:
/// start or trace programs, mount, make namespaces, load code into the kernel, set the clock,
/// make sockets of other families than IPv4, IPv6 and the diagnosis of sockets. They fail with EPERM,
/// such sockets with EAFNOSUPPORT, calls that are newer than this list with ENOSYS, as on a kernel
/// that does not have them.
///
/// A build with AddressSanitizer keeps tracing and starting programs, which its leak check needs.
///
/// Returns whether the filter holds; errno says why not (ENOTSUP: not known for this processor). The
/// process must have no_new_privs set. Holds for the calling thread and those that it starts.
bool filterSystemCalls();

}  // namespace cimhost
