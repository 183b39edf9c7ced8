// SPDX-License-Identifier: MIT
// The names of CIM elements and of namespaces.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// The name of a class, property, method, parameter or qualifier, or a null name.
///
/// A name consists of letters, digits, underscores and characters from U+0080 to U+FFEF, and does
/// not begin with a digit. It keeps its case, but names that differ only in the case of ASCII
/// letters are equal. Threads: as for String.
class CIMName {
public:
    /// A null name.
    constexpr CIMName() noexcept = default;
    /// Throws InvalidNameException if the text is not legal(), for example empty.
    CIMName(const String& name);
    /// The same; throws NullPointer for a null pointer.
    CIMName(const char* name);

    const String& getString() const noexcept { return name_; }
    Boolean isNull() const noexcept { return name_.size() == 0; }
    void clear() noexcept { name_.clear(); }
    // The lengths are compared first because they differ for most names in a search.
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

/// The name of a namespace, which consists of names separated by slashes, or a null name.
///
/// A leading slash is removed. Names that differ only in the case of ASCII letters are equal.
/// Threads: as for String.
class CIMNamespaceName {
public:
    /// A null name.
    constexpr CIMNamespaceName() noexcept = default;
    /// Throws InvalidNamespaceNameException if the text is not legal(), for example empty.
    CIMNamespaceName(const String& name);
    /// The same; throws NullPointer for a null pointer.
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
