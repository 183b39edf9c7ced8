// SPDX-License-Identifier: MIT
#include "wire/http/LoopbackAddress.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <cstdint>

namespace wire {

bool isLoopbackIpv4(const std::string& text) {
    in_addr parsed{};
    constexpr std::uint32_t loopbackNetwork = 127;
    return inet_pton(AF_INET, text.c_str(), &parsed) == 1 &&
           ntohl(parsed.s_addr) >> 24U == loopbackNetwork;
}

bool isLoopbackIpv6(const std::string& text) {
    in6_addr parsed{};
    return inet_pton(AF_INET6, text.c_str(), &parsed) == 1 && IN6_IS_ADDR_LOOPBACK(&parsed);
}

}  // namespace wire
