// SPDX-License-Identifier: MIT
#include "wire/http/BasicAuthentication.h"

#include <algorithm>

#include "base/Ascii.h"

namespace wire {

namespace {

constexpr std::string_view scheme = "Basic ";

std::string base64(std::string_view bytes) {
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t group = 3;
    std::string encoded;
    for (std::size_t i = 0; i < bytes.size(); i += group) {
        const std::size_t count = std::min(group, bytes.size() - i);
        unsigned bits = 0;
        for (std::size_t k = 0; k < group; ++k) {
            bits <<= 8U;
            bits |= k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U;
        }
        for (std::size_t k = 0; k <= group; ++k) {
            encoded += k <= count ? alphabet[(bits >> (18U - 6U * k)) & 0x3FU] : '=';
        }
    }
    return encoded;
}

}  // namespace

std::string basicAuthorization(std::string_view userAndPassword) {
    return std::string(scheme) + base64(userAndPassword);
}

std::string_view basicToken(std::string_view authorization) {
    if (!base::equalIgnoringCase(authorization.substr(0, scheme.size()), scheme)) {
        return {};
    }
    authorization.remove_prefix(scheme.size());
    authorization.remove_prefix(
        std::min(authorization.find_first_not_of(' '), authorization.size()));
    return authorization;
}

}  // namespace wire
