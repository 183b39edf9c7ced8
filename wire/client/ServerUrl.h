// SPDX-License-Identifier: MIT
// Where a CIM server is, as people write it.
//
// Plain values: one thread at a time may change one, any number may read it.
#pragma once

#include <cstdint>
#include <string>

namespace wire {

/// http://[user:password@]host[:port][/]
struct ServerUrl {
    /// Percent-encoding in user and password is undone; the port is 5988 if none is given; an
    /// IPv6 address stands in brackets. Throws std::invalid_argument, with a message for the user,
    /// for anything else.
    static ServerUrl parse(const std::string& url);

    /// The URL again, without the credentials: for messages.
    std::string withoutCredentials() const;

    /// Whether what is sent there stays on this machine: "localhost" or a numeric loopback address.
    bool isLoopback() const;

    std::string host;
    std::uint16_t port = 5988;
    std::string userAndPassword;  ///< "user:password"; empty if none is given
};

}  // namespace wire
