// SPDX-License-Identifier: MIT
#include "wire/http/ListenAddress.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <stdexcept>

namespace wire {

namespace {

bool isLoopback4(const std::string& address) {
    in_addr parsed{};
    constexpr std::uint32_t loopbackNetwork = 127;
    return inet_pton(AF_INET, address.c_str(), &parsed) == 1 &&
           ntohl(parsed.s_addr) >> 24U == loopbackNetwork;
}

bool isLoopback6(const std::string& address) {
    in6_addr parsed{};
    return inet_pton(AF_INET6, address.c_str(), &parsed) == 1 && IN6_IS_ADDR_LOOPBACK(&parsed);
}

}  // namespace

ListenAddress::ListenAddress(const std::string& address, std::uint16_t port)
    : address_(address == "localhost" ? "127.0.0.1" : address), port_(port) {
    if (isLoopback4(address_)) {
        return;
    }
    if (!isLoopback6(address_)) {
        throw std::invalid_argument(
            "\"" + address +
            "\" is not a loopback address (127.0.0.1, ::1): this server is for the machine it runs "
            "on. To be reached from other machines, install the provider into OpenPegasus.");
    }
    isIpv6_ = true;
}

}  // namespace wire
