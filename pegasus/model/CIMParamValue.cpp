// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMParamValue.h>

namespace Pegasus {

struct CIMParamValueRep {
    detail::ReferenceCount references;
    String parameterName;
    CIMValue value;
    Boolean isTyped;
};

namespace {

const String& requireName(const String& name) {
    if (name.size() == 0) {
        throw UninitializedObjectException();
    }
    return name;
}

}  // namespace

CIMParamValue::CIMParamValue() noexcept = default;
CIMParamValue::CIMParamValue(const CIMParamValue& other) noexcept = default;
CIMParamValue::CIMParamValue(CIMParamValue&& other) noexcept = default;
CIMParamValue& CIMParamValue::operator=(const CIMParamValue& other) noexcept = default;
CIMParamValue& CIMParamValue::operator=(CIMParamValue&& other) noexcept = default;
CIMParamValue::~CIMParamValue() = default;

CIMParamValue::CIMParamValue(const String& parameterName, const CIMValue& value, Boolean isTyped)
    : rep_(new CIMParamValueRep{{}, requireName(parameterName), value, isTyped}) {}

CIMParamValueRep& CIMParamValue::rep() const {
    if (!rep_) {
        throw UninitializedObjectException();
    }
    return *rep_;
}

String CIMParamValue::getParameterName() const {
    return rep().parameterName;
}

CIMValue CIMParamValue::getValue() const {
    return rep().value;
}

Boolean CIMParamValue::isTyped() const {
    return rep().isTyped;
}

void CIMParamValue::setParameterName(String& parameterName) {
    rep().parameterName = requireName(parameterName);
}

void CIMParamValue::setValue(CIMValue& value) {
    rep().value = value;
}

void CIMParamValue::setIsTyped(Boolean isTyped) {
    rep().isTyped = isTyped;
}

CIMParamValue CIMParamValue::clone() const {
    CIMParamValue copy;
    copy.rep_ = detail::SharedRep(new CIMParamValueRep(rep()));
    return copy;
}

}  // namespace Pegasus
