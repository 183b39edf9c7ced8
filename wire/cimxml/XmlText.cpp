// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <type_traits>

#include "wire/cimxml/XmlError.h"

namespace wire {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t lastCharacter = 0x10FFFF;

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

/// Writes one character as UTF-8 and returns the end of what it wrote, at most four bytes.
char* encodeUtf8(char* to, char32_t character) {
    const auto add = [&](char32_t byte) { *to++ = static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | (character >> 6U));
        add(0x80 | (character & 0x3FU));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12U));
        add(0x80 | ((character >> 6U) & 0x3FU));
        add(0x80 | (character & 0x3FU));
    } else {
        add(0xF0 | (character >> 18U));
        add(0x80 | ((character >> 12U) & 0x3FU));
        add(0x80 | ((character >> 6U) & 0x3FU));
        add(0x80 | (character & 0x3FU));
    }
    return to;
}

/// The character that begins at `at`, which moves to its last unit; U+FFFD for what is none that XML
/// can carry.
char32_t characterAt(const Pegasus::Char16* units, std::size_t size, std::size_t& at) {
    const char32_t unit = units[at];
    if (unit >= 0xFFFE) {
        return replacement;
    }
    if (!isSurrogate(unit)) {
        return unit;
    }
    const char32_t next = at + 1 < size ? char32_t{units[at + 1]} : U'\0';
    if (unit >= 0xDC00 || next < 0xDC00 || next > 0xDFFF) {
        return replacement;
    }
    ++at;
    return 0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00);
}

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
            return encodeUtf8(to, replacement);
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
                to = encodeUtf8(to, characterAt(units, size, i));
            }
            afterPlainSpace = plainSpace;
        }
        out.resize(static_cast<std::size_t>(to - out.data()));
    }
}

/// The character that the digits of a numeric reference name.
std::optional<char32_t> numericReference(std::string_view digits) {
    int base = 10;
    if (!digits.empty() && digits.front() == 'x') {
        digits.remove_prefix(1);
        base = 16;
    }
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, value, base);
    if (error != std::errc() || rest != end || value == 0 || value > lastCharacter ||
        isSurrogate(value)) {
        return std::nullopt;
    }
    return value;
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

/// Length of the UTF-8 sequence at the start of `text`, or 0 if none stands there.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto continues = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < text.size() && byte(i) >= low && byte(i) <= high;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return continues(1) ? 2 : 0;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : 0xBF;
        return continues(1, low, high) && continues(2) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
        return continues(1, low, high) && continues(2) && continues(3) ? 4 : 0;
    }
    return 0;
}

}  // namespace

void appendUtf8(std::string& out, char32_t character) {
    std::array<char, 4> bytes{};
    out.append(bytes.data(), encodeUtf8(bytes.data(), character));
}

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
        appendUtf8(out, *character);
        raw.remove_prefix(semicolon + 1);
    }
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string toUtf8(const Pegasus::String& text) {
    std::string utf8;
    const std::size_t size = text.size();
    for (std::size_t i = 0; i < size; ++i) {
        appendUtf8(utf8, characterAt(text.getChar16Data(), size, i));
    }
    return utf8;
}

Pegasus::String fromUtf8(std::string_view utf8) {
    if (!isUtf8(utf8)) {
        throw XmlError(XmlFault::notWellFormed, "text is not UTF-8");
    }
    return {utf8.data(), static_cast<Pegasus::Uint32>(utf8.size())};
}

}  // namespace wire
