// SPDX-License-Identifier: MIT
// Where a server may listen: on this machine alone.
//
// Plain values: one thread at a time may change one, any number may read it.
#pragma once

#include <cstdint>
#include <string>

namespace wire {

/// A loopback address and port.
class ListenAddress {
public:
    /// `address`: an IPv4 address of 127.0.0.0/8, "::1", or "localhost" (127.0.0.1). `port` 0 takes
    /// any free one. Throws std::invalid_argument, with a message for the user, for anything else:
    /// what this server lacks for the network (encryption, users, auditing) OpenPegasus has.
    ListenAddress(const std::string& address, std::uint16_t port);

    /// The numeric address.
    const std::string& address() const { return address_; }
    std::uint16_t port() const { return port_; }
    bool isIpv6() const { return isIpv6_; }

private:
    std::string address_;
    std::uint16_t port_;
    bool isIpv6_ = false;
};

}  // namespace wire
