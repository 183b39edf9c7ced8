// SPDX-License-Identifier: MIT
// A connection whose other end has said all that it will say, so that no second thread has to say it.
// One thread.
#pragma once

#include <sys/socket.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "base/FileDescriptor.h"

/// Two connected sockets. What is said into the one is there for whoever reads the other, up to what the system
/// buffers; then the connection ends in this direction.
class Conversation {
public:
    explicit Conversation(std::string_view said) {
        int ends[2] = {};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
            std::abort();
        }
        near_ = base::FileDescriptor(ends[0]);
        far_ = base::FileDescriptor(ends[1]);
        constexpr int plenty = 4 * 1024 * 1024;
        for (const int end : ends) {
            // The system gives as much of it as it allows.
            setsockopt(end, SOL_SOCKET, SO_SNDBUF, &plenty, sizeof plenty);
        }
        send(near_.get(), said.data(), said.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        shutdown(near_.get(), SHUT_WR);
    }

    /// The end that reads what was said; for whoever takes it over.
    base::FileDescriptor takeOtherEnd() { return std::move(far_); }

    /// What the other end has said so far.
    std::string heard() const {
        std::string all;
        char part[4096];
        ssize_t count = 0;
        while ((count = recv(near_.get(), part, sizeof part, MSG_DONTWAIT)) > 0) {
            all.append(part, static_cast<std::size_t>(count));
        }
        return all;
    }

private:
    base::FileDescriptor near_;
    base::FileDescriptor far_;
};
