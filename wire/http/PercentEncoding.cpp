// SPDX-License-Identifier: MIT
#include "wire/http/PercentEncoding.h"

#include <cstdint>
#include <optional>

#include "base/Ascii.h"
#include "base/Integers.h"

namespace wire {

namespace {

bool isUnreserved(char c) {
    return base::isLetter(c) || base::isDigit(c) || c == '-' || c == '.' || c == '_' || c == '~';
}

}  // namespace

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view digits = base::upperHexDigits;
    std::string encoded;
    for (const char c : text) {
        if (isUnreserved(c)) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += '%';
            encoded += digits[byte >> 4U];
            encoded += digits[byte & 0xFU];
        }
    }
    return encoded;
}

std::string percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '%' && i + 2 < text.size();
        const auto byte =
            isEscape ? base::parseDigits<std::uint8_t>(text.substr(i + 1, 2), 16) : std::nullopt;
        if (byte) {
            decoded += static_cast<char>(*byte);
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

}  // namespace wire
