// SPDX-License-Identifier: MIT
// A library that the tests load and unload.
#include "tests/pegasus/model/guest.h"

using namespace Pegasus;

namespace {

const String className("Guest");

}  // namespace

extern "C" PEGASUS_EXPORT FillSouvenirs fillSouvenirs;
extern "C" PEGASUS_EXPORT ThrowException throwException;
extern "C" PEGASUS_EXPORT UserOf userOf;

void fillSouvenirs(Souvenirs& souvenirs) {
    souvenirs.text = className + " text";
    souvenirs.empty = String::EMPTY;
    souvenirs.texts = Array<String>(3, souvenirs.text);
    souvenirs.date = CIMDateTime(String("20020308070100.000000-240"));
    souvenirs.path = CIMObjectPath(String("root/x:Guest.k=\"v\""));
    souvenirs.noPath = CIMObjectPath();
    souvenirs.value = CIMValue(souvenirs.texts);
    souvenirs.instance = CIMInstance(className);
    souvenirs.instance.addProperty(CIMProperty("p", souvenirs.value));
    souvenirs.instance.setPath(souvenirs.path);
    souvenirs.parameter = CIMParamValue("q", souvenirs.path);
    souvenirs.list = CIMPropertyList(Array<CIMName>(1, "p"));
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
