// SPDX-License-Identifier: MIT
// The object model's text: stored as UTF-16, converted from and to UTF-8.
#pragma once

#include <cstdlib>
#include <iosfwd>
#include <memory>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A text as a NUL-terminated array of UTF-8 bytes, which are valid while this object exists.
/// Copies are independent. One thread at a time, unless it is only read.
class CString {
public:
    /// Has no text: converts to a null pointer.
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
/// Copies share the text, with an atomic reference count, until one of them is changed. Arguments
/// of type char must be UTF-8, otherwise an Exception tells the position of the error; surrogates,
/// U+FFFE and U+FFFF become U+FFFD. A null pointer throws NullPointer. Indices are checked: an
/// index past the end throws IndexOutOfBoundsException. Operations that ignore case do so for ASCII
/// letters only.
///
/// Threads, here and in the classes that refer to String: one object is used by one thread at a
/// time, unless it is only read; different objects may be used by different threads, even if one
/// is a copy of the other.
class String {
public:
    static const String EMPTY;

    constexpr String() noexcept = default;
    /// The first n code units of a text. Throws IndexOutOfBoundsException if it has fewer.
    String(const String& text, Uint32 n);
    String(const Char16* text);
    String(const Char16* text, Uint32 n);
    String(const char* text);
    /// n bytes of UTF-8, which may contain NUL.
    String(const char* text, Uint32 n);

    /// Replace the text. If `text` is not UTF-8, they throw and the string is empty.
    String& assign(const String& text);
    String& assign(const Char16* text);
    String& assign(const Char16* text, Uint32 n);
    String& assign(const char* text);
    String& assign(const char* text, Uint32 n);

    void clear() noexcept { *this = String(); }
    void reserveCapacity(Uint32 capacity) { units_.reserveCapacity(capacity + 1); }

    /// The number of UTF-16 code units.
    Uint32 size() const noexcept { return units_.size() == 0 ? 0 : units_.size() - 1; }
    /// The code units, followed by NUL; valid until the string is changed.
    const Char16* getChar16Data() const noexcept;
    /// The text in UTF-8. An unpaired surrogate is encoded in three bytes.
    CString getCString() const;

    /// The code unit at the index; at index size() the terminating NUL. The non-const form unshares
    /// the text first.
    Char16& operator[](Uint32 index);
    // NOLINTNEXTLINE(readability-const-return-type): as OpenPegasus declares it
    const Char16 operator[](Uint32 index) const;

    /// Append to the text. If `text` is not UTF-8, they throw and the string is empty.
    String& append(const Char16& unit) { return append(&unit, 1); }
    String& append(const Char16* text, Uint32 n);
    String& append(const String& text);
    String& append(const char* text);
    String& append(const char* text, Uint32 n);

    /// Removes n code units from the index on, by default all of them. Throws
    /// IndexOutOfBoundsException if there are fewer.
    void remove(Uint32 index, Uint32 n = PEG_NOT_FOUND);

    /// At most n code units from the index on; empty if the index is past the end.
    String subString(Uint32 index, Uint32 n = PEG_NOT_FOUND) const;

    /// The first index of a code unit, from an index on if given, or of a text; PEG_NOT_FOUND if
    /// there is none. An empty text is never found.
    Uint32 find(Char16 unit) const;
    Uint32 find(Uint32 index, Char16 unit) const;
    Uint32 find(const String& text) const;
    /// The last index of a code unit, or PEG_NOT_FOUND.
    Uint32 reverseFind(Char16 unit) const;

    /// Converts the ASCII letters to lower case.
    void toLower();

    /// Appends what printf would print, which must be UTF-8.
    void appendPrintf(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Compares by code units: negative, zero or positive if the first text sorts before, equal to
    /// or after the second. At the first code units that differ it is their difference.
    static int compare(const String& s1, const String& s2);
    /// The same for at most the first n code units of each text.
    static int compare(const String& s1, const String& s2, Uint32 n);
    static int compareNoCase(const String& s1, const String& s2);
    static Boolean equal(const String& s1, const String& s2);
    static Boolean equal(const String& s1, const char* s2);
    static Boolean equalNoCase(const String& s1, const String& s2);
    static Boolean equalNoCase(const String& s1, const char* s2);

private:
    friend String operator+(const String& s1, const String& s2);

    /// The code units and a terminating NUL. For the empty text either no elements or just the NUL.
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
