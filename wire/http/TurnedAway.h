// SPDX-License-Identifier: MIT
// Clients that find no place at a server.
#pragma once

#include <poll.h>

#include <cstddef>
#include <list>
#include <vector>

#include "base/FileDescriptor.h"
#include "wire/http/SocketStream.h"

namespace wire {

/// Clients beyond a server's limit, until they have taken note of it: each gets its answer, and is given up
/// when it closes, after a second, or when 64 newer ones wait. One thread at a time.
class TurnedAway {
public:
    /// Answers a client that has connected, without waiting for it. Throws std::bad_alloc; the client is then
    /// given up.
    void add(base::FileDescriptor client);

    /// Adds what poll() is to wait for.
    void appendTo(std::vector<pollfd>& polled) const;

    /// Milliseconds until the next has waited long enough; -1 if there is none.
    int patience() const;

    /// Drops what clients still send, and lets go of those that closed or have waited long enough.
    void look();

private:
    static constexpr std::size_t mostWaiting = 64;

    struct Client {
        base::FileDescriptor socket;
        SocketStream::Clock::time_point until;
    };

    std::list<Client> clients_;
};

}  // namespace wire
