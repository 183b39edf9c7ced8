// SPDX-License-Identifier: MIT
// Values, names and instances from CIM-XML.
//
// Functions without state; any thread may call them. All throw XmlError (notValid) where an element
// is not what they read: the message names the element and what is wrong with it. Elements that
// servers and clients send and that have no place in the object model (QUALIFIER of an instance)
// are ignored.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>

#include "wire/cimxml/XmlDocument.h"

namespace wire {

/// Throws the XmlError that says that `element` is `what`.
[[noreturn]] void failNotValid(XmlElement element, const std::string& what);

/// The element itself if it has that name, otherwise the failure.
XmlElement expectElement(XmlElement element, std::string_view name);

/// The only element inside; fails for none and for several.
XmlElement onlyChild(XmlElement element);

/// An attribute that must be there.
std::string requiredAttribute(XmlElement element, const char* name);

/// A CIM name in an attribute that must be there.
Pegasus::CIMName nameAttribute(XmlElement element, const char* name);

/// A CIM name in an attribute; a null name where it is absent.
Pegasus::CIMName optionalNameAttribute(XmlElement element, const char* name);

/// A type in an attribute that must be there.
Pegasus::CIMType typeAttribute(XmlElement element, const char* name);

/// Whether a boolean attribute is there and true.
bool trueAttribute(XmlElement element, const char* name);

/// LOCALNAMESPACEPATH.
Pegasus::CIMNamespaceName readLocalNamespace(XmlElement element);

/// INSTANCENAME: a path with class and keys, or CLASSNAME: a path with the class alone.
Pegasus::CIMObjectPath readName(XmlElement element);

/// INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH, CLASSNAME, LOCALCLASSPATH or CLASSPATH: a path
/// with host and namespace as far as they were given.
Pegasus::CIMObjectPath readPath(XmlElement element);

/// The text of a VALUE element.
std::string readValueText(XmlElement element);

/// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY as a value of the type given.
Pegasus::CIMValue readValue(XmlElement element, Pegasus::CIMType type);

/// The value that stands inside an element, or a null one of that type where none does.
Pegasus::CIMValue readContent(XmlElement element, Pegasus::CIMType type, bool isArray);

/// PROPERTY, PROPERTY.ARRAY or PROPERTY.REFERENCE.
Pegasus::CIMProperty readProperty(XmlElement element);

/// INSTANCE. Its path has the class alone.
Pegasus::CIMInstance readInstance(XmlElement element);

/// VALUE.NAMEDINSTANCE, VALUE.OBJECTWITHPATH or VALUE.INSTANCEWITHPATH: an instance with its path.
Pegasus::CIMInstance readInstanceWithPath(XmlElement element);

/// PARAMVALUE. Without PARAMTYPE it is not typed: its value is then a String, an Array<String>, a
/// path or an Array of paths, and if there is none a null String.
Pegasus::CIMParamValue readParamValue(XmlElement element);

}  // namespace wire
