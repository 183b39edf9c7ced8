// SPDX-License-Identifier: MIT
// Cuts the text of a MOF file into tokens.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "servers/cimhost/mof/MofError.h"

namespace cimhost {

/// One token of MOF.
struct MofToken {
    enum class Kind {
        end,          ///< after the last token
        identifier,   ///< a name or keyword; `text` as written
        alias,        ///< $Name; `text` without the dollar sign
        pragma,       ///< #pragma
        text,         ///< a string literal; `text` with its escapes replaced, UTF-8
        character,    ///< a character literal; its code unit in `magnitude`
        integer,      ///< a whole number; `magnitude` and `negative`
        real,         ///< a number with a fraction or exponent; `text` as written
        punctuation,  ///< one of ( ) { } [ ] , ; : = in `text`
    };

    Kind kind = Kind::end;
    MofPosition position;
    std::string text;
    std::uint64_t magnitude = 0;
    bool negative = false;

    bool isPunctuation(char character) const {
        return kind == Kind::punctuation && text[0] == character;
    }

    /// Whether this is the identifier, compared without case.
    bool isKeyword(std::string_view keyword) const;

    /// The token as an error message names it.
    std::string description() const;
};

/// Reads tokens one after the other. The text must outlive the lexer; one thread uses it at a time.
/// What is no token throws MofError.
class MofLexer {
public:
    MofLexer(std::string_view text, std::string file);

    /// The next token; at the end of the text Kind::end, however often it is asked for.
    MofToken next();

private:
    bool atEnd() const { return offset_ == text_.size(); }
    char peek(std::size_t ahead = 0) const {
        return offset_ + ahead < text_.size() ? text_[offset_ + ahead] : '\0';
    }
    char take();
    void skipSpaceAndComments();
    MofToken readIdentifier();
    MofToken readPragma();
    MofToken readAlias();
    MofToken readNumber();
    MofToken readText();
    MofToken readCharacter();
    char32_t readEscape();
    char32_t readHexadecimalEscape();
    MofToken startToken(MofToken::Kind kind) const;
    [[noreturn]] void fail(const std::string& text) const;

    std::string_view text_;
    std::size_t offset_ = 0;
    MofPosition position_;
};

}  // namespace cimhost
