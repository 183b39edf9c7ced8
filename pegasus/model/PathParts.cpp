// SPDX-License-Identifier: MIT
#include "pegasus/model/PathParts.h"

#include <algorithm>

#include "pegasus/model/HostName.h"
#include "pegasus/model/KeyInteger.h"

namespace Pegasus {

namespace {

bool isBefore(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    return String::compareNoCase(x.getName().getString(), y.getName().getString()) < 0;
}

String textOf(const Char16* begin, const Char16* end) {
    return {begin, static_cast<Uint32>(end - begin)};
}

bool isReference(const String& value) {
    if (value.find('=') == PEG_NOT_FOUND) {
        return false;
    }
    PathParts parts;
    return parsePath(value, parts).size() == 0 && parts.keyBindings.size() != 0;
}

/// Parses the text of a path. Every step returns an empty text, or the reason of its failure.
class PathParser {
public:
    PathParser(const String& text, PathParts& parts)
        : position_(text.getChar16Data()), end_(position_ + text.size()), parts_(parts) {}

    String parse() {
        String fault = parseHost();
        if (fault.size() == 0) {
            fault = parseNameSpace();
        }
        if (fault.size() == 0) {
            fault = parseClassName();
        }
        while (fault.size() == 0 && position_ != end_) {
            fault = parseKey();
        }
        return fault;
    }

private:
    const Char16* find(char c) const { return std::find(position_, end_, Char16(c)); }

    String parseHost() {
        if (end_ - position_ < 2 || position_[0] != '/' || position_[1] != '/') {
            return {};
        }
        position_ += 2;
        const Char16* const slash = find('/');
        if (slash == end_) {
            return "missing slash after hostname";
        }
        const String host = textOf(position_, slash);
        if (!isHostName(host)) {
            return "invalid hostname";
        }
        parts_.host = host;
        position_ = slash;
        return {};
    }

    String parseNameSpace() {
        const Char16* const colon = std::find(position_, find('.'), Char16(':'));
        if (colon == end_ || *colon != ':') {
            return parts_.host.size() == 0 ? "" : "host specified, missing namespace";
        }
        const String nameSpace = textOf(position_, colon);
        if (!CIMNamespaceName::legal(nameSpace)) {
            return "invalid namespace name";
        }
        parts_.nameSpace = nameSpace;
        position_ = colon + 1;
        return {};
    }

    String parseClassName() {
        const Char16* const dot = find('.');
        const String className = textOf(position_, dot);
        if (!CIMName::legal(className)) {
            return "class name " + className + " not a legal CIM name";
        }
        parts_.className = className;
        position_ = dot == end_ ? end_ : dot + 1;
        return {};
    }

    String parseKey() {
        const Char16* const equalSign = find('=');
        if (equalSign == end_) {
            return "invalid key-value pair, missing equal sign";
        }
        const String name = textOf(position_, equalSign);
        if (!CIMName::legal(name)) {
            return "invalid key-value pair, invalid key name:" + name;
        }
        position_ = equalSign + 1;
        String value;
        auto type = CIMKeyBinding::STRING;
        String fault = position_ != end_ && *position_ == '"' ? parseQuoted(value, type)
                                                              : parsePlain(value, type);
        if (fault.size() != 0) {
            return fault;
        }
        parts_.keyBindings.append(CIMKeyBinding(name, value, type));
        if (position_ == end_) {
            return {};
        }
        if (*position_ != ',') {
            return "invalid key-value pair, next key-value pair has to start with comma";
        }
        ++position_;
        return {};
    }

    String parseQuoted(String& value, CIMKeyBinding::Type& type) {
        ++position_;
        const Char16* run = position_;
        while (position_ != end_ && *position_ != '"') {
            if (*position_ == '\\') {
                value.append(run, static_cast<Uint32>(position_ - run));
                ++position_;
                if (position_ == end_ || (*position_ != '"' && *position_ != '\\')) {
                    return "invalid key-value pair, invalid escape in string value";
                }
                run = position_;
            }
            ++position_;
        }
        if (position_ == end_) {
            return "invalid key-value pair, missing closing quote";
        }
        value.append(run, static_cast<Uint32>(position_ - run));
        ++position_;
        type = isReference(value) ? CIMKeyBinding::REFERENCE : CIMKeyBinding::STRING;
        return {};
    }

    String parsePlain(String& value, CIMKeyBinding::Type& type) {
        const Char16* const comma = find(',');
        value = textOf(position_, comma);
        position_ = comma;
        for (const char* const boolean : {"TRUE", "FALSE"}) {
            if (String::equalNoCase(value, boolean)) {
                value = boolean;
                type = CIMKeyBinding::BOOLEAN;
                return {};
            }
        }
        if (!parseKeyInteger(value, Sign::minusOnly)) {
            return "invalid key-value pair, invalid number value " + value;
        }
        type = CIMKeyBinding::NUMERIC;
        return {};
    }

    const Char16* position_;
    const Char16* end_;
    PathParts& parts_;
};

}  // namespace

bool operator==(const PathParts& x, const PathParts& y) {
    if (x.keyBindings.size() != y.keyBindings.size() || x.className != y.className ||
        x.nameSpace != y.nameSpace || !String::equalNoCase(x.host, y.host)) {
        return false;
    }
    const CIMKeyBinding* const keys = x.keyBindings.getData();
    return std::equal(keys, keys + x.keyBindings.size(), y.keyBindings.getData());
}

void sortKeys(const Array<CIMKeyBinding>& keys) {
    // Through the const array on purpose: non-const access would unshare its elements.
    auto* const begin = const_cast<CIMKeyBinding*>(keys.getData());
    CIMKeyBinding* const end = begin + keys.size();
    if (!std::is_sorted(begin, end, isBefore)) {
        std::stable_sort(begin, end, isBefore);
    }
}

String parsePath(const String& text, PathParts& parts) {
    parts = PathParts();
    String fault = PathParser(text, parts).parse();
    if (fault.size() != 0) {
        parts.keyBindings.clear();
    }
    sortKeys(parts.keyBindings);
    return fault;
}

}  // namespace Pegasus
