// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMName.h>

#include "base/Ascii.h"

namespace Pegasus {

namespace {

constexpr bool mayBegin(Uint16 unit) {
    return base::isLetter(unit) || unit == '_' || (unit >= 0x0080 && unit <= 0xFFEF);
}

constexpr bool mayFollow(Uint16 unit) {
    return mayBegin(unit) || base::isDigit(unit);
}

bool isName(const Char16* begin, const Char16* end) {
    if (begin == end || !mayBegin(*begin)) {
        return false;
    }
    return std::all_of(begin + 1, end, mayFollow);
}

}  // namespace

CIMName::CIMName(const String& name) : name_(name) {
    if (!legal(name)) {
        throw InvalidNameException(name);
    }
}

CIMName::CIMName(const char* name) : CIMName(String(name)) {}

Boolean CIMName::legal(const String& name) {
    const Char16* const begin = name.getChar16Data();
    return isName(begin, begin + name.size());
}

CIMNamespaceName::CIMNamespaceName(const String& name) : name_(name) {
    if (!legal(name)) {
        throw InvalidNamespaceNameException(name);
    }
    if (name_[0] == '/') {
        name_.remove(0, 1);
    }
}

CIMNamespaceName::CIMNamespaceName(const char* name) : CIMNamespaceName(String(name)) {}

Boolean CIMNamespaceName::legal(const String& name) {
    const Char16* begin = name.getChar16Data();
    const Char16* const end = begin + name.size();
    if (begin != end && *begin == '/') {
        ++begin;
    }
    while (true) {
        const Char16* const slash = std::find(begin, end, Char16('/'));
        if (!isName(begin, slash)) {
            return false;
        }
        if (slash == end) {
            return true;
        }
        begin = slash + 1;
    }
}

}  // namespace Pegasus
