// SPDX-License-Identifier: MIT
// An HTTP server for a few clients on the same machine.
//
// Each connection has a thread of its own while it lasts, so that a request that is answered slowly
// holds up nobody else.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "wire/http/HttpMessage.h"
#include "wire/http/ListenAddress.h"

namespace wire {

/// What a client may ask of the server. At a limit a request is answered, beyond it is refused.
struct HttpLimits {
    std::size_t headerBytes = 16UL * 1024;           ///< request line and header; beyond: 431
    std::size_t bodyBytes = 1024UL * 1024;           ///< beyond: 413
    std::size_t connections = 64;                    ///< open at once; see HttpServer
    std::chrono::milliseconds requestTime{30'000};   ///< from first to last byte; beyond: 408
    std::chrono::milliseconds idleTime{60'000};      ///< without a request; beyond: closed
    std::chrono::milliseconds responseTime{30'000};  ///< for the client to take the answer
    std::chrono::milliseconds passwordTime{1'000};   ///< a wrong password waits up to this long
};

/// Answers one request; may be called from many threads at once. An exception is answered by 500.
using HttpHandler = std::function<HttpResponse(HttpRequest&& request)>;

/// Asked once for each connection, before anything is read, with its socket; may be called from
/// many threads at once. What it returns, if anything, is all that the client is told.
using HttpGate = std::function<std::optional<HttpResponse>(int socket)>;

/// Listens from construction to stop() or destruction.
///
/// Answered here, without the handler: requests that are not HTTP or truncated (400), requests
/// beyond the limits, "Expect: 100-continue" (and 417 for any other expectation), versions other
/// than 1.0 and 1.1 (505), transfer codings other than "chunked" (501). Connections are kept open
/// as HTTP/1.0 and 1.1 say.
///
/// When as many connections are open as may be, the one whose client has been silent for longest is
/// answered 503 in favour of a new one; if all are being served, the new one is. A client that does
/// not take its answer, or that waits after a wrong password, is silent; the former is told nothing.
///
/// Where the handler answers 401 to a request with an Authorization, the answer waits, with each on
/// the same connection for twice as long as before.
class HttpServer {
public:
    /// Throws std::system_error, naming address and port, if it cannot listen there. Without `gate`
    /// every connection is taken.
    HttpServer(const ListenAddress& address, HttpHandler handler, const HttpLimits& limits = {},
               HttpGate gate = {});

    /// Stops; see stop(). Requests still in the handler then are left to it.
    ~HttpServer();

    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    /// Where it listens; the port that was free if 0 was asked for.
    std::uint16_t port() const;

    /// "http://127.0.0.1:5988"
    std::string url() const;

    /// Stops listening, ends idle connections and waits for requests in the handler to be answered,
    /// at most `grace` long. Returns whether all were; if not, their threads still run and use what
    /// the handler uses. May be called more than once, by one thread at a time.
    bool stop(std::chrono::milliseconds grace);

private:
    class Listener;

    std::unique_ptr<Listener> listener_;
};

}  // namespace wire
