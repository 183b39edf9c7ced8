// SPDX-License-Identifier: MIT
// Requests and responses of HTTP as plain values, for server and client.
//
// Plain values: one thread at a time may change one, any number may read it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wire {

/// A header or trailer field.
struct HttpField {
    std::string name;
    std::string value;
};

using HttpFields = std::vector<HttpField>;

/// The value of the field of that name (compared without case); the values of a repeated field
/// joined by ", ". Absent if there is none.
std::optional<std::string> findField(const HttpFields& fields, std::string_view name);

struct HttpRequest {
    std::string method;
    std::string target;
    bool http10 = false;  ///< HTTP/1.0 as opposed to HTTP/1.1
    HttpFields fields;
    std::string body;
};

struct HttpResponse {
    unsigned status = 200;
    HttpFields fields;  ///< without those that frame the body; a client finds the trailer here too
    std::string body;
    std::shared_ptr<const void> held = nullptr;  ///< let go of by a server once all has been sent
};

/// "Not Found" for 404; "Unknown" for codes that the program does not use.
std::string_view reasonPhrase(unsigned status);

}  // namespace wire
