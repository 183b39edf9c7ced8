// SPDX-License-Identifier: MIT
#include "wire/client/ServerUrl.h"

#include <stdexcept>
#include <string_view>

#include "base/Integers.h"
#include "wire/http/PercentEncoding.h"

namespace wire {

namespace {

constexpr std::string_view plainScheme = "http://";
constexpr std::string_view encryptedScheme = "https://";
constexpr std::uint16_t encryptedPort = 5989;

/// The message does not repeat the URL, which may hold a password.
[[noreturn]] void fail(const std::string& what) {
    throw std::invalid_argument(
        "the URL of a CIM server reads http[s]://[user:password@]host[:port]: " + what);
}

std::uint16_t parsePort(std::string_view text) {
    const auto port = base::parseDigits<std::uint16_t>(text);
    if (!port || *port == 0) {
        fail("\"" + std::string(text) + "\" is not a port");
    }
    return *port;
}

}  // namespace

ServerUrl ServerUrl::parse(const std::string& url) {
    ServerUrl result;
    std::string_view rest = url;
    if (rest.substr(0, encryptedScheme.size()) == encryptedScheme) {
        result.isEncrypted = true;
        result.port = encryptedPort;
        rest.remove_prefix(encryptedScheme.size());
    } else if (rest.substr(0, plainScheme.size()) == plainScheme) {
        rest.remove_prefix(plainScheme.size());
    } else {
        fail("it must begin with https:// or http://");
    }
    const std::size_t slash = rest.find('/');
    if (slash != std::string_view::npos && slash + 1 != rest.size()) {
        fail("nothing is expected after the port");
    }
    rest = rest.substr(0, slash);

    if (const std::size_t at = rest.rfind('@'); at != std::string_view::npos) {
        result.userAndPassword = percentDecoded(rest.substr(0, at));
        if (result.userAndPassword.find(':') == std::string::npos) {
            fail("a user is given without a password");
        }
        rest.remove_prefix(at + 1);
    }
    std::string_view afterHost;
    if (!rest.empty() && rest.front() == '[') {
        const std::size_t bracket = rest.find(']');
        if (bracket == std::string_view::npos) {
            fail("the \"[\" is not closed");
        }
        result.host = rest.substr(1, bracket - 1);
        afterHost = rest.substr(bracket + 1);
    } else {
        const std::size_t colon = rest.find(':');
        result.host = rest.substr(0, colon);
        afterHost = colon == std::string_view::npos ? std::string_view() : rest.substr(colon);
    }
    if (result.host.empty()) {
        fail("the host is missing");
    }
    // Elsewhere in a URL these end the host.
    if (result.host.find_first_of("#?\\ ") != std::string::npos) {
        fail("\"" + result.host + "\" is not a host");
    }
    if (!afterHost.empty()) {
        if (afterHost.front() != ':') {
            fail("a port is expected after the \"]\"");
        }
        result.port = parsePort(afterHost.substr(1));
    }
    return result;
}

std::string ServerUrl::withoutCredentials() const {
    const bool isIpv6 = host.find(':') != std::string::npos;
    return std::string(isEncrypted ? encryptedScheme : plainScheme) +
           (isIpv6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

}  // namespace wire
