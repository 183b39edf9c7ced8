// SPDX-License-Identifier: MIT
// A library that the tests load and unload.
#include "tests/pegasus/model/guest.h"

using namespace Pegasus;

namespace {

const String className("Guest");

}  // namespace

extern "C" PEGASUS_EXPORT FillObjects fillObjects;
extern "C" PEGASUS_EXPORT ThrowException throwException;
extern "C" PEGASUS_EXPORT UserOf userOf;

void fillObjects(ReturnedObjects& objects) {
    objects.text = className + " text";
    objects.empty = String::EMPTY;
    objects.texts = Array<String>(3, objects.text);
    objects.date = CIMDateTime(String("20020308070100.000000-240"));
    objects.path = CIMObjectPath(String("root/x:Guest.k=\"v\""));
    objects.noPath = CIMObjectPath();
    objects.value = CIMValue(objects.texts);
    objects.instance = CIMInstance(className);
    objects.instance.addProperty(CIMProperty("p", objects.value));
    objects.instance.setPath(objects.path);
    objects.parameter = CIMParamValue("q", objects.path);
    objects.list = CIMPropertyList(Array<CIMName>(1, "p"));
}

void throwException(int kind) {
    switch (kind) {
        case 0:
            throw CIMException(CIM_ERR_NOT_FOUND, "gone");
        case 1:
            CIMInstance().getPath();
            break;
        case 2:
            Array<Uint32>().remove(0);
            break;
        default:
            throw Exception(className);
    }
}

void userOf(const OperationContext& context, String& user) {
    user = IdentityContainer(context.get(IdentityContainer::NAME)).getUserName();
}
