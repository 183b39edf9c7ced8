// SPDX-License-Identifier: MIT
// Parameters of method calls.
#pragma once

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

struct CIMParamValueRep;

/// A handle on a parameter, a named value that a method takes or returns, or a null handle.
///
/// Copies refer to the same parameter; clone() makes a new one. All operations on a null handle
/// except isUninitialized(), copying and assigning throw UninitializedObjectException. Threads: as
/// for CIMProperty.
class CIMParamValue {
public:
    /// A null handle.
    CIMParamValue() noexcept;
    /// A new parameter. `isTyped` tells whether the client specified the type of the value. Throws
    /// UninitializedObjectException for an empty name.
    CIMParamValue(const String& parameterName, const CIMValue& value, Boolean isTyped = true);
    CIMParamValue(const CIMParamValue& other) noexcept;
    CIMParamValue(CIMParamValue&& other) noexcept;
    CIMParamValue& operator=(const CIMParamValue& other) noexcept;
    CIMParamValue& operator=(CIMParamValue&& other) noexcept;
    ~CIMParamValue();

    String getParameterName() const;
    CIMValue getValue() const;
    Boolean isTyped() const;
    /// Throws UninitializedObjectException for an empty name. The arguments of the setters must be
    /// variables, as in OpenPegasus.
    void setParameterName(String& parameterName);
    /// Sets the value, which may be of another type.
    void setValue(CIMValue& value);
    void setIsTyped(Boolean isTyped);

    /// A handle on a new parameter with the same content.
    CIMParamValue clone() const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMParamValueRep& rep() const;

    detail::SharedRep<CIMParamValueRep> rep_;
};

}  // namespace Pegasus
