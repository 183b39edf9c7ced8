// SPDX-License-Identifier: MIT
// An HTTP client with one connection that it keeps open, encrypted where the URL says https.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "wire/client/ServerUrl.h"
#include "wire/http/HttpMessage.h"

namespace wire {

/// Thrown when no answer was got: no connection, one that cannot be trusted, a broken one, an answer
/// that is not HTTP or too large, or none in time. what() says so in words, without the server's URL.
class HttpError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct HttpClientOptions {
    std::chrono::milliseconds connectTime{10'000};  ///< from the name to the encrypted connection
    std::chrono::milliseconds callTime{60'000};     ///< from the name to the end of the answer
    std::size_t bodyBytes = 64UL * 1024 * 1024;     ///< of an answer
    std::size_t headerBytes = 64UL * 1024;  ///< of an answer, with interim answers and trailer

    bool checksCertificate = true;  ///< the server's: authority, time and name
    std::string authorities;        ///< file (PEM) to trust; empty: what the system trusts
    std::string certificate;        ///< file (PEM) that says who this client is; empty: none
    std::string key;                ///< file (PEM) that belongs to it; empty: in the same file
    std::string proxy;              ///< its URL; empty: none, whatever the environment says
    bool readsNetrc = false;        ///< for credentials, where the URL has none

    /// Called once at most, with the address that a password is sent to, where others may read it:
    /// unencrypted, and not to this machine alone.
    std::function<void(const std::string& address)> passwordInClear;
};

/// Knows HTTP/1.1, speaks TLS 1.2 or later, follows no redirect. One thread at a time; different
/// clients may be used by different threads.
class HttpClient {
public:
    /// Does not connect yet. Throws HttpError for options that cannot be used.
    explicit HttpClient(const ServerUrl& url, const HttpClientOptions& options = {});
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    /// Sends a POST request, after connecting if need be, and waits for the answer. `target` begins
    /// with a slash; Host and Content-Length are added to the fields. Nothing is sent twice: a
    /// connection that the server has closed meanwhile is noticed before. Throws HttpError.
    HttpResponse post(const std::string& target, const HttpFields& fields, std::string_view body);

private:
    class Transfer;

    std::unique_ptr<Transfer> transfer_;
};

}  // namespace wire
