// SPDX-License-Identifier: MIT
#include <algorithm>

#include <Pegasus/Common/CIMInstance.h>

namespace Pegasus {

struct CIMInstanceRep {
    detail::ReferenceCount references;
    CIMObjectPath path;
    Array<CIMProperty> properties;

    const CIMProperty& property(Uint32 index) const { return properties[index]; }
};

CIMInstance::CIMInstance() noexcept = default;
CIMInstance::CIMInstance(const CIMInstance& other) noexcept = default;
CIMInstance::CIMInstance(CIMInstance&& other) noexcept = default;
CIMInstance& CIMInstance::operator=(const CIMInstance& other) noexcept = default;
CIMInstance& CIMInstance::operator=(CIMInstance&& other) noexcept = default;
CIMInstance::~CIMInstance() = default;

CIMInstance::CIMInstance(const CIMName& className) {
    if (className.isNull()) {
        throw UninitializedObjectException();
    }
    rep_ = detail::SharedRep(new CIMInstanceRep{
        {}, CIMObjectPath(String(), CIMNamespaceName(), className), Array<CIMProperty>()});
}

CIMInstanceRep& CIMInstance::rep() const {
    if (!rep_) {
        throw UninitializedObjectException();
    }
    return *rep_;
}

const CIMName& CIMInstance::getClassName() const {
    return rep().path.getClassName();
}

const CIMObjectPath& CIMInstance::getPath() const {
    return rep().path;
}

void CIMInstance::setPath(const CIMObjectPath& path) {
    if (path.getClassName() != getClassName()) {
        throw TypeMismatchException();
    }
    rep().path = path;
}

CIMInstance& CIMInstance::addProperty(const CIMProperty& property) {
    if (findProperty(property.getName()) != PEG_NOT_FOUND) {
        throw AlreadyExistsException("property \"" + property.getName().getString() + "\"");
    }
    rep().properties.append(property);
    return *this;
}

Uint32 CIMInstance::findProperty(const CIMName& name) const {
    const Array<CIMProperty>& properties = rep().properties;
    const CIMProperty* const begin = properties.getData();
    const CIMProperty* const end = begin + properties.size();
    const CIMProperty* const found =
        std::find_if(begin, end, [&](const CIMProperty& each) { return each.getName() == name; });
    return found == end ? PEG_NOT_FOUND : static_cast<Uint32>(found - begin);
}

CIMProperty CIMInstance::getProperty(Uint32 index) {
    return rep().property(index);
}

CIMConstProperty CIMInstance::getProperty(Uint32 index) const {
    return rep().property(index);
}

void CIMInstance::removeProperty(Uint32 index) {
    rep().properties.remove(index);
}

Uint32 CIMInstance::getPropertyCount() const {
    return rep().properties.size();
}

void CIMInstance::instanceFilter(Boolean /*includeQualifiers*/, Boolean includeClassOrigin,
                                 const CIMPropertyList& propertyList) {
    CIMInstanceRep& mine = rep();
    Array<CIMProperty> left;
    for (Uint32 i = 0; i < mine.properties.size(); ++i) {
        CIMProperty property = mine.property(i);
        if (propertyList.useThisProperty(property.getName())) {
            if (!includeClassOrigin) {
                property.setClassOrigin(CIMName());
            }
            left.append(property);
        }
    }
    mine.properties = left;
}

CIMInstance CIMInstance::clone() const {
    const CIMInstanceRep& mine = rep();
    Array<CIMProperty> properties;
    properties.reserveCapacity(mine.properties.size());
    for (Uint32 i = 0; i < mine.properties.size(); ++i) {
        properties.append(mine.property(i).clone());
    }
    CIMInstance copy;
    copy.rep_ = detail::SharedRep(new CIMInstanceRep{{}, mine.path, properties});
    return copy;
}

Boolean CIMInstance::identical(const CIMConstInstance& other) const {
    const CIMInstanceRep& mine = rep();
    if (mine.path != other.getPath() || mine.properties.size() != other.getPropertyCount()) {
        return false;
    }
    for (Uint32 i = 0; i < mine.properties.size(); ++i) {
        if (!mine.property(i).identical(other.getProperty(i))) {
            return false;
        }
    }
    return true;
}

}  // namespace Pegasus
