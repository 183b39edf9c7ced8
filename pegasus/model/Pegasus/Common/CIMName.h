// SPDX-License-Identifier: MIT
// The names of CIM elements and of namespaces: checked when made, compared without case.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The name of a class, property, method, parameter or qualifier, or no name (null).
///
/// A name begins with a letter, an underscore or a character from U+0080 to U+FFEF; digits may
/// follow. It keeps its case, but names that differ in case only (ASCII) are equal.
class CIMName {
public:
    /// No name.
    constexpr CIMName() noexcept = default;
    /// Throws InvalidNameException, for an empty text too.
    CIMName(const String& name);
    /// The same; a null pointer throws NullPointer.
    CIMName(const char* name);

    const String& getString() const noexcept { return name_; }
    Boolean isNull() const noexcept { return name_.size() == 0; }
    void clear() noexcept { name_.clear(); }
    // Most of the names that a search meets differ in length already.
    Boolean equal(const CIMName& other) const {
        return name_.size() == other.name_.size() && String::equalNoCase(name_, other.name_);
    }

    /// Whether the text can be a name.
    static Boolean legal(const String& name);

private:
    String name_;
};

inline Boolean operator==(const CIMName& x, const CIMName& y) {
    return x.equal(y);
}
inline Boolean operator!=(const CIMName& x, const CIMName& y) {
    return !x.equal(y);
}

/// The name of a namespace, names joined by slashes, or no name (null).
///
/// One slash before the first name is taken off. Names that differ in case only (ASCII) are equal.
class CIMNamespaceName {
public:
    /// No name.
    constexpr CIMNamespaceName() noexcept = default;
    /// Throws InvalidNamespaceNameException, for an empty text too.
    CIMNamespaceName(const String& name);
    /// The same; a null pointer throws NullPointer.
    CIMNamespaceName(const char* name);

    const String& getString() const noexcept { return name_; }
    Boolean isNull() const noexcept { return name_.size() == 0; }
    void clear() noexcept { name_.clear(); }
    Boolean equal(const CIMNamespaceName& other) const {
        return String::equalNoCase(name_, other.name_);
    }

    /// Whether the text can be the name of a namespace.
    static Boolean legal(const String& name);

private:
    String name_;
};

inline Boolean operator==(const CIMNamespaceName& x, const CIMNamespaceName& y) {
    return x.equal(y);
}
inline Boolean operator!=(const CIMNamespaceName& x, const CIMNamespaceName& y) {
    return !x.equal(y);
}

}  // namespace Pegasus
