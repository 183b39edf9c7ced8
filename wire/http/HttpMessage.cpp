// SPDX-License-Identifier: MIT
#include "wire/http/HttpMessage.h"

#include "base/Ascii.h"

namespace wire {

std::optional<std::string> findField(const HttpFields& fields, std::string_view name) {
    std::optional<std::string> value;
    for (const HttpField& field : fields) {
        if (!base::equalIgnoringCase(field.name, name)) {
            continue;
        }
        if (value) {
            *value += ", " + field.value;
        } else {
            value = field.value;
        }
    }
    return value;
}

std::string_view reasonPhrase(unsigned status) {
    switch (status) {
        case 200:
            return "OK";
        case 301:
            return "Moved Permanently";
        case 302:
            return "Found";
        case 307:
            return "Temporary Redirect";
        case 308:
            return "Permanent Redirect";
        case 400:
            return "Bad Request";
        case 401:
            return "Unauthorized";
        case 403:
            return "Forbidden";
        case 404:
            return "Not Found";
        case 405:
            return "Method Not Allowed";
        case 408:
            return "Request Timeout";
        case 411:
            return "Length Required";
        case 413:
            return "Payload Too Large";
        case 417:
            return "Expectation Failed";
        case 431:
            return "Request Header Fields Too Large";
        case 500:
            return "Internal Server Error";
        case 501:
            return "Not Implemented";
        case 503:
            return "Service Unavailable";
        case 505:
            return "HTTP Version Not Supported";
        default:
            return "Unknown";
    }
}

}  // namespace wire
