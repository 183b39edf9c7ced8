// SPDX-License-Identifier: MIT
#include "wire/cimxml/RequestWriter.h"

#include <utility>

#include <Pegasus/Common/CIMValue.h>

#include "wire/cimxml/Message.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

OperationRequestWriter::OperationRequestWriter(std::string_view messageId,
                                               std::string_view operation,
                                               const Pegasus::CIMNamespaceName& nameSpace)
    : objects_(out_) {
    beginMessage(out_, messageId);
    out_ += "<SIMPLEREQ>\n<IMETHODCALL";
    appendAttribute(out_, "NAME", operation);
    out_ += ">\n";
    objects_.localNamespace(nameSpace);
}

void OperationRequestWriter::begin(std::string_view parameter) {
    out_ += "<IPARAMVALUE";
    appendAttribute(out_, "NAME", parameter);
    out_ += ">\n";
}

void OperationRequestWriter::end() {
    out_ += "</IPARAMVALUE>\n";
}

void OperationRequestWriter::className(std::string_view parameter, const Pegasus::CIMName& name) {
    if (name.isNull()) {
        return;
    }
    begin(parameter);
    objects_.className(name);
    end();
}

void OperationRequestWriter::instanceName(std::string_view parameter,
                                          const Pegasus::CIMObjectPath& path) {
    begin(parameter);
    objects_.instanceName(path);
    end();
}

void OperationRequestWriter::boolean(std::string_view parameter, bool value) {
    begin(parameter);
    objects_.value(Pegasus::CIMValue(value));
    end();
}

void OperationRequestWriter::text(std::string_view parameter, const Pegasus::String& value) {
    if (value.size() == 0) {
        return;
    }
    begin(parameter);
    objects_.value(Pegasus::CIMValue(value));
    end();
}

void OperationRequestWriter::propertyList(const Pegasus::CIMPropertyList& properties) {
    if (properties.isNull()) {
        return;
    }
    Pegasus::Array<Pegasus::String> names;
    for (Pegasus::Uint32 i = 0; i < properties.size(); ++i) {
        names.append(properties[i].getString());
    }
    begin("PropertyList");
    objects_.value(Pegasus::CIMValue(names));
    end();
}

std::string OperationRequestWriter::finish() {
    out_ += "</IMETHODCALL>\n</SIMPLEREQ>\n";
    endMessage(out_);
    return std::move(out_);
}

std::string writeMethodRequest(std::string_view messageId, const Pegasus::CIMName& method,
                               const Pegasus::CIMNamespaceName& nameSpace,
                               const Pegasus::CIMObjectPath& object,
                               const Pegasus::Array<Pegasus::CIMParamValue>& parameters) {
    std::string out;
    ObjectWriter objects(out);
    beginMessage(out, messageId);
    out += "<SIMPLEREQ>\n<METHODCALL";
    appendAttribute(out, "NAME", method.getString());
    out += ">\n";
    if (object.getKeyBindings().size() == 0) {
        objects.localClassPath(nameSpace, object.getClassName());
    } else {
        objects.localInstancePath(nameSpace, object);
    }
    for (Pegasus::Uint32 i = 0; i < parameters.size(); ++i) {
        objects.paramValue(parameters[i]);
    }
    out += "</METHODCALL>\n</SIMPLEREQ>\n";
    endMessage(out);
    return out;
}

}  // namespace wire
