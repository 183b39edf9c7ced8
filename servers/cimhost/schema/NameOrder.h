// SPDX-License-Identifier: MIT
// Names as keys of ordered containers: CIM compares names without case.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/String.h>

namespace cimhost {

/// Orders CIMName and CIMNamespaceName without case.
struct NameOrder {
    template <class Name>
    bool operator()(const Name& left, const Name& right) const {
        return Pegasus::String::compareNoCase(left.getString(), right.getString()) < 0;
    }
};

}  // namespace cimhost
