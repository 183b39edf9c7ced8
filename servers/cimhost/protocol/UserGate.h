// SPDX-License-Identifier: MIT
// Which users of this machine are let in where nobody needs a password.
#pragma once

#include <sys/types.h>

#include <optional>

#include "servers/cimhost/protocol/RefusalCount.h"
#include "servers/cimhost/protocol/SocketOwners.h"
#include "wire/http/HttpMessage.h"

namespace cimhost {

/// Lets in the processes of this process' user and of root. Any number of threads may use it.
class UserGate {
public:
    /// See SocketOwners for when to make it. Throws std::runtime_error, which says what to do, if
    /// the kernel does not tell whose connections there are.
    UserGate();

    /// For wire::HttpGate: 403 with what to do for the clients of everybody else.
    std::optional<wire::HttpResponse> refusal(int socket) const;

private:
    const uid_t user_;
    const SocketOwners owners_;
    mutable RefusalCount refused_;
};

}  // namespace cimhost
