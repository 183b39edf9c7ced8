// SPDX-License-Identifier: MIT
// Which classes descend from which, as the server's schema has it.
#pragma once

#include <map>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/OperationContext.h>

#include "base/ThreadSafety.h"

namespace openpegasus {

/// Answers from the server's class definitions and remembers what it learned: clients ask for the
/// same few classes again and again, and each look-up is a call to the server. Any thread may ask.
class ClassAncestry {
public:
    /// Whether a class is `ancestor` or descends from it. A class that the server does not know
    /// descends from nothing. Throws what the server throws otherwise.
    bool isA(const Pegasus::OperationContext& context, const Pegasus::CIMNamespaceName& nameSpace,
             const Pegasus::CIMName& className, const Pegasus::CIMName& ancestor);

private:
    Pegasus::CIMName superClass(const Pegasus::OperationContext& context,
                                const Pegasus::CIMNamespaceName& nameSpace,
                                const Pegasus::CIMName& className);

    base::Mutex mutex_;
    /// By "namespace:class", in lower case; a null name where a class has no superclass.
    std::map<Pegasus::String, Pegasus::CIMName> superClasses_ ZORVA_GUARDED_BY(mutex_);
};

}  // namespace openpegasus
