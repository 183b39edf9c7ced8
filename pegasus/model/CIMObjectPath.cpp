// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMObjectPath.h>

#include "pegasus/model/HostName.h"
#include "pegasus/model/PathParts.h"

namespace Pegasus {

struct CIMObjectPathRep {
    detail::ReferenceCount references;
    PathParts parts;
};

namespace {

// The parts of a path without parts. Initialized before any constructor of a static object runs.
const PathParts noParts{};

String checkedHost(const String& host) {
    if (host.size() != 0 && !isHostName(host)) {
        throw MalformedObjectNameException(host + ", reason:\"invalid hostname\"");
    }
    return host;
}

void appendQuoted(String& text, const String& value) {
    const Char16* const units = value.getChar16Data();
    Uint32 run = 0;
    text.append(Char16('"'));
    for (Uint32 i = 0; i < value.size(); ++i) {
        const Uint16 unit = units[i];
        if (unit == '"' || unit == '\\') {
            text.append(units + run, i - run);
            text.append(Char16('\\'));
            run = i;
        }
    }
    text.append(units + run, value.size() - run);
    text.append(Char16('"'));
}

}  // namespace

CIMObjectPath::CIMObjectPath() noexcept = default;
CIMObjectPath::CIMObjectPath(const CIMObjectPath& other) noexcept = default;
CIMObjectPath::CIMObjectPath(CIMObjectPath&& other) noexcept = default;
CIMObjectPath& CIMObjectPath::operator=(const CIMObjectPath& other) noexcept = default;
CIMObjectPath& CIMObjectPath::operator=(CIMObjectPath&& other) noexcept = default;
CIMObjectPath::~CIMObjectPath() = default;

CIMObjectPath::CIMObjectPath(const String& objectName) {
    set(objectName);
}

CIMObjectPath::CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace,
                             const CIMName& className, const Array<CIMKeyBinding>& keyBindings) {
    set(host, nameSpace, className, keyBindings);
}

const PathParts& CIMObjectPath::parts() const noexcept {
    return rep_ ? rep_->parts : noParts;
}

PathParts& CIMObjectPath::writableParts() {
    if (!rep_ || rep_->references.isShared()) {
        rep_ = detail::SharedRep(new CIMObjectPathRep{{}, parts()});
    }
    return rep_->parts;
}

void CIMObjectPath::clear() noexcept {
    *this = CIMObjectPath();
}

void CIMObjectPath::set(const String& host, const CIMNamespaceName& nameSpace,
                        const CIMName& className, const Array<CIMKeyBinding>& keyBindings) {
    sortKeys(keyBindings);
    rep_ = detail::SharedRep(
        new CIMObjectPathRep{{}, {checkedHost(host), nameSpace, className, keyBindings}});
}

void CIMObjectPath::set(const String& objectName) {
    // A copy, since the text may be a part of this path.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const String text(objectName);
    const String fault = parsePath(text, writableParts());
    if (fault.size() != 0) {
        throw MalformedObjectNameException(text + ", reason:\"" + fault + "\"");
    }
}

CIMObjectPath& CIMObjectPath::operator=(const String& objectName) {
    set(objectName);
    return *this;
}

const String& CIMObjectPath::getHost() const noexcept {
    return parts().host;
}

void CIMObjectPath::setHost(const String& host) {
    writableParts().host = checkedHost(host);
}

const CIMNamespaceName& CIMObjectPath::getNameSpace() const noexcept {
    return parts().nameSpace;
}

void CIMObjectPath::setNameSpace(const CIMNamespaceName& nameSpace) {
    writableParts().nameSpace = nameSpace;
}

const CIMName& CIMObjectPath::getClassName() const noexcept {
    return parts().className;
}

void CIMObjectPath::setClassName(const CIMName& className) {
    writableParts().className = className;
}

const Array<CIMKeyBinding>& CIMObjectPath::getKeyBindings() const noexcept {
    return parts().keyBindings;
}

void CIMObjectPath::setKeyBindings(const Array<CIMKeyBinding>& keyBindings) {
    sortKeys(keyBindings);
    writableParts().keyBindings = keyBindings;
}

String CIMObjectPath::toString() const {
    const PathParts& path = parts();
    const bool hasHost = path.host.size() != 0;
    String text;
    if (hasHost) {
        text.append(Char16('/')).append(Char16('/')).append(path.host).append(Char16('/'));
    }
    if (hasHost || !path.nameSpace.isNull()) {
        text.append(path.nameSpace.getString()).append(Char16(':'));
    }
    text.append(path.className.getString());
    char separator = '.';
    for (Uint32 i = 0; i < path.keyBindings.size(); ++i) {
        const CIMKeyBinding& key = path.keyBindings[i];
        text.append(Char16(separator)).append(key.getName().getString()).append(Char16('='));
        if (key.getType() == CIMKeyBinding::STRING || key.getType() == CIMKeyBinding::REFERENCE) {
            appendQuoted(text, key.getValue());
        } else {
            text.append(key.getValue());
        }
        separator = ',';
    }
    return text;
}

Boolean CIMObjectPath::identical(const CIMObjectPath& other) const {
    return rep_.get() == other.rep_.get() || parts() == other.parts();
}

}  // namespace Pegasus
