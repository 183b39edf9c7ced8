// SPDX-License-Identifier: MIT
#include "diag/PathKeys.h"

namespace Pegasus {
namespace {

bool isNamed(const CIMKeyBinding& key, const String& name) {
    return String::equalNoCase(key.getName().getString(), name);
}

}  // namespace

String firstKeyValue(const CIMObjectPath& path, const String& name) {
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        if (isNamed(keys[i], name)) {
            return keys[i].getValue();
        }
    }
    return String();
}

void readLastKeyValue(const CIMObjectPath& path, const String& name, String& value) {
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        if (isNamed(keys[i], name)) {
            value = keys[i].getValue();
        }
    }
}

CIMKeyBinding stringKey(const char* name, const String& value) {
    return CIMKeyBinding(CIMName(name), value, CIMKeyBinding::STRING);
}

}  // namespace Pegasus
