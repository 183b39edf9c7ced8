// SPDX-License-Identifier: MIT
#include <utility>

#include <Pegasus/Common/CIMProperty.h>

namespace Pegasus {

struct CIMPropertyRep {
    detail::ReferenceCount references;
    CIMName name;
    CIMValue value;
    Uint32 arraySize;
    CIMName referenceClassName;
    CIMName classOrigin;
    Boolean propagated;
};

namespace {

const CIMName& requireName(const CIMName& name) {
    if (name.isNull()) {
        throw UninitializedObjectException();
    }
    return name;
}

bool isOfFixedSize(const CIMValue& value, Uint32 arraySize) {
    return arraySize == 0 || value.getArraySize() == arraySize ||
           (value.isArray() && value.isNull());
}

}  // namespace

CIMProperty::CIMProperty() noexcept = default;
CIMProperty::CIMProperty(const CIMProperty& other) noexcept = default;
CIMProperty::CIMProperty(CIMProperty&& other) noexcept = default;
CIMProperty& CIMProperty::operator=(const CIMProperty& other) noexcept = default;
CIMProperty& CIMProperty::operator=(CIMProperty&& other) noexcept = default;
CIMProperty::~CIMProperty() = default;

CIMProperty::CIMProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize,
                         const CIMName& referenceClassName, const CIMName& classOrigin,
                         Boolean propagated) {
    const bool isReference = value.getType() == CIMTYPE_REFERENCE && !value.isArray();
    if (!isOfFixedSize(value, arraySize) || (!referenceClassName.isNull() && !isReference)) {
        throw TypeMismatchException();
    }
    rep_ = detail::SharedRep(new CIMPropertyRep{
        {}, requireName(name), value, arraySize, referenceClassName, classOrigin, propagated});
}

CIMPropertyRep& CIMProperty::rep() const {
    if (!rep_) {
        throw UninitializedObjectException();
    }
    return *rep_;
}

const CIMName& CIMProperty::getName() const {
    return rep().name;
}

void CIMProperty::setName(const CIMName& name) {
    rep().name = requireName(name);
}

const CIMValue& CIMProperty::getValue() const {
    return rep().value;
}

CIMType CIMProperty::getType() const {
    return rep().value.getType();
}

Boolean CIMProperty::isArray() const {
    return rep().value.isArray();
}

void CIMProperty::setValue(CIMValue value) {
    if (!rep().value.typeCompatible(value) || !isOfFixedSize(value, rep().arraySize)) {
        throw TypeMismatchException();
    }
    rep().value = std::move(value);
}

Uint32 CIMProperty::getArraySize() const {
    return rep().arraySize;
}

const CIMName& CIMProperty::getReferenceClassName() const {
    return rep().referenceClassName;
}

const CIMName& CIMProperty::getClassOrigin() const {
    return rep().classOrigin;
}

void CIMProperty::setClassOrigin(const CIMName& classOrigin) {
    rep().classOrigin = classOrigin;
}

Boolean CIMProperty::getPropagated() const {
    return rep().propagated;
}

void CIMProperty::setPropagated(Boolean propagated) {
    rep().propagated = propagated;
}

Boolean CIMProperty::identical(const CIMConstProperty& other) const {
    const CIMPropertyRep& mine = rep();
    return mine.name == other.getName() && mine.value == other.getValue() &&
           mine.arraySize == other.getArraySize() &&
           mine.referenceClassName == other.getReferenceClassName() &&
           mine.classOrigin == other.getClassOrigin() && mine.propagated == other.getPropagated();
}

CIMProperty CIMProperty::clone() const {
    CIMProperty copy;
    copy.rep_ = detail::SharedRep(new CIMPropertyRep(rep()));
    return copy;
}

}  // namespace Pegasus
