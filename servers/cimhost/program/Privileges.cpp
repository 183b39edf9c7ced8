// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/Privileges.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "servers/cimhost/program/SystemCallFilter.h"

namespace cimhost {
namespace {

// Without libcap, which brings more than these two calls.
using Capabilities = std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3>;

long callWithCapabilities(long call, Capabilities& capabilities) {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    return ::syscall(call, &header, capabilities.data());
}

bool hasCapabilities() {
    Capabilities capabilities = {};
    return callWithCapabilities(SYS_capget, capabilities) != 0 ||
           std::any_of(capabilities.begin(), capabilities.end(), [](const auto& half) {
               return (half.effective | half.permitted | half.inheritable) != 0;
           });
}

bool dropCapabilities() {
    // First the bounding set, which takes a capability to change; without it there is no need to.
    for (unsigned long capability = 0; ::prctl(PR_CAPBSET_DROP, capability, 0, 0, 0) == 0;
         ++capability) {
    }
    // Where there is nothing to give up, somebody may have forbidden the call: a unit of systemd does.
    Capabilities none = {};
    return !hasCapabilities() || callWithCapabilities(SYS_capset, none) == 0;
}

}  // namespace

std::vector<std::string> giveUpPrivileges() {
    std::vector<std::string> failures;
    const auto expect = [&failures](bool done, const char* what) {
        if (!done) {
            failures.push_back(std::string(what) + ": " + std::strerror(errno));
        }
    };
    expect(dropCapabilities(), "capabilities cannot be given up");
    expect(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0, "no_new_privs cannot be set");
    expect(filterSystemCalls(), "system calls cannot be filtered");
    return failures;
}

}  // namespace cimhost
