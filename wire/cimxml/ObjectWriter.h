// SPDX-License-Identifier: MIT
// Values, names and instances as CIM-XML.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>

namespace wire {

/// Told how many bytes a text has whenever an element that may be large was appended. What it throws
/// ends the writing.
using SizeWatch = std::function<void(std::size_t bytes)>;

/// Appends elements to a text, each on lines of its own. One thread at a time.
class ObjectWriter {
public:
    /// Writes to the end of `out`. `classOrigin`: whether properties carry the class that declared
    /// them. `watch`, which may be null and must outlive the writer, is told of properties and names
    /// of instances.
    explicit ObjectWriter(std::string& out, bool classOrigin = false,
                          const SizeWatch* watch = nullptr)
        : out_(out), classOrigin_(classOrigin), watch_(watch) {}

    /// LOCALNAMESPACEPATH.
    void localNamespace(const Pegasus::CIMNamespaceName& nameSpace);

    /// CLASSNAME.
    void className(const Pegasus::CIMName& name);

    /// INSTANCENAME: class and keys of a path, without host and namespace.
    void instanceName(const Pegasus::CIMObjectPath& path);

    /// INSTANCEPATH: host, namespace, class and keys of a path.
    void instancePath(const Pegasus::CIMObjectPath& path);

    /// CLASSPATH: host, namespace and class of a path.
    void classPath(const Pegasus::CIMObjectPath& path);

    /// LOCALINSTANCEPATH: class and keys of a path in `nameSpace`, whatever the path itself says.
    void localInstancePath(const Pegasus::CIMNamespaceName& nameSpace,
                           const Pegasus::CIMObjectPath& path);

    /// LOCALCLASSPATH.
    void localClassPath(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& name);

    /// VALUE.REFERENCE: the name of an instance, with host and namespace as far as the path has
    /// them.
    void reference(const Pegasus::CIMObjectPath& path);

    /// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for a null value.
    void value(const Pegasus::CIMValue& value);

    /// PROPERTY, PROPERTY.ARRAY or PROPERTY.REFERENCE.
    void property(const Pegasus::CIMConstProperty& property);

    /// INSTANCE.
    void instance(const Pegasus::CIMInstance& instance);

    /// VALUE.NAMEDINSTANCE: an instance with class and keys of its path.
    void namedInstance(const Pegasus::CIMInstance& instance);

    /// VALUE.OBJECTWITHPATH: an instance with its full path.
    void objectWithPath(const Pegasus::CIMInstance& instance);

    /// OBJECTPATH: the full path of an instance.
    void objectPath(const Pegasus::CIMObjectPath& path);

    /// OBJECTPATH: the full path of a class.
    void classObjectPath(const Pegasus::CIMObjectPath& path);

    /// PARAMVALUE with its type where the parameter is typed.
    void paramValue(const Pegasus::CIMParamValue& parameter);

    /// RETURNVALUE with its type.
    void returnValue(const Pegasus::CIMValue& value);

private:
    void tellSize() const;
    void namespacePath(const Pegasus::CIMObjectPath& path);

    std::string& out_;
    bool classOrigin_;
    const SizeWatch* watch_;
};

}  // namespace wire
