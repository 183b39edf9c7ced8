// SPDX-License-Identifier: MIT
// An HTTP client with one connection that it keeps open.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "wire/http/HttpMessage.h"

namespace wire {

/// Thrown when no answer was got: no connection, a broken one, an answer that is not HTTP or too
/// large, or none in time. what() says so in words, without the server's address.
class HttpError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct HttpClientLimits {
    std::chrono::milliseconds connectTime{10'000};
    std::chrono::milliseconds answerTime{600'000};  ///< from the request to the end of the answer
    std::size_t bodyBytes = 64UL * 1024 * 1024;     ///< of an answer
    std::size_t headerBytes = 64UL * 1024;          ///< of an answer
};

/// One thread at a time.
class HttpClient {
public:
    /// Does not connect yet. `host` is a name or a numeric address.
    HttpClient(std::string host, std::uint16_t port, const HttpClientLimits& limits = {});
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    /// Sends a request, after connecting if need be, and waits for the answer. Host and
    /// Content-Length are added to the fields given. Nothing is sent twice: a connection that the
    /// server has closed meanwhile is noticed before. Throws HttpError.
    HttpResponse exchange(const HttpRequest& request);

private:
    class Connection;

    void connect();

    std::string host_;
    std::uint16_t port_;
    HttpClientLimits limits_;
    std::unique_ptr<Connection> connection_;
};

}  // namespace wire
