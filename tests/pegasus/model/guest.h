// SPDX-License-Identifier: MIT
// The interface between a program and a library that it loads. Each has its own copy of the object
// model's code, and the library exports only the functions below.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/OperationContext.h>

/// The objects that a library returns and that must outlive it.
struct ReturnedObjects {
    Pegasus::String text;
    Pegasus::String empty;
    Pegasus::Array<Pegasus::String> texts;
    Pegasus::CIMDateTime date;
    Pegasus::CIMObjectPath path;
    Pegasus::CIMObjectPath noPath;
    Pegasus::CIMValue value;
    Pegasus::CIMInstance instance;
    Pegasus::CIMParamValue parameter;
    Pegasus::CIMPropertyList list;
};

extern "C" {
using FillObjects = void(ReturnedObjects& objects);
using ThrowException = void(int kind);
using UserOf = void(const Pegasus::OperationContext& context, Pegasus::String& user);
}
