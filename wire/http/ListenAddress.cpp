// SPDX-License-Identifier: MIT
#include "wire/http/ListenAddress.h"

#include <stdexcept>

#include "wire/http/LoopbackAddress.h"

namespace wire {

ListenAddress::ListenAddress(const std::string& address, std::uint16_t port)
    : address_(address == "localhost" ? "127.0.0.1" : address), port_(port) {
    if (isLoopbackIpv4(address_)) {
        return;
    }
    if (!isLoopbackIpv6(address_)) {
        throw std::invalid_argument(
            "\"" + address +
            "\" is not a loopback address (127.0.0.1, ::1): this server is for the machine it runs "
            "on. To be reached from other machines, install the provider into OpenPegasus.");
    }
    isIpv6_ = true;
}

}  // namespace wire
