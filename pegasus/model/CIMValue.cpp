// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <iomanip>
#include <locale>
#include <sstream>
#include <type_traits>

#include <Pegasus/Common/CIMValue.h>

namespace Pegasus {

namespace {

constexpr std::size_t scalarTypes = 15;

template <class T>
struct ArrayTraits : std::false_type {};
template <class T>
struct ArrayTraits<Array<T>> : std::true_type {};

template <class T>
constexpr bool isArrayType = ArrayTraits<T>::value;

/// The index of a type among the alternatives of a variant.
template <class T, class Variant>
struct IndexOf;
template <class T, class... Alternatives>
struct IndexOf<T, std::variant<Alternatives...>> {
    static constexpr std::size_t find() {
        std::size_t index = 0;
        for (const bool isSame : {std::is_same_v<T, Alternatives>...}) {
            if (isSame) {
                break;
            }
            ++index;
        }
        return index;
    }
};

/// The type of the alternative at an index other than 0.
constexpr CIMType typeAt(std::size_t index) {
    return static_cast<CIMType>((index - 1) % scalarTypes);
}

template <class T>
bool isEqual(const T& x, const T& y) {
    if constexpr (isArrayType<T>) {
        return x.size() == y.size() && std::equal(x.getData(), x.getData() + x.size(), y.getData());
    } else {
        return x == y;
    }
}

void appendText(String& text, Boolean x) {
    text.append(x ? "TRUE" : "FALSE");
}

template <class Number>
std::enable_if_t<std::is_integral_v<Number>> appendText(String& text, Number x) {
    constexpr std::size_t mostDigits = 24;
    char digits[mostDigits];
    const char* const end = std::to_chars(digits, digits + mostDigits, x).ptr;
    text.append(digits, static_cast<Uint32>(end - digits));
}

void appendText(String& text, Real64 x) {
    constexpr int digitsAfterPoint = 16;
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << std::scientific << std::setprecision(digitsAfterPoint) << x;
    text.append(stream.str().c_str());
}

void appendText(String& text, Real32 x) {
    appendText(text, Real64{x});
}
void appendText(String& text, const Char16& x) {
    text.append(x);
}
void appendText(String& text, const String& x) {
    text.append(x);
}
void appendText(String& text, const CIMDateTime& x) {
    text.append(x.toString());
}
void appendText(String& text, const CIMObjectPath& x) {
    text.append(x.toString());
}

template <class T>
void appendText(String& text, const Array<T>& x) {
    for (Uint32 i = 0; i < x.size(); ++i) {
        appendText(text, x[i]);
        text.append(Char16(' '));
    }
}

}  // namespace

CIMValue::CIMValue() noexcept : data_(Null{CIMTYPE_BOOLEAN, false, 0}) {}
CIMValue::CIMValue(const CIMValue& other) noexcept = default;
CIMValue::CIMValue(CIMValue&& other) noexcept = default;
CIMValue& CIMValue::operator=(const CIMValue& other) noexcept = default;
CIMValue& CIMValue::operator=(CIMValue&& other) noexcept = default;
CIMValue::~CIMValue() = default;

CIMValue::CIMValue(CIMType type, Boolean isArray, Uint32 arraySize) {
    setNullValue(type, isArray, arraySize);
}

// Constructor, set and get for a type and for arrays of it. Templates cannot replace the macro:
// overload resolution must convert arguments as it does for the declared functions.
// NOLINTBEGIN(bugprone-macro-parentheses): types
#define ZORVA_VALUE_OF(Type, Parameter)                    \
    CIMValue::CIMValue(Parameter x) : data_(x) {}          \
    CIMValue::CIMValue(const Array<Type>& x) : data_(x) {} \
    void CIMValue::set(Parameter x) {                      \
        data_ = x;                                         \
    }                                                      \
    void CIMValue::set(const Array<Type>& x) {             \
        data_ = x;                                         \
    }                                                      \
    void CIMValue::get(Type& x) const {                    \
        copyTo(x);                                         \
    }                                                      \
    void CIMValue::get(Array<Type>& x) const {             \
        copyTo(x);                                         \
    }

// NOLINTEND(bugprone-macro-parentheses)
ZORVA_VALUE_OF(Boolean, Boolean)
ZORVA_VALUE_OF(Uint8, Uint8)
ZORVA_VALUE_OF(Sint8, Sint8)
ZORVA_VALUE_OF(Uint16, Uint16)
ZORVA_VALUE_OF(Sint16, Sint16)
ZORVA_VALUE_OF(Uint32, Uint32)
ZORVA_VALUE_OF(Sint32, Sint32)
ZORVA_VALUE_OF(Uint64, Uint64)
ZORVA_VALUE_OF(Sint64, Sint64)
ZORVA_VALUE_OF(Real32, Real32)
ZORVA_VALUE_OF(Real64, Real64)
ZORVA_VALUE_OF(Char16, const Char16&)
ZORVA_VALUE_OF(String, const String&)
ZORVA_VALUE_OF(CIMDateTime, const CIMDateTime&)
ZORVA_VALUE_OF(CIMObjectPath, const CIMObjectPath&)
#undef ZORVA_VALUE_OF

CIMValue::CIMValue(char x) : CIMValue(static_cast<Sint8>(x)) {}
void CIMValue::set(char x) {
    set(static_cast<Sint8>(x));
}

template <class T>
void CIMValue::copyTo(T& x) const {
    if (const T* const value = std::get_if<T>(&data_)) {
        x = *value;
        return;
    }
    const Null* const null = std::get_if<Null>(&data_);
    if (null == nullptr || null->isArray != isArrayType<T> ||
        null->type != typeAt(IndexOf<T, Data>::find())) {
        throw TypeMismatchException();
    }
}

void CIMValue::clear() noexcept {
    *this = CIMValue();
}

Boolean CIMValue::typeCompatible(const CIMValue& other) const noexcept {
    return getType() == other.getType() && isArray() == other.isArray();
}

Boolean CIMValue::isArray() const noexcept {
    const Null* const null = std::get_if<Null>(&data_);
    return null == nullptr ? data_.index() > scalarTypes : null->isArray;
}

Boolean CIMValue::isNull() const noexcept {
    return std::holds_alternative<Null>(data_);
}

CIMType CIMValue::getType() const noexcept {
    const Null* const null = std::get_if<Null>(&data_);
    return null == nullptr ? typeAt(data_.index()) : null->type;
}

Uint32 CIMValue::getArraySize() const {
    return std::visit(
        [](const auto& x) -> Uint32 {
            using T = std::decay_t<decltype(x)>;
            if constexpr (isArrayType<T>) {
                return x.size();
            } else if constexpr (std::is_same_v<T, Null>) {
                return x.arraySize;
            } else {
                return 0;
            }
        },
        data_);
}

void CIMValue::setNullValue(CIMType type, Boolean isArray, Uint32 arraySize) {
    data_ = Null{type, isArray, isArray ? arraySize : 0};
}

Boolean CIMValue::equal(const CIMValue& other) const {
    if (data_.index() != other.data_.index()) {
        return false;
    }
    return std::visit(
        [this, &other](const auto& x) {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, Null>) {
                return typeCompatible(other);
            } else {
                return isEqual(x, *std::get_if<T>(&other.data_));
            }
        },
        data_);
}

String CIMValue::toString() const {
    String text;
    std::visit(
        [&text](const auto& x) {
            if constexpr (!std::is_same_v<std::decay_t<decltype(x)>, Null>) {
                appendText(text, x);
            }
        },
        data_);
    return text;
}

}  // namespace Pegasus
