// SPDX-License-Identifier: MIT
// A connection of which this process holds the accepted end, and another user may hold the other.
#pragma once

#include <netinet/in.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <stdexcept>
#include <thread>

#include "base/FileDescriptor.h"

namespace cimhost {

/// A user that is neither root nor the one who runs the tests.
constexpr uid_t otherUser = 54321;

/// Runs `action` where no connection can be made: in a network of its own, whose loopback is down.
/// Returns false if this user may not make one.
template <class Action>
bool withoutNetwork(Action action) {
    bool done = false;
    // The network is that of this thread alone.
    std::thread([&] {
        if (unshare(CLONE_NEWNET) == 0) {
            action();
            done = true;
        }
    }).join();
    return done;
}

class LocalConnection {
public:
    /// Listens at 127.0.0.1, or at ::1. Throws std::runtime_error if it cannot.
    explicit LocalConnection(int family = AF_INET)
        : family_(family), listening_(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        listen();
    }

    /// Connects with a socket of this user: one of the listening one's family or, to 127.0.0.1, an
    /// IPv6 one (mapped).
    void connectOwn() { connectOwn(family_); }
    void connectOwn(int family) {
        other_ = connected(family);
        accept();
    }

    /// Connects with a socket that a child process made as `otherUser`, which holds it until the
    /// end of this object. Only for root.
    void connectAsOtherUser() {
        int ready[2] = {};
        int hold[2] = {};
        if (pipe(ready) != 0 || pipe(hold) != 0) {
            throw std::runtime_error("no pipe");
        }
        child_ = fork();
        if (child_ == 0) {
            close(hold[1]);
            const bool changed = setresuid(otherUser, otherUser, otherUser) == 0;
            const base::FileDescriptor own = connected(family_);
            char byte = changed && own.isOpen() ? 'y' : 'n';
            static_cast<void>(write(ready[1], &byte, 1));
            static_cast<void>(read(hold[0], &byte, 1));
            _exit(0);
        }
        close(hold[0]);
        close(ready[1]);
        hold_ = base::FileDescriptor(hold[1]);
        const base::FileDescriptor told(ready[0]);
        char byte = 'n';
        if (read(told.get(), &byte, 1) != 1 || byte != 'y') {
            throw std::runtime_error("no connection of another user");
        }
        accept();
    }

    ~LocalConnection() {
        hold_.close();
        if (child_ > 0) {
            waitpid(child_, nullptr, 0);
        }
    }
    LocalConnection(const LocalConnection&) = delete;
    LocalConnection& operator=(const LocalConnection&) = delete;

    int accepted() const { return accepted_.get(); }
    base::FileDescriptor& other() { return other_; }

private:
    void listen() {
        if (family_ == AF_INET) {
            auto* const address = reinterpret_cast<sockaddr_in*>(&address_);
            address->sin_family = AF_INET;
            address->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        } else {
            auto* const address = reinterpret_cast<sockaddr_in6*>(&address_);
            address->sin6_family = AF_INET6;
            address->sin6_addr = in6addr_loopback;
        }
        socklen_t size = sizeof address_;
        auto* const generic = reinterpret_cast<sockaddr*>(&address_);
        if (bind(listening_.get(), generic, size) != 0 || ::listen(listening_.get(), 1) != 0 ||
            getsockname(listening_.get(), generic, &size) != 0) {
            throw std::runtime_error("cannot listen");
        }
    }

    base::FileDescriptor connected(int family) const {
        base::FileDescriptor end(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_in6 mapped{};
        mapped.sin6_family = AF_INET6;
        mapped.sin6_port = reinterpret_cast<const sockaddr_in*>(&address_)->sin_port;
        mapped.sin6_addr.s6_addr[10] = 0xFF;
        mapped.sin6_addr.s6_addr[11] = 0xFF;
        mapped.sin6_addr.s6_addr[12] = 127;
        mapped.sin6_addr.s6_addr[15] = 1;
        const int result =
            family == family_
                ? connect(end.get(), reinterpret_cast<const sockaddr*>(&address_), sizeof address_)
                : connect(end.get(), reinterpret_cast<const sockaddr*>(&mapped), sizeof mapped);
        if (result != 0) {
            end.close();
        }
        return end;
    }

    void accept() {
        accepted_ = base::FileDescriptor(accept4(listening_.get(), nullptr, nullptr, SOCK_CLOEXEC));
    }

    int family_;
    sockaddr_storage address_{};
    base::FileDescriptor listening_;
    base::FileDescriptor other_;
    base::FileDescriptor accepted_;
    base::FileDescriptor hold_;
    pid_t child_ = -1;
};

/// One that listens at ::1; null on machines without IPv6.
inline std::unique_ptr<LocalConnection> ipv6Connection() {
    try {
        return std::make_unique<LocalConnection>(AF_INET6);
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

}  // namespace cimhost
