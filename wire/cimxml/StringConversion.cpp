// SPDX-License-Identifier: MIT
#include "wire/cimxml/StringConversion.h"

#include "base/Ascii.h"
#include "base/Utf16.h"
#include "wire/cimxml/XmlError.h"

namespace wire {

std::string toUtf8(const Pegasus::String& text) {
    const Pegasus::Char16* next = text.getChar16Data();
    const Pegasus::Char16* const end = next + text.size();
    const Pegasus::Char16* const plainEnd = next + base::asciiPrefix(next, text.size());
    std::string utf8(next, plainEnd);
    for (next = plainEnd; next != end;) {
        base::appendUtf8(utf8, carriedCharacter(base::readUtf16(next, end)));
    }
    return utf8;
}

Pegasus::String fromUtf8(std::string_view utf8) {
    if (!base::isUtf8(utf8)) {
        throw XmlError(XmlFault::notWellFormed, "text is not UTF-8");
    }
    return {utf8.data(), static_cast<Pegasus::Uint32>(utf8.size())};
}

}  // namespace wire
