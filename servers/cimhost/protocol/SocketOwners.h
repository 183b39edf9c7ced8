// SPDX-License-Identifier: MIT
// Whose sockets are at the other ends of connections.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>

#include "base/FileDescriptor.h"
#include "base/ThreadSafety.h"

namespace cimhost {

/// Asks the kernel, by its sock_diag interface, which user made a socket. Any number of threads may
/// ask; one at a time is answered.
class SocketOwners {
public:
    /// To be made before the process enters a user namespace: users are told as they are called in
    /// the one in which this object was made. Throws std::runtime_error with the reason if the
    /// kernel does not tell them.
    SocketOwners();

    /// The user who made the socket that `connected`, a TCP socket, is connected to. Absent if the
    /// kernel does not know any more, because the other end was closed, or does not tell.
    std::optional<uid_t> ownerOfPeer(int connected) const;

private:
    void tryOut() const;

    base::FileDescriptor kernel_;
    mutable base::Mutex mutex_;
    mutable std::uint32_t question_ ZORVA_GUARDED_BY(mutex_) = 0;
};

}  // namespace cimhost
