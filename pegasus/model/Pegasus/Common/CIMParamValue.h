// SPDX-License-Identifier: MIT
// A parameter of a method call.
#pragma once

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

struct CIMParamValueRep;

/// A handle on a named value that a method takes or returns, or on nothing.
///
/// Copies stand for the same parameter; clone() makes one of its own. Apart from isUninitialized(),
/// copying and assigning, every operation on a handle that stands for nothing throws
/// UninitializedObjectException. Threads that share a parameter must not change it while another
/// uses it.
class CIMParamValue {
public:
    /// A handle on nothing.
    CIMParamValue() noexcept;
    /// `isTyped` tells whether the client stated the value's type. Throws
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
    /// Throws UninitializedObjectException for an empty name. As in OpenPegasus the setters take
    /// variables only.
    void setParameterName(String& parameterName);
    /// Sets a value of any type.
    void setValue(CIMValue& value);
    void setIsTyped(Boolean isTyped);

    CIMParamValue clone() const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMParamValueRep& rep() const;

    Detail::SharedRep<CIMParamValueRep> rep_;
};

}  // namespace Pegasus
