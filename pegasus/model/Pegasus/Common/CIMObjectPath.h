// SPDX-License-Identifier: MIT
// Object paths: where an instance or a class is found, and the keys that tell instances apart.
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

/// One key of an object path: a name and the value as text. Copies are independent.
class CIMKeyBinding {
public:
    /// What the text of the value stands for.
    enum Type { BOOLEAN, STRING, NUMERIC, REFERENCE };

    /// No name, no value, type REFERENCE.
    CIMKeyBinding() = default;
    CIMKeyBinding(const CIMName& name, const String& value, Type type)
        : name_(name), value_(value), type_(type) {}
    /// The text and the kind of a value: characters and dates are strings, a null has no text.
    /// Throws TypeMismatchException for an array and for an embedded object.
    CIMKeyBinding(const CIMName& name, const CIMValue& value);

    const CIMName& getName() const { return name_; }
    void setName(const CIMName& name) { name_ = name; }
    const String& getValue() const { return value_; }
    void setValue(const String& value) { value_ = value; }
    Type getType() const { return type_; }
    void setType(Type type) { type_ = type; }

    /// Whether this key holds that value.
    // NOLINTNEXTLINE(readability-make-member-function-const): as OpenPegasus declares it
    Boolean equal(const CIMValue& value);

private:
    CIMName name_;
    String value_;
    Type type_ = REFERENCE;
};

/// Equal names (ignoring case), types and values: strings exactly, Booleans ignoring case, numbers
/// as integers (decimal without leading zeros, or hexadecimal) and references as paths; whatever is
/// not a number or a path is compared as text.
Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y);

/// The path of a class or an instance: host, namespace, class name and keys, each possibly absent.
///
/// The keys are kept in the order of their names, ignoring case; keys of one name in the order
/// given. Copies are independent and cost one counter until one is changed. Different paths may be
/// used by different threads even where one is a copy of the other.
class CIMObjectPath {
public:
    /// A path without any part.
    CIMObjectPath() noexcept;
    /// Reads a path's text as set() does.
    CIMObjectPath(const String& objectName);
    /// Puts the parts together. Throws MalformedObjectNameException if the host is neither empty
    /// nor a host name or address with an optional port. As in OpenPegasus, keys that are not in
    /// order are put in order in the caller's array too, and in all copies that share its elements:
    /// no other thread may use such an array meanwhile.
    CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                  const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());
    CIMObjectPath(const CIMObjectPath& other) noexcept;
    CIMObjectPath(CIMObjectPath&& other) noexcept;
    CIMObjectPath& operator=(const CIMObjectPath& other) noexcept;
    CIMObjectPath& operator=(CIMObjectPath&& other) noexcept;
    ~CIMObjectPath();

    /// Takes all parts away.
    void clear() noexcept;

    /// Replaces all parts, as the constructor does.
    void set(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
             const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());

    /// Reads the text of a path, "[//host/][namespace:]class[.key=value,...]". A string value that
    /// is itself the text of a path with keys becomes a key of type REFERENCE. Throws
    /// MalformedObjectNameException, which names the text and the reason; the path then holds the
    /// parts read before the fault, and no keys.
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
    /// Puts the keys in order, in the caller's array too, as the constructor does.
    void setKeyBindings(const Array<CIMKeyBinding>& keyBindings);

    /// The text of the path, host and namespace included where the path has them.
    String toString() const;

    /// Whether all parts are equal; host, namespace, class and key names ignoring case.
    Boolean identical(const CIMObjectPath& other) const;

private:
    const PathParts& parts() const noexcept;
    PathParts& writableParts();

    Detail::SharedRep<CIMObjectPathRep> rep_;
};

inline Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y) {
    return x.identical(y);
}
inline Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y) {
    return !x.identical(y);
}

}  // namespace Pegasus
