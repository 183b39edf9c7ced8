// SPDX-License-Identifier: MIT
// Values of all CIM types.
#pragma once

#include <variant>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A scalar or an array of one of the CIM types, or a null of such a type.
///
/// Copies are independent. The C++ type of the argument selects the CIM type: CIMValue(4) is a
/// Sint32, and a string literal would be a Boolean, so write CIMValue(String("text")). Values of
/// CIMTYPE_OBJECT and CIMTYPE_INSTANCE can only be null here. Threads: as for String.
class CIMValue {
public:
    /// A null Boolean.
    CIMValue() noexcept;
    /// A null of a type; `arraySize` is the declared size of an array, or 0.
    CIMValue(CIMType type, Boolean isArray, Uint32 arraySize = 0);

    CIMValue(Boolean x);
    CIMValue(char x);
    CIMValue(Uint8 x);
    CIMValue(Sint8 x);
    CIMValue(Uint16 x);
    CIMValue(Sint16 x);
    CIMValue(Uint32 x);
    CIMValue(Sint32 x);
    CIMValue(Uint64 x);
    CIMValue(Sint64 x);
    CIMValue(Real32 x);
    CIMValue(Real64 x);
    CIMValue(const Char16& x);
    CIMValue(const String& x);
    CIMValue(const CIMDateTime& x);
    CIMValue(const CIMObjectPath& x);
    CIMValue(const Array<Boolean>& x);
    CIMValue(const Array<Uint8>& x);
    CIMValue(const Array<Sint8>& x);
    CIMValue(const Array<Uint16>& x);
    CIMValue(const Array<Sint16>& x);
    CIMValue(const Array<Uint32>& x);
    CIMValue(const Array<Sint32>& x);
    CIMValue(const Array<Uint64>& x);
    CIMValue(const Array<Sint64>& x);
    CIMValue(const Array<Real32>& x);
    CIMValue(const Array<Real64>& x);
    CIMValue(const Array<Char16>& x);
    CIMValue(const Array<String>& x);
    CIMValue(const Array<CIMDateTime>& x);
    CIMValue(const Array<CIMObjectPath>& x);

    CIMValue(const CIMValue& other) noexcept;
    CIMValue(CIMValue&& other) noexcept;
    CIMValue& operator=(const CIMValue& other) noexcept;
    CIMValue& operator=(CIMValue&& other) noexcept;
    ~CIMValue();

    void assign(const CIMValue& other) noexcept { *this = other; }
    /// Makes this a null Boolean.
    void clear() noexcept;

    /// Whether both have the same type and are both arrays or both scalars.
    Boolean typeCompatible(const CIMValue& other) const noexcept;
    Boolean isArray() const noexcept;
    Boolean isNull() const noexcept;
    /// The number of elements; the declared size of a null array; 0 for a scalar.
    Uint32 getArraySize() const;
    CIMType getType() const noexcept;

    /// Makes this a null of a type, as the constructor does.
    void setNullValue(CIMType type, Boolean isArray, Uint32 arraySize = 0);

    /// Replace the value and its type.
    void set(Boolean x);
    void set(char x);
    void set(Uint8 x);
    void set(Sint8 x);
    void set(Uint16 x);
    void set(Sint16 x);
    void set(Uint32 x);
    void set(Sint32 x);
    void set(Uint64 x);
    void set(Sint64 x);
    void set(Real32 x);
    void set(Real64 x);
    void set(const Char16& x);
    void set(const String& x);
    void set(const CIMDateTime& x);
    void set(const CIMObjectPath& x);
    void set(const Array<Boolean>& x);
    void set(const Array<Uint8>& x);
    void set(const Array<Sint8>& x);
    void set(const Array<Uint16>& x);
    void set(const Array<Sint16>& x);
    void set(const Array<Uint32>& x);
    void set(const Array<Sint32>& x);
    void set(const Array<Uint64>& x);
    void set(const Array<Sint64>& x);
    void set(const Array<Real32>& x);
    void set(const Array<Real64>& x);
    void set(const Array<Char16>& x);
    void set(const Array<String>& x);
    void set(const Array<CIMDateTime>& x);
    void set(const Array<CIMObjectPath>& x);

    /// Copy the value to a variable of exactly its type. A null leaves the variable unchanged. A
    /// value or null of another type throws TypeMismatchException and leaves it unchanged.
    void get(Boolean& x) const;
    void get(Uint8& x) const;
    void get(Sint8& x) const;
    void get(Uint16& x) const;
    void get(Sint16& x) const;
    void get(Uint32& x) const;
    void get(Sint32& x) const;
    void get(Uint64& x) const;
    void get(Sint64& x) const;
    void get(Real32& x) const;
    void get(Real64& x) const;
    void get(Char16& x) const;
    void get(String& x) const;
    void get(CIMDateTime& x) const;
    void get(CIMObjectPath& x) const;
    void get(Array<Boolean>& x) const;
    void get(Array<Uint8>& x) const;
    void get(Array<Sint8>& x) const;
    void get(Array<Uint16>& x) const;
    void get(Array<Sint16>& x) const;
    void get(Array<Uint32>& x) const;
    void get(Array<Sint32>& x) const;
    void get(Array<Uint64>& x) const;
    void get(Array<Sint64>& x) const;
    void get(Array<Real32>& x) const;
    void get(Array<Real64>& x) const;
    void get(Array<Char16>& x) const;
    void get(Array<String>& x) const;
    void get(Array<CIMDateTime>& x) const;
    void get(Array<CIMObjectPath>& x) const;

    /// Whether types and values are equal. A null equals only a null of the same type, scalar or
    /// array. Throws TypeMismatchException for a point in time and an interval.
    Boolean equal(const CIMValue& other) const;

    /// The value as text: "TRUE" or "FALSE", numbers in decimal, reals with 17 digits and an
    /// exponent, empty for a null. Each element of an array is followed by a blank.
    String toString() const;

private:
    struct Null {
        CIMType type;
        Boolean isArray;
        Uint32 arraySize;
    };
    /// The scalars are in the order of CIMType, followed by the arrays in the same order.
    using Data =
        std::variant<Null, Boolean, Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64, Sint64,
                     Real32, Real64, Char16, String, CIMDateTime, CIMObjectPath, Array<Boolean>,
                     Array<Uint8>, Array<Sint8>, Array<Uint16>, Array<Sint16>, Array<Uint32>,
                     Array<Sint32>, Array<Uint64>, Array<Sint64>, Array<Real32>, Array<Real64>,
                     Array<Char16>, Array<String>, Array<CIMDateTime>, Array<CIMObjectPath>>;

    template <class T>
    void copyTo(T& x) const;

    Data data_;
};

inline Boolean operator==(const CIMValue& x, const CIMValue& y) {
    return x.equal(y);
}
inline Boolean operator!=(const CIMValue& x, const CIMValue& y) {
    return !x.equal(y);
}

}  // namespace Pegasus
