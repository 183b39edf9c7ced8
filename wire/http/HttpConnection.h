// SPDX-License-Identifier: MIT
// One connection of an HTTP server, from its first request to its last. The parser is Boost.Beast's; it is
// used in HttpConnection.cpp alone.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <utility>

#include "wire/http/ConnectionPlaces.h"
#include "wire/http/HttpServer.h"

namespace wire {

// How long a client that was refused is given to take note of it.
constexpr std::chrono::milliseconds lingerTime{1000};

/// What the connections of a server share. Any number of threads may use it at once.
struct ServerContext {
    ServerContext(HttpHandler handler, const HttpLimits& limits, HttpGate gate)
        : handler(std::move(handler)),
          limits(limits),
          gate(std::move(gate)),
          places(limits.connections) {}

    const HttpHandler handler;
    const HttpLimits limits;
    const HttpGate gate;
    ConnectionPlaces places;
};

/// Answers the requests of a client as HttpServer says until one side ends the connection or memory runs
/// out, then leaves the place and closes its socket.
void serveConnection(ServerContext& context, ConnectionPlaces::Place& place);

/// Appends the head of a response, with what frames its body. `connection` is the value of the field of
/// that name; without it there is none.
void appendHead(std::string& out, const HttpResponse& response, std::string_view connection);

/// The answer to a client for whom there is no place.
HttpResponse noPlace();

}  // namespace wire
