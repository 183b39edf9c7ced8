// SPDX-License-Identifier: MIT
#include "wire/cimxml/ObjectWriter.h"

#include <Pegasus/Common/Array.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"
#include "wire/cimxml/ValueTypes.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

std::string_view valueTypeName(Pegasus::CIMKeyBinding::Type type) {
    switch (type) {
        case Pegasus::CIMKeyBinding::BOOLEAN:
            return "boolean";
        case Pegasus::CIMKeyBinding::NUMERIC:
            return "numeric";
        default:
            return "string";
    }
}

void appendType(std::string& out, std::string_view attribute, Pegasus::CIMType type) {
    appendAttribute(out, attribute, std::string_view(Pegasus::cimTypeToString(type)));
}

template <typename T>
void appendValueElement(std::string& out, const T& value) {
    out += "<VALUE>";
    appendValue(out, value);
    out += "</VALUE>\n";
}

}  // namespace

void ObjectWriter::tellSize() const {
    if (watch_ != nullptr && *watch_) {
        (*watch_)(out_.size());
    }
}

void ObjectWriter::localNamespace(const Pegasus::CIMNamespaceName& nameSpace) {
    out_ += "<LOCALNAMESPACEPATH>\n";
    const std::string path = toUtf8(nameSpace.getString());
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::string_view component = rest.substr(0, rest.find('/'));
        rest.remove_prefix(component.size());
        if (!rest.empty()) {
            rest.remove_prefix(1);
        }
        out_ += "<NAMESPACE";
        appendAttribute(out_, "NAME", component);
        out_ += "/>\n";
    }
    out_ += "</LOCALNAMESPACEPATH>\n";
}

void ObjectWriter::className(const Pegasus::CIMName& name) {
    out_ += "<CLASSNAME";
    appendAttribute(out_, "NAME", name.getString());
    out_ += "/>\n";
}

void ObjectWriter::instanceName(const Pegasus::CIMObjectPath& path) {
    out_ += "<INSTANCENAME";
    appendAttribute(out_, "CLASSNAME", path.getClassName().getString());
    out_ += ">\n";
    const Pegasus::Array<Pegasus::CIMKeyBinding>& keys = path.getKeyBindings();
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {
        out_ += "<KEYBINDING";
        appendAttribute(out_, "NAME", keys[i].getName().getString());
        out_ += ">\n";
        if (keys[i].getType() == Pegasus::CIMKeyBinding::REFERENCE) {
            reference(Pegasus::CIMObjectPath(keys[i].getValue()));
        } else {
            out_ += "<KEYVALUE";
            appendAttribute(out_, "VALUETYPE", valueTypeName(keys[i].getType()));
            out_ += '>';
            appendText(out_, keys[i].getValue());
            out_ += "</KEYVALUE>\n";
        }
        out_ += "</KEYBINDING>\n";
    }
    out_ += "</INSTANCENAME>\n";
    tellSize();
}

void ObjectWriter::namespacePath(const Pegasus::CIMObjectPath& path) {
    out_ += "<NAMESPACEPATH>\n<HOST>";
    appendText(out_, path.getHost());
    out_ += "</HOST>\n";
    localNamespace(path.getNameSpace());
    out_ += "</NAMESPACEPATH>\n";
}

void ObjectWriter::instancePath(const Pegasus::CIMObjectPath& path) {
    out_ += "<INSTANCEPATH>\n";
    namespacePath(path);
    instanceName(path);
    out_ += "</INSTANCEPATH>\n";
}

void ObjectWriter::classPath(const Pegasus::CIMObjectPath& path) {
    out_ += "<CLASSPATH>\n";
    namespacePath(path);
    className(path.getClassName());
    out_ += "</CLASSPATH>\n";
}

void ObjectWriter::localInstancePath(const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& path) {
    out_ += "<LOCALINSTANCEPATH>\n";
    localNamespace(nameSpace);
    instanceName(path);
    out_ += "</LOCALINSTANCEPATH>\n";
}

void ObjectWriter::localClassPath(const Pegasus::CIMNamespaceName& nameSpace,
                                  const Pegasus::CIMName& name) {
    out_ += "<LOCALCLASSPATH>\n";
    localNamespace(nameSpace);
    className(name);
    out_ += "</LOCALCLASSPATH>\n";
}

void ObjectWriter::reference(const Pegasus::CIMObjectPath& path) {
    out_ += "<VALUE.REFERENCE>\n";
    if (path.getNameSpace().isNull()) {
        instanceName(path);
    } else if (path.getHost().size() == 0) {
        localInstancePath(path.getNameSpace(), path);
    } else {
        instancePath(path);
    }
    out_ += "</VALUE.REFERENCE>\n";
}

