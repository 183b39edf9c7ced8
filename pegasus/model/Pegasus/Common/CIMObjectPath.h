// SPDX-License-Identifier: MIT
// Object paths, which identify instances and classes.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

class CIMValue;
struct CIMObjectPathRep;
struct PathParts;

/// One key of an object path: a name and a value as text. Copies are independent. Threads: as for
/// String.
class CIMKeyBinding {
public:
    /// The type of the value.
    enum Type { BOOLEAN, STRING, NUMERIC, REFERENCE };

    /// A null name, an empty value, type REFERENCE.
    CIMKeyBinding() = default;
    CIMKeyBinding(const CIMName& name, const String& value, Type type)
        : name_(name), value_(value), type_(type) {}
    /// The text and the type of `value`: characters and dates are strings, the text of a null is
    /// empty. Throws TypeMismatchException for an array and for an embedded object.
    CIMKeyBinding(const CIMName& name, const CIMValue& value);

    const CIMName& getName() const { return name_; }
    void setName(const CIMName& name) { name_ = name; }
    const String& getValue() const { return value_; }
    void setValue(const String& value) { value_ = value; }
    Type getType() const { return type_; }
    void setType(Type type) { type_ = type; }

    /// Whether this key has that value. Throws TypeMismatchException as the constructor does.
    // NOLINTNEXTLINE(readability-make-member-function-const): as OpenPegasus declares it
    Boolean equal(const CIMValue& value);

private:
    CIMName name_;
    String value_;
    Type type_ = REFERENCE;
};

/// Whether names (ignoring case), types and values are equal. Strings are compared exactly,
/// Booleans ignoring case, numbers as integers (decimal without leading zeros, or hexadecimal) and
/// references as paths. Numbers and references that cannot be parsed are compared exactly.
Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y);

/// The path of a class or an instance: host, namespace, class name and keys, each of which may be
/// absent.
///
/// The keys are sorted by name, ignoring case; keys of the same name keep their order. Copies share
/// their parts, with an atomic reference count, until one is changed. Threads: as for String.
class CIMObjectPath {
public:
    /// A path without any part.
    CIMObjectPath() noexcept;
    /// Parses the text of a path as set() does.
    CIMObjectPath(const String& objectName);
    /// A path of these parts. Throws MalformedObjectNameException if the host is neither empty nor
    /// a host name or address with an optional port. As in OpenPegasus, keys that are not sorted
    /// are sorted in the caller's array too, and in all copies that share its elements: no other
    /// thread may use such an array meanwhile.
    CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                  const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());
    CIMObjectPath(const CIMObjectPath& other) noexcept;
    CIMObjectPath(CIMObjectPath&& other) noexcept;
    CIMObjectPath& operator=(const CIMObjectPath& other) noexcept;
    CIMObjectPath& operator=(CIMObjectPath&& other) noexcept;
    ~CIMObjectPath();

    /// Removes all parts.
    void clear() noexcept;

    /// Replaces all parts, as the constructor does.
    void set(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
             const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());

    /// Parses the text of a path, "[//host/][namespace:]class[.key=value,...]". A string value that
    /// is itself the text of a path with keys becomes a key of type REFERENCE. Throws
    /// MalformedObjectNameException with the text and the reason; the path then has the parts
    /// before the error, and no keys.
    void set(const String& objectName);
    CIMObjectPath& operator=(const String& objectName);

    const String& getHost() const noexcept;
    /// Throws MalformedObjectNameException as the constructor does.
    void setHost(const String& host);
    const CIMNamespaceName& getNameSpace() const noexcept;
    void setNameSpace(const CIMNamespaceName& nameSpace);
    const CIMName& getClassName() const noexcept;
    void setClassName(const CIMName& className);
    const Array<CIMKeyBinding>& getKeyBindings() const noexcept;
    /// Sorts the keys, in the caller's array too, as the constructor does.
    void setKeyBindings(const Array<CIMKeyBinding>& keyBindings);

    /// The text of the path, with host and namespace if it has them.
    String toString() const;

    /// Whether all parts are equal: host and names ignoring case, keys as by their operator==.
    Boolean identical(const CIMObjectPath& other) const;

private:
    const PathParts& parts() const noexcept;
    PathParts& writableParts();

    detail::SharedRep<CIMObjectPathRep> rep_;
};

inline Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y) {
    return x.identical(y);
}
inline Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y) {
    return !x.identical(y);
}

}  // namespace Pegasus
