// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/RequestOrigin.h"

#include <unistd.h>

#include <array>
#include <string>
#include <string_view>

#include "base/Ascii.h"
#include "servers/cimhost/protocol/CimHeaders.h"
#include "wire/http/LoopbackAddress.h"

namespace cimhost {

namespace {

/// The name or address in a Host field, empty if there is none in it.
std::string_view hostIn(std::string_view field) {
    const bool isBracketed = !field.empty() && field.front() == '[';
    const std::size_t end = isBracketed ? field.find(']') : field.find(':');
    const std::string_view host = field.substr(0, end).substr(isBracketed ? 1 : 0);
    if (end == std::string_view::npos) {
        return isBracketed ? std::string_view() : host;
    }
    const std::string_view rest = field.substr(isBracketed ? end + 1 : end);
    return rest.empty() || (rest.front() == ':' && base::isAllDigits(rest.substr(1)))
               ? host
               : std::string_view();
}

bool isThisMachine(std::string_view host) {
    std::array<char, 256> buffer{};
    if (host.empty() || gethostname(buffer.data(), buffer.size() - 1) != 0) {
        return false;
    }
    const std::string_view name = buffer.data();
    return base::equalIgnoringCase(host, name) ||
           base::equalIgnoringCase(host, name.substr(0, name.find('.')));
}

bool isOwnName(std::string_view host) {
    const std::string text(host);
    return base::equalIgnoringCase(host, "localhost") || wire::isLoopbackIpv4(text) ||
           wire::isLoopbackIpv6(text) || isThisMachine(host);
}

bool showsBrowser(std::string_view fieldName) {
    constexpr std::string_view fetch = "Sec-Fetch-";
    return base::equalIgnoringCase(fieldName, "Origin") ||
           base::equalIgnoringCase(fieldName.substr(0, fetch.size()), fetch);
}

}  // namespace

void requireCimClient(const wire::HttpFields& fields) {
    for (const wire::HttpField& field : fields) {
        if (showsBrowser(field.name)) {
            throw RequestRefused(403, "", "requests of browsers (" + field.name + ") are refused");
        }
    }
    const auto host = wire::findField(fields, "Host");
    if (host && !isOwnName(hostIn(*host))) {
        throw RequestRefused(403, "",
                             "the Host \"" + *host +
                                 "\" is neither a loopback address nor \"localhost\" nor the name "
                                 "of this machine");
    }
}

}  // namespace cimhost
