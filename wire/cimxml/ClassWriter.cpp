// SPDX-License-Identifier: MIT
#include "wire/cimxml/ClassWriter.h"

#include <string_view>

#include "wire/cimxml/ObjectWriter.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

/// Writes one CLASS element.
class ClassWriter {
public:
    explicit ClassWriter(std::string& out) : out_(out) {}

    void write(const ClassDefinition& definition) {
        out_ += "<CLASS";
        name(definition.name);
        optionalName("SUPERCLASS", definition.superclass);
        out_ += ">\n";
        qualifiers(definition.qualifiers);
        for (const PropertyDefinition& property : definition.properties) {
            write(property);
        }
        for (const MethodDefinition& method : definition.methods) {
            write(method);
        }
        out_ += "</CLASS>\n";
    }

private:
    void name(const Pegasus::CIMName& name) { appendAttribute(out_, "NAME", name.getString()); }

    void optionalName(std::string_view attribute, const Pegasus::CIMName& name) {
        if (!name.isNull()) {
            appendAttribute(out_, attribute, name.getString());
        }
    }

    void type(Pegasus::CIMType type) {
        appendAttribute(out_, "TYPE", std::string_view(Pegasus::cimTypeToString(type)));
    }

    void flag(std::string_view attribute, bool value, bool otherwise) {
        if (value != otherwise) {
            appendAttribute(out_, attribute, std::string_view(value ? "true" : "false"));
        }
    }

    void arraySize(Pegasus::Uint32 size) {
        if (size != 0) {
            appendAttribute(out_, "ARRAYSIZE", std::to_string(size));
        }
    }

    void open(std::string_view element) {
        out_ += '<';
        out_ += element;
    }

    void close(std::string_view element) {
        out_ += "</";
        out_ += element;
        out_ += ">\n";
    }

    void qualifiers(const Qualifiers& qualifiers) {
        for (const Qualifier& qualifier : qualifiers) {
            open("QUALIFIER");
            name(qualifier.name);
            flag("PROPAGATED", qualifier.propagated, false);
            type(qualifier.value.getType());
            flag("OVERRIDABLE", qualifier.flavor.overridable, true);
            flag("TOSUBCLASS", qualifier.flavor.toSubclass, true);
            flag("TRANSLATABLE", qualifier.flavor.translatable, false);
            out_ += ">\n";
            ObjectWriter(out_).value(qualifier.value);
            close("QUALIFIER");
        }
    }

    void write(const PropertyDefinition& property) {
        const bool isReference = property.type == Pegasus::CIMTYPE_REFERENCE;
        std::string_view element = property.isArray ? "PROPERTY.ARRAY" : "PROPERTY";
        if (isReference) {
            element = "PROPERTY.REFERENCE";
        }
        open(element);
        name(property.name);
        if (isReference) {
            optionalName("REFERENCECLASS", property.referenceClass);
        } else {
            type(property.type);
            arraySize(property.arraySize);
        }
        optionalName("CLASSORIGIN", property.classOrigin);
        flag("PROPAGATED", property.propagated, false);
        out_ += ">\n";
        qualifiers(property.qualifiers);
        ObjectWriter(out_).value(property.defaultValue);
        close(element);
    }

    void write(const MethodDefinition& method) {
        open("METHOD");
        name(method.name);
        type(method.returnType);
        optionalName("CLASSORIGIN", method.classOrigin);
        flag("PROPAGATED", method.propagated, false);
        out_ += ">\n";
        qualifiers(method.qualifiers);
        for (const ParameterDefinition& parameter : method.parameters) {
            write(parameter);
        }
        close("METHOD");
    }

    void write(const ParameterDefinition& parameter) {
        const bool isReference = parameter.type == Pegasus::CIMTYPE_REFERENCE;
        std::string_view element = parameter.isArray ? "PARAMETER.ARRAY" : "PARAMETER";
        if (isReference) {
            element = parameter.isArray ? "PARAMETER.REFARRAY" : "PARAMETER.REFERENCE";
        }
        open(element);
        name(parameter.name);
        if (isReference) {
            optionalName("REFERENCECLASS", parameter.referenceClass);
        } else {
            type(parameter.type);
        }
        arraySize(parameter.arraySize);
        out_ += ">\n";
        qualifiers(parameter.qualifiers);
        close(element);
    }

    std::string& out_;
};

}  // namespace

void appendClass(std::string& out, const ClassDefinition& definition) {
    ClassWriter(out).write(definition);
}

}  // namespace wire
