// SPDX-License-Identifier: MIT
#include "servers/cimhost/mof/MofLexer.h"

#include <optional>
#include <utility>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "base/Utf8.h"

namespace cimhost {

namespace {

bool isSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// Bytes above 127 belong to letters; the names themselves are checked by the object model.
bool startsName(char character) {
    return base::isLetter(character) || character == '_' || !base::isAscii(character);
}

bool continuesName(char character) {
    return startsName(character) || base::isDigit(character);
}

}  // namespace

bool MofToken::isKeyword(std::string_view keyword) const {
    return kind == Kind::identifier && base::equalIgnoringCase(text, keyword);
}

std::string MofToken::description() const {
    switch (kind) {
        case Kind::end:
            return "the end of the file";
        case Kind::identifier:
        case Kind::punctuation:
        case Kind::real:
            return "'" + text + "'";
        case Kind::alias:
            return "'$" + text + "'";
        case Kind::pragma:
            return "'#pragma'";
        case Kind::text:
            return "a string";
        case Kind::character:
            return "a character";
        case Kind::integer:
            return (negative ? "-" : "") + std::to_string(magnitude);
    }
    return {};
}

MofLexer::MofLexer(std::string_view text, std::string file) : text_(text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text_.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text_.remove_prefix(byteOrderMark.size());
    }
    position_.file = std::move(file);
}

char MofLexer::take() {
    const char character = text_[offset_++];
    if (character == '\n') {
        ++position_.line;
        position_.column = 1;
    } else if (!base::continuesUtf8(character)) {
        ++position_.column;
    }
    return character;
}

void MofLexer::fail(const std::string& text) const {
    throw MofError(position_, text);
}

MofToken MofLexer::startToken(MofToken::Kind kind) const {
    MofToken token;
    token.kind = kind;
    token.position = position_;
    return token;
}

void MofLexer::skipSpaceAndComments() {
    while (!atEnd()) {
        if (isSpace(peek())) {
            take();
        } else if (peek() == '/' && peek(1) == '/') {
            while (!atEnd() && peek() != '\n') {
                take();
            }
        } else if (peek() == '/' && peek(1) == '*') {
            const MofPosition start = position_;
            while (!(peek() == '*' && peek(1) == '/')) {
                if (atEnd()) {
                    throw MofError(start, "the comment does not end");
                }
                take();
            }
            take();
            take();
        } else {
            return;
        }
    }
}

MofToken MofLexer::next() {
    skipSpaceAndComments();
    if (atEnd()) {
        return startToken(MofToken::Kind::end);
    }
    const char character = peek();
    if (startsName(character)) {
        return readIdentifier();
    }
    if (base::isDigit(character) || character == '+' || character == '-' || character == '.') {
        return readNumber();
    }
    switch (character) {
        case '"':
            return readText();
        case '\'':
            return readCharacter();
        case '$':
            return readAlias();
        case '#':
            return readPragma();
        default:
            break;
    }
    if (std::string_view("(){}[],;:=").find(character) == std::string_view::npos) {
        fail("there is a character that MOF does not use here");
    }
    MofToken token = startToken(MofToken::Kind::punctuation);
    token.text = std::string(1, take());
    return token;
}

MofToken MofLexer::readIdentifier() {
    MofToken token = startToken(MofToken::Kind::identifier);
    while (continuesName(peek())) {
        token.text += take();
    }
    return token;
}

MofToken MofLexer::readPragma() {
    MofToken token = startToken(MofToken::Kind::pragma);
    take();
    if (!startsName(peek()) || !readIdentifier().isKeyword("pragma")) {
        throw MofError(token.position, "'#' is not followed by 'pragma'");
    }
    return token;
}

MofToken MofLexer::readAlias() {
    MofToken token = startToken(MofToken::Kind::alias);
    take();
    if (!startsName(peek())) {
        fail("'$' is not followed by the name of an alias");
    }
    token.text = readIdentifier().text;
    return token;
}

