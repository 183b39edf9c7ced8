// SPDX-License-Identifier: MIT
#include "pegasus/model/HostName.h"

#include <arpa/inet.h>

#include <algorithm>
#include <string>

#include "base/Ascii.h"
#include "base/Integers.h"

namespace Pegasus {

namespace {

constexpr bool isLabelCharacter(char c) {
    return base::isDigit(c) || base::isLetter(c) || c == '_' || c == '-';
}

bool isNumber(const std::string& text) {
    return std::all_of(text.begin(), text.end(), base::isDigit);
}

bool isLabel(const std::string& text) {
    return !text.empty() && text[0] != '-' &&
           std::all_of(text.begin(), text.end(), isLabelCharacter);
}

bool isIpv4Address(const std::string& text) {
    in_addr address{};
    return inet_pton(AF_INET, text.c_str(), &address) == 1;
}

bool isIpv6Address(const std::string& text) {
    in6_addr address{};
    return inet_pton(AF_INET6, text.c_str(), &address) == 1;
}

bool isName(const std::string& text) {
    std::size_t begin = 0;
    while (true) {
        const std::size_t dot = text.find('.', begin);
        const std::string label = text.substr(begin, dot - begin);
        if (!isLabel(label)) {
            return false;
        }
        if (dot == std::string::npos) {
            return !isNumber(label) || isIpv4Address(text);
        }
        begin = dot + 1;
    }
}

/// Whether the text is a colon and a port number, only a colon, or empty.
bool isPort(const std::string& text) {
    if (text.empty() || text == ":") {
        return true;
    }
    const std::string number = text.substr(1);
    return text[0] == ':' && number.size() <= 5 && base::parseDigits<std::uint16_t>(number);
}

}  // namespace

bool isHostName(const String& text) {
    const std::string host = static_cast<const char*>(text.getCString());
    if (host.size() != text.size()) {
        return false;  // it has a NUL, or characters that are not ASCII
    }
    if (!host.empty() && host[0] == '[') {
        const std::size_t bracket = host.find(']');
        return bracket != std::string::npos && isIpv6Address(host.substr(1, bracket - 1)) &&
               isPort(host.substr(bracket + 1));
    }
    const std::size_t colon = std::min(host.find(':'), host.size());
    return isName(host.substr(0, colon)) && isPort(host.substr(colon));
}

}  // namespace Pegasus
