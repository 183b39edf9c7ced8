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
        End,          ///< after the last token
        Identifier,   ///< a name or keyword; `text` as written
        Alias,        ///< $Name; `text` without the dollar sign
        Pragma,       ///< #pragma
        Text,         ///< a string literal; `text` with its escapes replaced, UTF-8
        Character,    ///< a character literal; its code unit in `magnitude`
        Integer,      ///< a whole number; `magnitude` and `negative`
        Real,         ///< a number with a fraction or exponent; `text` as written
        Punctuation,  ///< one of ( ) { } [ ] , ; : = in `text`
    };

    Kind kind = Kind::End;
    MofPosition position;
    std::string text;
    std::uint64_t magnitude = 0;
    bool negative = false;

    bool isPunctuation(char character) const {
        return kind == Kind::Punctuation && text[0] == character;
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

    /// The next token; at the end of the text Kind::End, however often it is asked for.
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
