// SPDX-License-Identifier: MIT
// Where a CIM server is, as people write it.
//
// Plain values: one thread at a time may change one, any number may read it.
#pragma once

#include <cstdint>
#include <string>

namespace wire {

/// http[s]://[user:password@]host[:port][/]
struct ServerUrl {
    /// Percent-encoding in user and password is undone; without a port it is 5989 for https and
    /// 5988 for http; an IPv6 address stands in brackets. Throws std::invalid_argument, with a message for the user,
    /// for anything else.
    static ServerUrl parse(const std::string& url);

    /// The URL again, without the credentials: for messages.
    std::string withoutCredentials() const;

    bool isEncrypted = false;  ///< https
    std::string host;
    std::uint16_t port = 5988;
    std::string userAndPassword;  ///< "user:password"; empty if none is given
};

}  // namespace wire
