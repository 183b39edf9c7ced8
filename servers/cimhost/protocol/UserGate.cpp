// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/UserGate.h"

#include <unistd.h>

#include <exception>
#include <stdexcept>
#include <string>

#include "wire/http/PercentEncoding.h"

namespace cimhost {

namespace {

constexpr uid_t root = 0;

SocketOwners openOwners() {
    try {
        return SocketOwners();
    } catch (const std::exception& failure) {
        throw std::runtime_error(
            std::string("the kernel does not tell whose connections there are (") + failure.what() +
            "), so that this user and root cannot be let in alone; start it with "
            "--credentials FILE to let in users with a password, or with --open to let in every "
            "local user");
    }
}

}  // namespace

UserGate::UserGate()
    : user_(geteuid()),
      owners_(openOwners()),
      refused_(
          "a connection of another user was refused; --credentials or --open would let it in") {}

std::optional<wire::HttpResponse> UserGate::refusal(int socket) const {
    const std::optional<uid_t> owner = owners_.ownerOfPeer(socket);
    if (owner == user_ || owner == root) {
        return std::nullopt;
    }
    refused_.add();
    const char* const detail =
        owner ? "this server answers its own user and root only, unless it is started with "
                "--credentials FILE or --open"
              : "the kernel does not tell whose connection this is; started with --credentials "
                "FILE or --open the server does not ask";
    return wire::HttpResponse{403, {{"PGErrorDetail", wire::percentEncoded(detail)}}, {}};
}

}  // namespace cimhost
