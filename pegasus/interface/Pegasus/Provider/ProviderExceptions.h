// SPDX-License-Identifier: MIT
// The exceptions by which a provider rejects a request. Each has the CIM status that the client
// gets, so servers need not translate them. Like all exceptions of the object model they hold data
// only, and the library that threw must stay loaded until they are destroyed.
#pragma once

#include <Pegasus/Common/Exception.h>

namespace Pegasus {
inline namespace provider_interface {

/// The request names an instance that does not exist: status 6, not found. The message is the text
/// after "bad reference: ".
class BadReference : public CIMException {
public:
    explicit BadReference(const String& text)
        : CIMException(CIM_ERR_NOT_FOUND, String("bad reference: ") + text) {}
};

/// An instance does not have a property that the request needs: status 12, no such property. The
/// message is the text after "no such property: ".
class NoSuchProperty : public CIMException {
public:
    explicit NoSuchProperty(const String& text)
        : CIMException(CIM_ERR_NO_SUCH_PROPERTY, String("no such property: ") + text) {}
};

/// The provider does not implement the operation for this property: status 7, not supported. The
/// message is the text after "not implemented: ".
class NotImplemented : public CIMException {
public:
    explicit NotImplemented(const String& text)
        : CIMException(CIM_ERR_NOT_SUPPORTED, String("not implemented: ") + text) {}
};

/// The provider does not support the operation: status 7, not supported. The message is the text.
class NotSupported : public CIMException {
public:
    explicit NotSupported(const String& text) : CIMException(CIM_ERR_NOT_SUPPORTED, text) {}
};

}  // namespace provider_interface
}  // namespace Pegasus