MofToken MofLexer::readNumber() {
    MofToken token = startToken(MofToken::Kind::integer);
    if (peek() == '+' || peek() == '-') {
        token.negative = take() == '-';
    }
    std::string digits;
    bool exponentSign = false;
    while (continuesName(peek()) || peek() == '.' || exponentSign) {
        const char character = take();
        digits += character;
        const bool hexadecimal = digits.size() > 1 && base::toLower(digits[1]) == 'x';
        exponentSign =
            !hexadecimal && base::toLower(character) == 'e' && (peek() == '+' || peek() == '-');
    }

    const std::string_view written = digits;
    const bool isBinary = !written.empty() && base::toLower(written.back()) == 'b';
    bool understood = false;
    const auto readWhole = [&](std::string_view text, unsigned radix) {
        const std::optional<std::uint64_t> magnitude = base::parseDigits(text, radix);
        token.magnitude = magnitude.value_or(0);
        understood = magnitude.has_value();
    };
    if (base::isHexadecimal(written)) {
        readWhole(written.substr(2), 16);
    } else if (isBinary) {
        readWhole(written.substr(0, written.size() - 1), 2);
    } else if (written.find_first_of(".eE") != std::string_view::npos) {
        token.kind = MofToken::Kind::real;
        token.text = (token.negative ? "-" : "") + digits;
        const auto point = written.find('.');
        understood = written.find_first_not_of("0123456789.eE+-") == std::string_view::npos &&
                     point != std::string_view::npos && point + 1 < written.size() &&
                     base::isDigit(written[point + 1]) && base::isDigit(written.back()) &&
                     written.find('.', point + 1) == std::string_view::npos;
    } else {
        const bool isOctal = written.size() > 1 && written.front() == '0';
        readWhole(written, isOctal ? 8 : 10);
    }
    if (!understood) {
        throw MofError(token.position, "'" + digits + "' is not a number of at most 64 bits");
    }
    return token;
}

MofToken MofLexer::readText() {
    MofToken token = startToken(MofToken::Kind::text);
    take();
    while (peek() != '"') {
        if (atEnd() || peek() == '\n' || peek() == '\0') {
            throw MofError(token.position, "the string does not end on its line");
        }
        if (peek() == '\\') {
            base::appendUtf8(token.text, readEscape());
        } else {
            token.text += take();
        }
    }
    take();
    return token;
}

MofToken MofLexer::readCharacter() {
    MofToken token = startToken(MofToken::Kind::character);
    take();
    if (peek() == '\\') {
        token.magnitude = readEscape();
    } else if (!atEnd() && base::isAscii(peek()) && peek() != '\'' && peek() != '\n') {
        token.magnitude = static_cast<unsigned char>(take());
    } else {
        fail("a character literal holds one ASCII character or an escape");
    }
    if (peek() != '\'') {
        throw MofError(token.position, "the character literal does not end after one character");
    }
    take();
    return token;
}

char32_t MofLexer::readEscape() {
    const MofPosition start = position_;
    take();
    const char character = atEnd() ? '\0' : take();
    switch (character) {
        case 'b':
            return '\b';
        case 't':
            return '\t';
        case 'n':
            return '\n';
        case 'f':
            return '\f';
        case 'r':
            return '\r';
        case '"':
        case '\'':
        case '\\':
            return static_cast<unsigned char>(character);
        case 'x':
        case 'X':
            return readHexadecimalEscape();
        default:
            throw MofError(start, "unknown escape in a string or character literal");
    }
}

char32_t MofLexer::readHexadecimalEscape() {
    char32_t value = 0;
    int digits = 0;
    while (digits < 4 && base::digitValue(peek()) != base::notADigit) {
        value = value * 16 + base::digitValue(take());
        ++digits;
    }
    if (value == 0 || base::isSurrogate(value)) {
        fail("an escape \\x takes one to four hexadecimal digits of a character");
    }
    return value;
}

}  // namespace cimhost
