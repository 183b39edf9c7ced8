// SPDX-License-Identifier: MIT
// The object model's text: UTF-16 inside, UTF-8 towards char.
#pragma once

#include <cstdlib>
#include <iosfwd>
#include <memory>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A text as a NUL-terminated array of UTF-8 bytes, which live as long as this object does.
class CString {
public:
    /// Converts to a null pointer.
    CString() = default;
    CString(const CString& other);
    CString(CString&& other) noexcept = default;
    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept = default;
    ~CString() = default;

    operator const char*() const noexcept { return bytes_.get(); }

private:
    explicit CString(std::unique_ptr<char[]> bytes) noexcept : bytes_(std::move(bytes)) {}

    std::unique_ptr<char[]> bytes_;

    friend class String;
};

/// A text of UTF-16 code units.
///
/// A copy costs one counter; the text itself is copied when one of the copies is changed. Bytes
/// handed in as char must be UTF-8, otherwise a plain Exception says where they are not; code
/// points that UTF-16 has no character for (surrogates, U+FFFE, U+FFFF) become U+FFFD. A null
/// pointer throws NullPointer. Indices are checked: one beyond the end throws
/// IndexOutOfBoundsException. Cases are ignored for the letters of ASCII only. Different strings
/// may be used by different threads even where one is a copy of the other.
class String {
public:
    static const String EMPTY;

    constexpr String() noexcept = default;
    /// The first n code units of a text that has at least as many.
    String(const String& text, Uint32 n);
    String(const Char16* text);
    String(const Char16* text, Uint32 n);
    String(const char* text);
    /// n bytes of UTF-8, among which NUL is a character like any other.
    String(const char* text, Uint32 n);

    /// Replace the text; when `text` is not UTF-8, the old text is lost.
    String& assign(const String& text);
    String& assign(const Char16* text);
    String& assign(const Char16* text, Uint32 n);
    String& assign(const char* text);
    String& assign(const char* text, Uint32 n);

    void clear() noexcept { *this = String(); }
    void reserveCapacity(Uint32 capacity) { units_.reserveCapacity(capacity + 1); }

    /// Number of UTF-16 code units.
    Uint32 size() const noexcept { return units_.size() == 0 ? 0 : units_.size() - 1; }
    /// The code units, NUL behind the last one; valid until the string is changed.
    const Char16* getChar16Data() const noexcept;
    /// The text in UTF-8; half a surrogate pair becomes the three bytes of its number.
    CString getCString() const;

    /// The code unit at the index; at index size() it is the terminator. The non-const form gives
    /// this string a text of its own first.
    Char16& operator[](Uint32 index);
    // NOLINTNEXTLINE(readability-const-return-type): as OpenPegasus declares it
    const Char16 operator[](Uint32 index) const;

    /// Add to the end; when `text` is not UTF-8, the old text is lost.
    String& append(const Char16& unit) { return append(&unit, 1); }
    String& append(const Char16* text, Uint32 n);
    String& append(const String& text);
    String& append(const char* text);
    String& append(const char* text, Uint32 n);

    /// Removes n code units from the index on; by default all of them.
    void remove(Uint32 index, Uint32 n = PEG_NOT_FOUND);

    /// At most n code units from the index on; nothing if the index is beyond the end.
    String subString(Uint32 index, Uint32 n = PEG_NOT_FOUND) const;

    /// The first index of a code unit or a text, the former possibly from an index on;
    /// PEG_NOT_FOUND if there is none. An empty text is found nowhere.
    Uint32 find(Char16 unit) const;
    Uint32 find(Uint32 index, Char16 unit) const;
    Uint32 find(const String& text) const;
    /// The last index of a code unit, or PEG_NOT_FOUND.
    Uint32 reverseFind(Char16 unit) const;

    void toLower();

    /// Appends what printf would print; the result must be UTF-8.
    void appendPrintf(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Negative, zero or positive as the first text sorts before, with or after the second, by code
    /// units; at the first that differ it is their difference.
    static int compare(const String& s1, const String& s2);
    /// The same for at most the first n code units of each.
    static int compare(const String& s1, const String& s2, Uint32 n);
    static int compareNoCase(const String& s1, const String& s2);
    static Boolean equal(const String& s1, const String& s2);
    static Boolean equal(const String& s1, const char* s2);
    static Boolean equalNoCase(const String& s1, const String& s2);
    static Boolean equalNoCase(const String& s1, const char* s2);

private:
    friend String operator+(const String& s1, const String& s2);

    /// The code units and a terminating NUL; empty, or the NUL alone, for the empty text.
    Array<Char16> units_;
};

Boolean operator==(const String& s1, const String& s2);
Boolean operator==(const String& s1, const char* s2);
Boolean operator==(const char* s1, const String& s2);
Boolean operator!=(const String& s1, const String& s2);
Boolean operator!=(const String& s1, const char* s2);
Boolean operator!=(const char* s1, const String& s2);
Boolean operator<(const String& s1, const String& s2);
Boolean operator<=(const String& s1, const String& s2);
Boolean operator>(const String& s1, const String& s2);
Boolean operator>=(const String& s1, const String& s2);

String operator+(const String& s1, const String& s2);
String operator+(const String& s1, const char* s2);
String operator+(const char* s1, const String& s2);

/// Writes the text in UTF-8.
std::ostream& operator<<(std::ostream& stream, const String& text);

}  // namespace Pegasus
