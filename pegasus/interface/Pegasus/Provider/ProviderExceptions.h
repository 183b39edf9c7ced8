// SPDX-License-Identifier: MIT
// The exceptions with which a provider refuses a request. Each carries the CIM status under which
// the client sees it, so whoever serves the provider passes them on as they are.
#pragma once

#include <Pegasus/Common/Exception.h>

namespace Pegasus {
inline namespace provider_interface {

/// The request names an instance that does not exist: status 6, not found.
class BadReference : public CIMException {
public:
    explicit BadReference(const String& text)
        : CIMException(CIM_ERR_NOT_FOUND, String("bad reference: ") + text) {}
};

/// A stored instance lacks a property that the request needs: status 12, no such property.
class NoSuchProperty : public CIMException {
public:
    explicit NoSuchProperty(const String& text)
        : CIMException(CIM_ERR_NO_SUCH_PROPERTY, String("no such property: ") + text) {}
};

/// The provider has no such operation on this property: status 7, not supported.
class NotImplemented : public CIMException {
public:
    explicit NotImplemented(const String& text)
        : CIMException(CIM_ERR_NOT_SUPPORTED, String("not implemented: ") + text) {}
};

/// The provider refuses the whole operation: status 7, not supported, with the text as it stands.
class NotSupported : public CIMException {
public:
    explicit NotSupported(const String& text) : CIMException(CIM_ERR_NOT_SUPPORTED, text) {}
};

}  // namespace provider_interface
}  // namespace Pegasus
