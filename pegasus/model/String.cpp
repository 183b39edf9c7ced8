// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ostream>
#include <string>

#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Common/String.h>

#include "base/Ascii.h"
#include "base/Utf16.h"

namespace Pegasus {

namespace {

constexpr Char16 terminator;

template <class T>
const T* requireText(const T* text) {
    if (text == nullptr) {
        throw NullPointer();
    }
    return text;
}

Uint32 lengthOf(const char* text) {
    return static_cast<Uint32>(std::strlen(requireText(text)));
}

Uint32 lengthOf(const Char16* text) {
    const Char16* end = requireText(text);
    while (*end != terminator) {
        ++end;
    }
    return static_cast<Uint32>(end - text);
}

/// The units, followed by the terminator; no elements if there are no units.
Array<Char16> terminated(const Char16* units, std::size_t size) {
    if (size == 0) {
        return {};
    }
    Array<Char16> text(static_cast<Uint32>(size) + 1);
    std::copy_n(units, size, &text[0]);
    return text;
}

/// Throws an Exception with the text before the bytes that are not UTF-8 and the first of these in
/// hexadecimal.
[[noreturn]] void throwNotUtf8(const char* bytes, std::size_t size, std::size_t index) {
    constexpr std::size_t bytesShown = 11;
    String message;
    message.appendPrintf("The byte sequence starting at index %zu is not valid UTF-8 encoding: ",
                         index);
    message.append(bytes, static_cast<Uint32>(index));
    for (std::size_t i = index; i < std::min(size, index + bytesShown); ++i) {
        message.appendPrintf(" 0x%02X", static_cast<unsigned>(static_cast<Uint8>(bytes[i])));
    }
    throw Exception(message);
}

/// Code points that UTF-8 can encode but that are no characters become U+FFFD.
constexpr auto characterFor = [](char32_t code) {
    const bool isCharacter = !base::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF;
    return isCharacter ? code : base::replacementCharacter;
};

Array<Char16> fromUtf8(const char* bytes, std::size_t size) {
    if (size == 0) {
        return {};
    }
    if (size > Array<Char16>::maximumCapacity) {
        throw std::bad_alloc();
    }
    Array<Char16> text(static_cast<Uint32>(size) + 1);
    const base::Utf8Converted converted = base::utf8ToUtf16(bytes, size, &text[0], characterFor);
    if (converted.bytesRead != size) {
        throwNotUtf8(bytes, size, converted.bytesRead);
    }
    // Removes the unused zeros after the text, except one.
    text.remove(static_cast<Uint32>(converted.unitsWritten),
                static_cast<Uint32>(size - converted.unitsWritten));
    return text;
}

constexpr Uint16 lowered(Uint16 unit) {
    return base::toLower(unit);
}

constexpr Uint16 unchanged(Uint16 unit) {
    return unit;
}

template <class Fold>
int compareUnits(const String& s1, const String& s2, Uint32 limit, Fold fold) {
    const Uint32 size1 = std::min(s1.size(), limit);
    const Uint32 size2 = std::min(s2.size(), limit);
    const Char16* const units1 = s1.getChar16Data();
    const Char16* const units2 = s2.getChar16Data();
    for (Uint32 i = 0; i < std::min(size1, size2); ++i) {
        const int difference = fold(units1[i]) - fold(units2[i]);
        if (difference != 0) {
            return difference;
        }
    }
    return static_cast<int>(size1 > size2) - static_cast<int>(size1 < size2);
}

constexpr auto isSame = [](Uint16 x, Uint16 y) { return x == y; };

constexpr auto isSameLetter = [](Uint16 x, Uint16 y) { return x == y || lowered(x) == lowered(y); };

template <class Unit, class Same>
bool equalUnits(const String& s1, const Unit* units2, std::size_t size2, Same same) {
    return s1.size() == size2 && std::equal(units2, units2 + size2, s1.getChar16Data(), same);
}

/// Copies share their text, so it need not be compared.
template <class Same>
bool equalTexts(const String& s1, const String& s2, Same same) {
    const Char16* const units2 = s2.getChar16Data();
    return s1.getChar16Data() == units2 || equalUnits(s1, units2, s2.size(), same);
}

template <class Same>
bool equalTexts(const String& s1, const char* s2, Same same) {
    const Uint32 size2 = lengthOf(s2);
    if (base::asciiPrefix(s2, size2) != size2) {
        return equalTexts(s1, String(s2, size2), same);
    }
    return equalUnits(s1, s2, size2, same);
}

}  // namespace

CString::CString(const CString& other) {
    *this = other;
}

CString& CString::operator=(const CString& other) {
    if (this != &other) {
        bytes_.reset();
        if (other.bytes_) {
            const std::size_t size = std::strlen(other.bytes_.get()) + 1;
            bytes_ = std::make_unique<char[]>(size);
            std::copy_n(other.bytes_.get(), size, bytes_.get());
        }
    }
    return *this;
}

const String String::EMPTY;

String::String(const String& text, Uint32 n) {
    if (n > text.size()) {
        detail::throwIndexOutOfBounds();
    }
    units_ = terminated(text.getChar16Data(), n);
}

String::String(const Char16* text) : String(text, lengthOf(text)) {}

String::String(const Char16* text, Uint32 n) : units_(terminated(requireText(text), n)) {}

String::String(const char* text) : units_(fromUtf8(text, lengthOf(text))) {}

String::String(const char* text, Uint32 n) : units_(fromUtf8(requireText(text), n)) {}

String& String::assign(const String& text) {
    return *this = text;
}

String& String::assign(const Char16* text) {
    return *this = String(text);
}

String& String::assign(const Char16* text, Uint32 n) {
    return *this = String(text, n);
}

String& String::assign(const char* text) {
    return assign(text, lengthOf(text));
}

String& String::assign(const char* text, Uint32 n) {
    try {
        return *this = String(text, n);
    } catch (const Exception&) {
        clear();
        throw;
    }
}

const Char16* String::getChar16Data() const noexcept {
    return units_.size() == 0 ? &terminator : units_.getData();
}

CString String::getCString() const {
    const std::size_t bytes = base::utf8Size(getChar16Data(), size());
    std::unique_ptr<char[]> text(new char[bytes + 1]);
    *base::utf16ToUtf8(getChar16Data(), size(), text.get()) = '\0';
    return CString(std::move(text));
}

Char16& String::operator[](Uint32 index) {
    if (units_.size() == 0) {
        units_.append(terminator);
    }
    return units_[index];
}

// NOLINTNEXTLINE(readability-const-return-type): as OpenPegasus declares it
const Char16 String::operator[](Uint32 index) const {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    return getChar16Data()[index];
}

String& String::append(const Char16* text, Uint32 n) {
    if (n == 0) {
        return *this;
    }
    requireText(text);
    if (units_.getCapacity() == 0) {
        units_ = terminated(text, n);
        return *this;
    }
    if (units_.size() == 0) {
        units_.append(terminator);
    }
    // First after the terminator, then moved over it: `text` may point into this string.
    const Uint32 oldSize = size();
    units_.append(text, n);
    Char16* const end = &units_[oldSize];
    std::copy_n(end + 1, n, end);
    end[n] = terminator;
    return *this;
}

String& String::append(const String& text) {
    if (size() == 0) {
        return *this = text;
    }
    return append(text.getChar16Data(), text.size());
}

String& String::append(const char* text) {
    return append(text, lengthOf(text));
}

String& String::append(const char* text, Uint32 n) {
    try {
        return append(String(text, n));
    } catch (const Exception&) {
        clear();
        throw;
    }
}

void String::remove(Uint32 index, Uint32 n) {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    if (n == PEG_NOT_FOUND) {
        n = size() - index;
    }
    if (n > size() - index) {
        detail::throwIndexOutOfBounds();
    }
    units_.remove(index, n);
}

String String::subString(Uint32 index, Uint32 n) const {
    if (index >= size()) {
        return {};
    }
    if (index == 0 && n >= size()) {
        return *this;
    }
    return {getChar16Data() + index, std::min(n, size() - index)};
}

Uint32 String::find(Char16 unit) const {
    return find(0, unit);
}

Uint32 String::find(Uint32 index, Char16 unit) const {
    if (index > size()) {
        detail::throwIndexOutOfBounds();
    }
    const Char16* const begin = getChar16Data();
    const Char16* const end = begin + size();
    const Char16* const found = std::find(begin + index, end, unit);
    return found == end ? PEG_NOT_FOUND : static_cast<Uint32>(found - begin);
}

Uint32 String::find(const String& text) const {
    if (text.size() == 0) {
        return PEG_NOT_FOUND;
    }
    const Char16* const begin = getChar16Data();
    const Char16* const end = begin + size();
    const Char16* const found =
        std::search(begin, end, text.getChar16Data(), text.getChar16Data() + text.size());
    return found == end ? PEG_NOT_FOUND : static_cast<Uint32>(found - begin);
}

Uint32 String::reverseFind(Char16 unit) const {
    const Char16* const units = getChar16Data();
    for (Uint32 i = size(); i > 0; --i) {
        if (units[i - 1] == unit) {
            return i - 1;
        }
    }
    return PEG_NOT_FOUND;
}

void String::toLower() {
    if (size() != 0) {
        Char16* const units = &units_[0];
        std::transform(units, units + size(), units, lowered);
    }
}

void String::appendPrintf(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start has initialised it
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length < 0 ? 0 : static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    append(String(text.data(), static_cast<Uint32>(text.size())));
}

int String::compare(const String& s1, const String& s2) {
    return compareUnits(s1, s2, PEG_NOT_FOUND, unchanged);
}

int String::compare(const String& s1, const String& s2, Uint32 n) {
    return compareUnits(s1, s2, n, unchanged);
}

int String::compareNoCase(const String& s1, const String& s2) {
    return compareUnits(s1, s2, PEG_NOT_FOUND, lowered);
}

Boolean String::equal(const String& s1, const String& s2) {
    return equalTexts(s1, s2, isSame);
}

Boolean String::equal(const String& s1, const char* s2) {
    return equalTexts(s1, s2, isSame);
}

Boolean String::equalNoCase(const String& s1, const String& s2) {
    return equalTexts(s1, s2, isSameLetter);
}

Boolean String::equalNoCase(const String& s1, const char* s2) {
    return equalTexts(s1, s2, isSameLetter);
}

Boolean operator==(const String& s1, const String& s2) {
    return String::equal(s1, s2);
}
Boolean operator==(const String& s1, const char* s2) {
    return String::equal(s1, s2);
}
Boolean operator==(const char* s1, const String& s2) {
    return String::equal(s2, s1);
}
Boolean operator!=(const String& s1, const String& s2) {
    return !String::equal(s1, s2);
}
Boolean operator!=(const String& s1, const char* s2) {
    return !String::equal(s1, s2);
}
Boolean operator!=(const char* s1, const String& s2) {
    return !String::equal(s2, s1);
}
Boolean operator<(const String& s1, const String& s2) {
    return String::compare(s1, s2) < 0;
}
Boolean operator<=(const String& s1, const String& s2) {
    return String::compare(s1, s2) <= 0;
}
Boolean operator>(const String& s1, const String& s2) {
    return String::compare(s1, s2) > 0;
}
Boolean operator>=(const String& s1, const String& s2) {
    return String::compare(s1, s2) >= 0;
}

String operator+(const String& s1, const String& s2) {
    // One buffer of exactly this size: the result of + is rarely appended to.
    const Uint32 size = s1.size() + s2.size();
    if (size == 0) {
        return {};
    }
    Array<Char16> units(size + 1);
    std::copy_n(s2.getChar16Data(), s2.size(),
                std::copy_n(s1.getChar16Data(), s1.size(), &units[0]));
    String sum;
    sum.units_.swap(units);
    return sum;
}

String operator+(const String& s1, const char* s2) {
    return s1 + String(s2);
}
String operator+(const char* s1, const String& s2) {
    return String(s1) + s2;
}

std::ostream& operator<<(std::ostream& stream, const String& text) {
    return stream << text.getCString();
}

}  // namespace Pegasus