void ObjectWriter::value(const Pegasus::CIMValue& value) {
    if (value.isNull()) {
        return;
    }
    if (value.getType() == Pegasus::CIMTYPE_REFERENCE) {
        if (!value.isArray()) {
            Pegasus::CIMObjectPath path;
            value.get(path);
            reference(path);
            return;
        }
        Pegasus::Array<Pegasus::CIMObjectPath> paths;
        value.get(paths);
        out_ += "<VALUE.REFARRAY>\n";
        for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
            reference(paths[i]);
        }
        out_ += "</VALUE.REFARRAY>\n";
        return;
    }
    withType(value.getType(), [&](auto tag) {
        using T = typename decltype(tag)::Type;
        if (!value.isArray()) {
            T scalar{};
            value.get(scalar);
            appendValueElement(out_, scalar);
            return;
        }
        Pegasus::Array<T> elements;
        value.get(elements);
        out_ += "<VALUE.ARRAY>\n";
        // Only reading keeps the elements shared with the value.
        const Pegasus::Array<T>& shared = elements;
        for (Pegasus::Uint32 i = 0; i < shared.size(); ++i) {
            appendValueElement(out_, shared[i]);
        }
        out_ += "</VALUE.ARRAY>\n";
    });
}

void ObjectWriter::property(const Pegasus::CIMConstProperty& property) {
    const Pegasus::CIMType type = property.getType();
    std::string_view element = "PROPERTY";
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        element = "PROPERTY.REFERENCE";
    } else if (property.isArray()) {
        element = "PROPERTY.ARRAY";
    }
    out_ += '<';
    out_ += element;
    appendAttribute(out_, "NAME", property.getName().getString());
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        if (!property.getReferenceClassName().isNull()) {
            appendAttribute(out_, "REFERENCECLASS", property.getReferenceClassName().getString());
        }
    } else {
        appendType(out_, "TYPE", type);
    }
    if (property.isArray() && property.getArraySize() != 0) {
        appendAttribute(out_, "ARRAYSIZE", std::to_string(property.getArraySize()));
    }
    if (classOrigin_ && !property.getClassOrigin().isNull()) {
        appendAttribute(out_, "CLASSORIGIN", property.getClassOrigin().getString());
    }
    if (property.getPropagated()) {
        out_ += " PROPAGATED=\"true\"";
    }
    out_ += ">\n";
    value(property.getValue());
    out_ += "</";
    out_ += element;
    out_ += ">\n";
    tellSize();
}

void ObjectWriter::instance(const Pegasus::CIMInstance& instance) {
    out_ += "<INSTANCE";
    appendAttribute(out_, "CLASSNAME", instance.getClassName().getString());
    out_ += ">\n";
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        property(instance.getProperty(i));
    }
    out_ += "</INSTANCE>\n";
}

void ObjectWriter::namedInstance(const Pegasus::CIMInstance& instance) {
    out_ += "<VALUE.NAMEDINSTANCE>\n";
    instanceName(instance.getPath());
    this->instance(instance);
    out_ += "</VALUE.NAMEDINSTANCE>\n";
}

void ObjectWriter::objectWithPath(const Pegasus::CIMInstance& instance) {
    out_ += "<VALUE.OBJECTWITHPATH>\n";
    instancePath(instance.getPath());
    this->instance(instance);
    out_ += "</VALUE.OBJECTWITHPATH>\n";
}

void ObjectWriter::objectPath(const Pegasus::CIMObjectPath& path) {
    out_ += "<OBJECTPATH>\n";
    instancePath(path);
    out_ += "</OBJECTPATH>\n";
}

void ObjectWriter::classObjectPath(const Pegasus::CIMObjectPath& path) {
    out_ += "<OBJECTPATH>\n";
    classPath(path);
    out_ += "</OBJECTPATH>\n";
}

void ObjectWriter::paramValue(const Pegasus::CIMParamValue& parameter) {
    out_ += "<PARAMVALUE";
    appendAttribute(out_, "NAME", parameter.getParameterName());
    if (parameter.isTyped()) {
        appendType(out_, "PARAMTYPE", parameter.getValue().getType());
    }
    out_ += ">\n";
    value(parameter.getValue());
    out_ += "</PARAMVALUE>\n";
}

void ObjectWriter::returnValue(const Pegasus::CIMValue& value) {
    out_ += "<RETURNVALUE";
    appendType(out_, "PARAMTYPE", value.getType());
    out_ += ">\n";
    this->value(value);
    out_ += "</RETURNVALUE>\n";
}

}  // namespace wire
