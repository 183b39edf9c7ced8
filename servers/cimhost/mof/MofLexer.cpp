// SPDX-License-Identifier: MIT
#include "servers/cimhost/mof/MofLexer.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace cimhost {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isSpace(char character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// Bytes above 127 belong to letters; the names themselves are checked by the object model.
bool startsName(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           character == '_' || static_cast<unsigned char>(character) >= 0x80;
}

bool continuesName(char character) {
    return startsName(character) || isDigit(character);
}

bool continuesUtf8(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

char lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

int digitValue(char character) {
    if (isDigit(character)) {
        return character - '0';
    }
    const char letter = lower(character);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

void appendUtf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

/// Digits of the base as a number; false if it does not fit 64 bits or a digit is none of the base.
bool parseDigits(std::string_view digits, unsigned base, std::uint64_t& value) {
    value = 0;
    for (const char character : digits) {
        const int digit = digitValue(character);
        if (digit < 0 || static_cast<unsigned>(digit) >= base ||
            value >
                (std::numeric_limits<std::uint64_t>::max() - static_cast<unsigned>(digit)) / base) {
            return false;
        }
        value = value * base + static_cast<unsigned>(digit);
    }
    return !digits.empty();
}

}  // namespace

bool MofToken::isKeyword(std::string_view keyword) const {
    return kind == Kind::Identifier &&
           std::equal(text.begin(), text.end(), keyword.begin(), keyword.end(),
                      [](char left, char right) { return lower(left) == lower(right); });
}

std::string MofToken::description() const {
    switch (kind) {
        case Kind::End:
            return "the end of the file";
        case Kind::Identifier:
        case Kind::Punctuation:
        case Kind::Real:
            return "'" + text + "'";
        case Kind::Alias:
            return "'$" + text + "'";
        case Kind::Pragma:
            return "'#pragma'";
        case Kind::Text:
            return "a string";
        case Kind::Character:
            return "a character";
        case Kind::Integer:
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
    } else if (!continuesUtf8(character)) {
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
        return startToken(MofToken::Kind::End);
    }
    const char character = peek();
    if (startsName(character)) {
        return readIdentifier();
    }
    if (isDigit(character) || character == '+' || character == '-' || character == '.') {
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
    MofToken token = startToken(MofToken::Kind::Punctuation);
    token.text = std::string(1, take());
    return token;
}

MofToken MofLexer::readIdentifier() {
    MofToken token = startToken(MofToken::Kind::Identifier);
    while (continuesName(peek())) {
        token.text += take();
    }
    return token;
}

MofToken MofLexer::readPragma() {
    MofToken token = startToken(MofToken::Kind::Pragma);
    take();
    if (!startsName(peek()) || !readIdentifier().isKeyword("pragma")) {
        throw MofError(token.position, "'#' is not followed by 'pragma'");
    }
    return token;
}

MofToken MofLexer::readAlias() {
    MofToken token = startToken(MofToken::Kind::Alias);
    take();
    if (!startsName(peek())) {
        fail("'$' is not followed by the name of an alias");
    }
    token.text = readIdentifier().text;
    return token;
}

MofToken MofLexer::readNumber() {
    MofToken token = startToken(MofToken::Kind::Integer);
    if (peek() == '+' || peek() == '-') {
        token.negative = take() == '-';
    }
    std::string digits;
    bool exponentSign = false;
    while (continuesName(peek()) || peek() == '.' || exponentSign) {
        const char character = take();
        digits += character;
        const bool hexadecimal = digits.size() > 1 && lower(digits[1]) == 'x';
        exponentSign = !hexadecimal && lower(character) == 'e' && (peek() == '+' || peek() == '-');
    }

    const bool isHexadecimal = digits.size() > 2 && digits[0] == '0' && lower(digits[1]) == 'x';
    const bool isBinary = !isHexadecimal && !digits.empty() && lower(digits.back()) == 'b';
    bool understood = false;
    if (isHexadecimal) {
        understood = parseDigits(std::string_view(digits).substr(2), 16, token.magnitude);
    } else if (isBinary) {
        understood =
            parseDigits(std::string_view(digits).substr(0, digits.size() - 1), 2, token.magnitude);
    } else if (digits.find_first_of(".eE") != std::string::npos) {
        token.kind = MofToken::Kind::Real;
        token.text = (token.negative ? "-" : "") + digits;
        const auto point = digits.find('.');
        understood = digits.find_first_not_of("0123456789.eE+-") == std::string::npos &&
                     point != std::string::npos && point + 1 < digits.size() &&
                     isDigit(digits[point + 1]) && isDigit(digits.back()) &&
                     digits.find('.', point + 1) == std::string::npos;
    } else {
        const bool isOctal = digits.size() > 1 && digits[0] == '0';
        understood = parseDigits(digits, isOctal ? 8 : 10, token.magnitude);
    }
    if (!understood) {
        throw MofError(token.position, "'" + digits + "' is not a number of at most 64 bits");
    }
    return token;
}

MofToken MofLexer::readText() {
    MofToken token = startToken(MofToken::Kind::Text);
    take();
    while (peek() != '"') {
        if (atEnd() || peek() == '\n' || peek() == '\0') {
            throw MofError(token.position, "the string does not end on its line");
        }
        if (peek() == '\\') {
            appendUtf8(token.text, readEscape());
        } else {
            token.text += take();
        }
    }
    take();
    return token;
}

MofToken MofLexer::readCharacter() {
    MofToken token = startToken(MofToken::Kind::Character);
    take();
    if (peek() == '\\') {
        token.magnitude = readEscape();
    } else if (!atEnd() && static_cast<unsigned char>(peek()) < 0x80 && peek() != '\'' &&
               peek() != '\n') {
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
    while (digits < 4 && digitValue(peek()) >= 0) {
        value = value * 16 + static_cast<char32_t>(digitValue(take()));
        ++digits;
    }
    if (value == 0 || (value >= 0xD800 && value < 0xE000)) {
        fail("an escape \\x takes one to four hexadecimal digits of a character");
    }
    return value;
}

}  // namespace cimhost
