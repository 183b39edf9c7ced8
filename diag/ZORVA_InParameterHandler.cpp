// SPDX-License-Identifier: MIT
#include "diag/ZORVA_InParameterHandler.h"

#include "diag/InstanceTable.h"
#include "diag/ReturnCode.h"

namespace Pegasus {

ZORVA_InParameterHandler::ZORVA_InParameterHandler(Array<CIMParamValue> inParameters)
    : inParameters_(inParameters) {}

ZORVA_InParameterHandler::~ZORVA_InParameterHandler() = default;

CIMValue ZORVA_InParameterHandler::getInParameterValue(String name) {
    const Array<CIMParamValue>& parameters = inParameters_;
    for (Uint32 i = 0; i < parameters.size(); ++i) {
        if (String::equalNoCase(parameters[i].getParameterName(), name)) {
            return parameters[i].getValue();
        }
    }
    return CIMValue(return_code::absentParameter);
}

Boolean ZORVA_InParameterHandler::isParamTypeReference(CIMValue value) {
    return value.typeCompatible(CIMValue(CIMObjectPath()));
}

CIMInstance ZORVA_InParameterHandler::getInParameterInstance(CIMOMHandle handle,
                                                             CIMValue reference) {
    if (reference.isNull()) {
        return CIMInstance();
    }
    try {
        CIMObjectPath path;
        reference.get(path);
        return handle.getInstance(OperationContext(), path.getNameSpace(),
                                  tablePath(path.getClassName(), path.getKeyBindings()), false,
                                  false, false, CIMPropertyList());
    } catch (const Exception&) {
        return CIMInstance();
    }
}

}  // namespace Pegasus
