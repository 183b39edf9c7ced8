// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlEscaping.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <type_traits>

#include "base/Integers.h"
#include "base/Utf16.h"
#include "base/Utf8.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

namespace wire {

namespace {

/// Whether an ASCII character stands for itself wherever it is.
constexpr std::array<bool, 128> makePlain() {
    std::array<bool, 128> plain{};
    for (unsigned char c = '!'; c < 127; ++c) {
        plain[c] = c != '&' && c != '<' && c != '>' && c != '"' && c != '\'';
    }
    return plain;
}
constexpr std::array<bool, 128> isPlain = makePlain();

// "&quot;" and "&#127;"
constexpr std::size_t longestEscape = 6;

/// Writes what stands for an ASCII character that does not stand for itself.
char* escape(char* to, char character) {
    const auto add = [&](std::string_view text) { return std::copy(text.begin(), text.end(), to); };
    switch (character) {
        case '\0':
            return base::writeUtf8(base::replacementCharacter, to);
        case '&':
            return add("&amp;");
        case '<':
            return add("&lt;");
        case '>':
            return add("&gt;");
        case '"':
            return add("&quot;");
        case '\'':
            return add("&apos;");
        default:
            to = add("&#");
            to = std::to_chars(to, to + 3, static_cast<int>(character)).ptr;
            *to++ = ';';
            return to;
    }
}

/// Appends UTF-16 or UTF-8 as text of a document. Characters go straight to their place, for which
/// room is made in advance: this is where a server spends most of the time that an answer takes.
template <typename Unit>
void appendEscaped(std::string& out, const Unit* units, std::size_t size) {
    constexpr std::size_t chunk = 4096;
    bool afterPlainSpace = false;
    for (std::size_t i = 0; i < size;) {
        const std::size_t stop = std::min(size, i + chunk);
        const std::size_t begin = out.size();
        out.resize(begin + (stop - i) * longestEscape);
        char* to = &out[begin];
        for (; i < stop; ++i) {
            const auto unit = static_cast<std::make_unsigned_t<
                std::conditional_t<std::is_same_v<Unit, char>, char, Pegasus::Uint16>>>(units[i]);
            const bool plainSpace = unit == ' ' && i != 0 && i + 1 != size && !afterPlainSpace;
            if (plainSpace || (unit < isPlain.size() && isPlain[unit])) {
                *to++ = static_cast<char>(unit);
            } else if (unit < isPlain.size()) {
                to = escape(to, static_cast<char>(unit));
            } else if constexpr (std::is_same_v<Unit, char>) {
                *to++ = units[i];
            } else {
                const Unit* next = units + i;
                to = base::writeUtf8(carriedCharacter(base::readUtf16(next, units + size)), to);
                i = static_cast<std::size_t>(next - units) - 1;
            }
            afterPlainSpace = plainSpace;
        }
        out.resize(static_cast<std::size_t>(to - out.data()));
    }
}

/// The character that the digits of a numeric reference name.
std::optional<char32_t> numericReference(std::string_view digits) {
    unsigned radix = 10;
    if (!digits.empty() && digits.front() == 'x') {
        digits.remove_prefix(1);
        radix = 16;
    }
    const auto code = base::parseDigits<std::uint32_t>(digits, radix);
    if (!code || *code == 0 || *code > base::lastCodePoint || base::isSurrogate(*code)) {
        return std::nullopt;
    }
    return *code;
}

/// The character that a reference (what stands between & and ;) names.
std::optional<char32_t> reference(std::string_view name) {
    if (!name.empty() && name.front() == '#') {
        return numericReference(name.substr(1));
    }
    if (name == "amp") {
        return '&';
    }
    if (name == "lt") {
        return '<';
    }
    if (name == "gt") {
        return '>';
    }
    if (name == "quot") {
        return '"';
    }
    if (name == "apos") {
        return '\'';
    }
    return std::nullopt;
}

}  // namespace

void appendText(std::string& out, const Pegasus::String& text) {
    appendEscaped(out, text.getChar16Data(), text.size());
}

void appendText(std::string& out, std::string_view utf8) {
    appendEscaped(out, utf8.data(), utf8.size());
}

void appendAttribute(std::string& out, std::string_view name, std::string_view utf8) {
    out += ' ';
    out += name;
    out += "=\"";
    appendText(out, utf8);
    out += '"';
}

void appendAttribute(std::string& out, std::string_view name, const Pegasus::String& text) {
    out += ' ';
    out += name;
    out += "=\"";
    appendText(out, text);
    out += '"';
}

void appendDecoded(std::string& out, std::string_view raw) {
    while (true) {
        const std::size_t ampersand = raw.find('&');
        out += raw.substr(0, ampersand);
        if (ampersand == std::string_view::npos) {
            return;
        }
        raw.remove_prefix(ampersand + 1);
        // The longest reference taken is "#x0010FFFF" with some zeros more.
        const std::size_t semicolon = raw.substr(0, 16).find(';');
        const auto character = semicolon == std::string_view::npos
                                   ? std::nullopt
                                   : reference(raw.substr(0, semicolon));
        if (!character) {
            throw XmlError(XmlFault::notWellFormed,
                           "unknown reference \"&" + std::string(raw.substr(0, semicolon)) + "\"");
        }
        base::appendUtf8(out, *character);
        raw.remove_prefix(semicolon + 1);
    }
}

}  // namespace wire
