// SPDX-License-Identifier: MIT
// What passes between a program and a library that it loads, each with its own copy of the model's
// code and nothing but the functions below exported.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/OperationContext.h>

/// Everything that a library hands out and that must outlive it.
struct Souvenirs {
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
using FillSouvenirs = void(Souvenirs& souvenirs);
using ThrowException = void(int kind);
using UserOf = void(const Pegasus::OperationContext& context, Pegasus::String& user);
}
