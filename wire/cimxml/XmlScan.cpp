// SPDX-License-Identifier: MIT
#include "wire/cimxml/XmlScan.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Whether a name may begin with this byte. Bytes of characters beyond ASCII are taken as letters.
bool isNameStart(char c) {
    return base::isLetter(c) || c == '_' || c == ':' || !base::isAscii(c);
}

bool isNamePart(char c) {
    return isNameStart(c) || base::isDigit(c) || c == '.' || c == '-';
}

class Scanner {
public:
    Scanner(std::string_view document, const XmlLimits& limits)
        : document_(document), limits_(limits) {}

    void scan() {
        scanDeclaration();
        while (at_ < document_.size()) {
            const std::size_t tag = std::min(document_.find('<', at_), document_.size());
            scanText(document_.substr(at_, tag - at_));
            at_ = tag;
            if (at_ < document_.size()) {
                scanMarkup();
            }
        }
        if (!open_.empty()) {
            fail("the element " + quoted(open_.back()) + " is not closed");
        }
        if (elements_ == 0) {
            fail(XmlFault::notValid, "there is no element");
        }
    }

private:
    [[noreturn]] void fail(XmlFault fault, const std::string& what) const {
        const auto line = 1 + std::count(document_.begin(),
                                         document_.begin() + static_cast<std::ptrdiff_t>(
                                                                 std::min(at_, document_.size())),
                                         '\n');
        throw XmlError(fault, "line " + std::to_string(line) + ": " + what);
    }

    [[noreturn]] void fail(const std::string& what) const { fail(XmlFault::notWellFormed, what); }

    static std::string quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

    bool startsWith(std::string_view text) const {
        return document_.compare(at_, text.size(), text) == 0;
    }

    void skipSpace() {
        while (at_ < document_.size() && isSpace(document_[at_])) {
            ++at_;
        }
    }

    /// The character here, or NUL at the end.
    char here() const { return at_ < document_.size() ? document_[at_] : '\0'; }

    std::string_view name() {
        const std::size_t begin = at_;
        if (!isNameStart(here())) {
            fail("a name is expected");
        }
        while (isNamePart(here())) {
            ++at_;
        }
        return document_.substr(begin, at_ - begin);
    }

    void scanDeclaration() {
        if (startsWith("\xEF\xBB\xBF")) {
            at_ += 3;
        }
        skipSpace();
        if (!startsWith("<?xml") || at_ + 5 >= document_.size() || !isSpace(document_[at_ + 5])) {
            fail(XmlFault::notValid, "the document does not begin with an XML declaration");
        }
    }

    void scanText(std::string_view text) {
        const bool blank = std::all_of(text.begin(), text.end(), isSpace);
        if (blank) {
            return;
        }
        if (open_.empty()) {
            fail("there is text outside the root element");
        }
        scanReferences(text);
    }

    void scanReferences(std::string_view text) {
        if (text.find('&') == std::string_view::npos) {
            return;
        }
        try {
            decoded_.clear();
            appendDecoded(decoded_, text);
        } catch (const XmlError& error) {
            fail(error.what());
        }
    }

    /// Moves to what follows the next `end`.
    void skipBehind(std::string_view end, const char* what) {
        const std::size_t found = document_.find(end, at_);
        if (found == std::string_view::npos) {
            fail(std::string(what) + " is not closed");
        }
        at_ = found + end.size();
    }

    void scanMarkup() {
        if (startsWith("<?")) {
            skipBehind("?>", "a processing instruction");
        } else if (startsWith("<!--")) {
            at_ += 4;
            skipBehind("-->", "a comment");
        } else if (startsWith("<![CDATA[")) {
            if (open_.empty()) {
                fail("there is text outside the root element");
            }
            skipBehind("]]>", "a CDATA section");
        } else if (startsWith("<!DOCTYPE")) {
            fail(XmlFault::notValid, "document type declarations are refused");
        } else if (startsWith("</")) {
            scanClosingTag();
        } else {
            scanOpeningTag();
        }
    }

    void scanClosingTag() {
        at_ += 2;
        const std::string_view closed = name();
        skipSpace();
        if (here() != '>') {
            fail("the closing tag of " + quoted(closed) + " does not end");
        }
        if (open_.empty() || open_.back() != closed) {
            fail("the closing tag of " + quoted(closed) + " does not match" +
                 (open_.empty() ? "" : " the element " + quoted(open_.back())));
        }
        open_.pop_back();
        ++at_;
    }

    void scanOpeningTag() {
        ++at_;
        const std::string_view element = name();
        if (open_.empty() && elements_ > 0) {
            fail("there is a second root element, " + quoted(element));
        }
        if (++elements_ > limits_.elements) {
            fail("there are more than " + std::to_string(limits_.elements) + " elements");
        }
        if (open_.size() >= limits_.depth) {
            fail("elements are nested more than " + std::to_string(limits_.depth) + " deep");
        }
        scanAttributes(element);
        if (here() == '/') {
            ++at_;
        } else {
            open_.push_back(element);
        }
        if (here() != '>') {
            fail("the tag of " + quoted(element) + " does not end");
        }
        ++at_;
    }

    void scanAttributes(std::string_view element) {
        attributes_.clear();
        while (true) {
            const bool separated = isSpace(here());
            skipSpace();
            if (!isNameStart(here())) {
                return;
            }
            if (!separated) {
                fail("attributes of " + quoted(element) + " are not separated");
            }
            const std::string_view attribute = name();
            if (std::find(attributes_.begin(), attributes_.end(), attribute) != attributes_.end()) {
                fail("the attribute " + quoted(attribute) + " is given twice");
            }
            attributes_.push_back(attribute);
            if (attributes_.size() > limits_.attributes) {
                fail("the element " + quoted(element) + " has more than " +
                     std::to_string(limits_.attributes) + " attributes");
            }
            scanAttributeValue(attribute);
        }
    }

    void scanAttributeValue(std::string_view attribute) {
        skipSpace();
        if (here() != '=') {
            fail("the attribute " + quoted(attribute) + " has no value");
        }
        ++at_;
        skipSpace();
        const char quote = here();
        if (quote != '"' && quote != '\'') {
            fail("the value of the attribute " + quoted(attribute) + " is not quoted");
        }
        const std::size_t begin = ++at_;
        const std::size_t end = document_.find(quote, begin);
        if (end == std::string_view::npos) {
            fail("the value of the attribute " + quoted(attribute) + " does not end");
        }
        const std::string_view value = document_.substr(begin, end - begin);
        if (value.find('<') != std::string_view::npos) {
            fail("the value of the attribute " + quoted(attribute) + " holds a \"<\"");
        }
        scanReferences(value);
        at_ = end + 1;
    }

    std::string_view document_;
    const XmlLimits& limits_;
    std::size_t at_ = 0;
    std::size_t elements_ = 0;
    std::vector<std::string_view> open_;
    std::vector<std::string_view> attributes_;
    std::string decoded_;
};

}  // namespace

void scanXml(std::string_view document, const XmlLimits& limits) {
    if (!base::isUtf8(document)) {
        throw XmlError(XmlFault::notValid, "the document is not UTF-8");
    }
    if (document.find('\0') != std::string_view::npos) {
        throw XmlError(XmlFault::notWellFormed, "the document holds a NUL character");
    }
    Scanner(document, limits).scan();
}

}  // namespace wire
