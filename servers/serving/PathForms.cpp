// SPDX-License-Identifier: MIT
#include "servers/serving/PathForms.h"

#include <Pegasus/Common/Exception.h>

using namespace Pegasus;

namespace serving {

namespace {

/// A path inside a key may hold paths in its own keys; more levels than this are no real path.
constexpr int maximumDepth = 8;

CIMObjectPath canonicalPath(const CIMObjectPath& path, int depth);

/// The path that a key's text spells, or a null path where it spells none.
CIMObjectPath pathInKey(const CIMKeyBinding& key) {
    const bool mayBePath =
        key.getType() == CIMKeyBinding::REFERENCE || key.getType() == CIMKeyBinding::STRING;
    // Parsing throws on anything that is no path; a path that designates an instance has a '='.
    if (!mayBePath || key.getValue().find(Char16('=')) == PEG_NOT_FOUND) {
        return CIMObjectPath();
    }
    try {
        CIMObjectPath path(key.getValue());
        return path.getKeyBindings().size() == 0 ? CIMObjectPath() : path;
    } catch (const Exception&) {
        return CIMObjectPath();
    }
}

CIMKeyBinding canonicalKey(const CIMKeyBinding& key, int depth) {
    const CIMObjectPath path = depth < maximumDepth ? pathInKey(key) : CIMObjectPath();
    if (path.getClassName().isNull()) {
        return key;
    }
    return CIMKeyBinding(key.getName(), canonicalPath(path, depth + 1).toString(),
                         CIMKeyBinding::REFERENCE);
}

CIMObjectPath canonicalPath(const CIMObjectPath& path, int depth) {
    Array<CIMKeyBinding> keys;
    const Array<CIMKeyBinding>& given = path.getKeyBindings();
    for (Uint32 i = 0; i < given.size(); i++) {
        keys.append(canonicalKey(given[i], depth));
    }
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), keys);
}

bool isBare(const CIMObjectPath& path) {
    return path.getHost().size() == 0 && path.getNameSpace().isNull();
}

CIMObjectPath withNamespace(CIMObjectPath path, const CIMNamespaceName& nameSpace) {
    path.setNameSpace(nameSpace);
    return path;
}

CIMValue withNamespaceInReference(const CIMValue& value, const CIMNamespaceName& nameSpace) {
    if (value.getType() != CIMTYPE_REFERENCE || value.isNull()) {
        return value;
    }
    if (!value.isArray()) {
        CIMObjectPath path;
        value.get(path);
        return isBare(path) ? CIMValue(withNamespace(path, nameSpace)) : value;
    }
    Array<CIMObjectPath> given;
    value.get(given);
    Array<CIMObjectPath> paths;
    for (Uint32 i = 0; i < given.size(); i++) {
        const CIMObjectPath& path = given[i];
        paths.append(isBare(path) ? withNamespace(path, nameSpace) : path);
    }
    return CIMValue(paths);
}

}  // namespace

CIMObjectPath withoutLocation(const CIMObjectPath& path) {
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

CIMObjectPath canonicalPath(const CIMObjectPath& path) {
    return canonicalPath(path, 0);
}

bool hasPathKey(const CIMObjectPath& path) {
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); i++) {
        if (!pathInKey(keys[i]).getClassName().isNull()) {
            return true;
        }
    }
    return false;
}

Array<CIMParamValue> withNamespaceInReferences(const Array<CIMParamValue>& parameters,
                                               const CIMNamespaceName& nameSpace) {
    Array<CIMParamValue> filled;
    for (Uint32 i = 0; i < parameters.size(); i++) {
        const CIMParamValue& parameter = parameters[i];
        filled.append(CIMParamValue(parameter.getParameterName(),
                                    withNamespaceInReference(parameter.getValue(), nameSpace),
                                    parameter.isTyped()));
    }
    return filled;
}

}  // namespace serving
