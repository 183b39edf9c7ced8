// SPDX-License-Identifier: MIT
// The exceptions of the object model. As in OpenPegasus, none is a std::exception.
//
// They are thrown in one library and caught in another, each with its own copy of their code: they
// hold data only, and the library that threw must stay loaded until they are destroyed. Each
// belongs to the thread that caught it.
#pragma once

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Base of all exceptions of the object model. The message tells the reason.
class Exception {
public:
    explicit Exception(const String& message) : message_(message) {}
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    virtual ~Exception() = default;

    virtual const String& getMessage() const { return message_; }

protected:
    Exception() = default;

private:
    String message_;
};

/// An index is past the end of an array, a text or a list.
class IndexOutOfBoundsException : public Exception {
public:
    IndexOutOfBoundsException();
};

/// Something of the same name exists.
class AlreadyExistsException : public Exception {
public:
    explicit AlreadyExistsException(const String& message);
};

/// A text is no CIM name.
class InvalidNameException : public Exception {
public:
    explicit InvalidNameException(const String& name);
};

/// A text is no name of a namespace.
class InvalidNamespaceNameException : public Exception {
public:
    explicit InvalidNamespaceNameException(const String& name);
};

/// An operation on a null handle, or a null or empty name.
class UninitializedObjectException : public Exception {
public:
    UninitializedObjectException();
};

/// A value is not of the required type.
class TypeMismatchException : public Exception {
public:
    TypeMismatchException();
    explicit TypeMismatchException(const String& message);
};

/// An object is not of the required class.
class DynamicCastFailedException : public Exception {
public:
    DynamicCastFailedException();
};

/// A text is neither a point in time nor an interval.
class InvalidDateTimeFormatException : public Exception {
public:
    InvalidDateTimeFormatException();
};

/// A point in time or an interval does not exist or cannot be represented.
class DateTimeOutOfRangeException : public Exception {
public:
    explicit DateTimeOutOfRangeException(const String& message);
};

/// A text is no object path, or no valid part of one.
class MalformedObjectNameException : public Exception {
public:
    explicit MalformedObjectNameException(const String& objectName);
};

/// A CIM operation failed; the client gets the status and the message.
class CIMException : public Exception {
public:
    explicit CIMException(CIMStatusCode code = CIM_ERR_SUCCESS, const String& message = String())
        : Exception(message), code_(code) {}

    CIMStatusCode getCode() const { return code_; }

private:
    CIMStatusCode code_;
};

}  // namespace Pegasus
