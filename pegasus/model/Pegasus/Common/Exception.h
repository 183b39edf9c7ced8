// SPDX-License-Identifier: MIT
// What the object model throws. As in OpenPegasus, nothing here is a std::exception.
//
// These classes are thrown in one library and caught in another, each with its own copy of their
// code: they hold data only, and the library that threw must stay loaded until they are gone.
#pragma once

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Base of all exceptions of the object model: a text that says what went wrong.
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

/// An index beyond the end of an array, a text or a list.
class IndexOutOfBoundsException : public Exception {
public:
    IndexOutOfBoundsException();
};

/// Something is to be added under a name that is taken.
class AlreadyExistsException : public Exception {
public:
    explicit AlreadyExistsException(const String& message);
};

/// A text that cannot be a CIM name.
class InvalidNameException : public Exception {
public:
    explicit InvalidNameException(const String& name);
};

/// A text that cannot be the name of a namespace.
class InvalidNamespaceNameException : public Exception {
public:
    explicit InvalidNamespaceNameException(const String& name);
};

/// A handle that stands for nothing was used.
class UninitializedObjectException : public Exception {
public:
    UninitializedObjectException();
};

/// A value of another type than the place demands.
class TypeMismatchException : public Exception {
public:
    TypeMismatchException();
    explicit TypeMismatchException(const String& message);
};

/// An object is not of the class that it is taken for.
class DynamicCastFailedException : public Exception {
public:
    DynamicCastFailedException();
};

/// A text that is neither a CIM date nor an interval.
class InvalidDateTimeFormatException : public Exception {
public:
    InvalidDateTimeFormatException();
};

/// A date or an interval that does not exist or cannot be represented.
class DateTimeOutOfRangeException : public Exception {
public:
    explicit DateTimeOutOfRangeException(const String& message);
};

/// A text that is no object path, or a part that no path can have.
class MalformedObjectNameException : public Exception {
public:
    explicit MalformedObjectNameException(const String& objectName);
};

/// A CIM operation failed with a status that the client is to see.
class CIMException : public Exception {
public:
    explicit CIMException(CIMStatusCode code = CIM_ERR_SUCCESS, const String& message = String())
        : Exception(message), code_(code) {}

    CIMStatusCode getCode() const { return code_; }

private:
    CIMStatusCode code_;
};

}  // namespace Pegasus
