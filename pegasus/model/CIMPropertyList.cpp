// SPDX-License-Identifier: MIT
#include <algorithm>

#include <Pegasus/Common/CIMPropertyList.h>

namespace Pegasus {

void CIMPropertyList::set(const Array<CIMName>& propertyNames) {
    const CIMName* const begin = propertyNames.getData();
    const CIMName* const end = begin + propertyNames.size();
    if (std::any_of(begin, end, [](const CIMName& name) { return name.isNull(); })) {
        throw UninitializedObjectException();
    }
    names_ = propertyNames;
    isNull_ = false;
}

void CIMPropertyList::clear() {
    *this = CIMPropertyList();
}

Boolean CIMPropertyList::contains(const CIMName& name) const {
    const CIMName* const begin = names_.getData();
    const CIMName* const end = begin + names_.size();
    return std::find(begin, end, name) != end;
}

}  // namespace Pegasus
