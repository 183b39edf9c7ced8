// SPDX-License-Identifier: MIT
// Text in XML: escaping, references, UTF-8.
#include "host/cimxml/XmlText.h"

#include <charconv>
#include <optional>

#include "host/cimxml/XmlError.h"

namespace cimhost {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t lastCharacter = 0x10FFFF;

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

/// Writes one character at a time; knows about the spaces that need a reference.
class TextWriter {
public:
    explicit TextWriter(std::string& out) : out_(out) {}

    /// `last` says that no character follows.
    void write(char character, bool last) {
        const bool plainSpace = character == ' ' && !first_ && !last && !afterPlainSpace_;
        if (plainSpace) {
            out_ += ' ';
        } else {
            escape(character);
        }
        first_ = false;
        afterPlainSpace_ = plainSpace;
    }

    /// A character of several UTF-8 bytes: never escaped.
    void writeWide(char32_t character) {
        appendUtf8(out_, character);
        first_ = false;
        afterPlainSpace_ = false;
    }

private:
    void escape(char character) {
        switch (character) {
            case '&':
                out_ += "&amp;";
                break;
            case '<':
                out_ += "&lt;";
                break;
            case '>':
                out_ += "&gt;";
                break;
            case '"':
                out_ += "&quot;";
                break;
            case '\'':
                out_ += "&apos;";
                break;
            default:
                if (character == 0) {
                    appendUtf8(out_, replacement);
                } else if ((character > 0 && character <= ' ') || character == 127) {
                    out_ += "&#";
                    out_ += std::to_string(static_cast<int>(character));
                    out_ += ';';
                } else {
                    out_ += character;
                }
        }
    }

    std::string& out_;
    bool first_ = true;
    bool afterPlainSpace_ = false;
};

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

/// Calls `take(character, last)` for each character of a UTF-16 string.
template <typename Take>
void forEachCharacter(const Pegasus::String& text, Take take) {
    const Pegasus::Char16* const units = text.getChar16Data();
    const Pegasus::Uint32 size = text.size();
    for (Pegasus::Uint32 i = 0; i < size; ++i) {
        char32_t character = static_cast<Pegasus::Uint16>(units[i]);
        if (isSurrogate(character)) {
            const char32_t next = i + 1 < size ? static_cast<Pegasus::Uint16>(units[i + 1]) : U'\0';
            if (character < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
                character = 0x10000 + ((character - 0xD800) << 10U) + (next - 0xDC00);
                ++i;
            } else {
                character = replacement;
            }
        } else if (character >= 0xFFFE) {
            character = replacement;
        }
        take(character, i + 1 == size);
    }
}

}  // namespace

void appendUtf8(std::string& out, char32_t character) {
    const auto add = [&](char32_t byte) { out += static_cast<char>(byte); };
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
}

void appendText(std::string& out, const Pegasus::String& text) {
    TextWriter writer(out);
    forEachCharacter(text, [&](char32_t character, bool last) {
        if (character < 0x80) {
            writer.write(static_cast<char>(character), last);
        } else {
            writer.writeWide(character);
        }
    });
}

void appendText(std::string& out, std::string_view utf8) {
    TextWriter writer(out);
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        writer.write(utf8[i], i + 1 == utf8.size());
    }
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
    forEachCharacter(text, [&](char32_t character, bool) { appendUtf8(utf8, character); });
    return utf8;
}

Pegasus::String fromUtf8(std::string_view utf8) {
    if (!isUtf8(utf8)) {
        throw XmlError(XmlFault::notWellFormed, "text is not UTF-8");
    }
    return {utf8.data(), static_cast<Pegasus::Uint32>(utf8.size())};
}

}  // namespace cimhost
