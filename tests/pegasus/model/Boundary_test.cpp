// SPDX-License-Identifier: MIT
// Objects and exceptions that a program exchanges with a library that has its own code.
#include <dlfcn.h>

#include "tests/pegasus/model/guest.h"
#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

/// The library, loaded while this object exists.
class Guest {
public:
    Guest() : handle_(dlopen(MODEL_GUEST, RTLD_NOW | RTLD_GLOBAL)) {
        EXPECT_NE(handle_, nullptr) << dlerror();
    }
    Guest(const Guest&) = delete;
    Guest& operator=(const Guest&) = delete;
    ~Guest() { dlclose(handle_); }

    template <class Function>
    Function* find(const char* name) const {
        return reinterpret_cast<Function*>(dlsym(handle_, name));
    }

private:
    void* handle_;
};

TEST(Boundary, LibraryIsUnloaded) {
    { const Guest guest; }
    EXPECT_EQ(dlopen(MODEL_GUEST, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(Boundary, ObjectsOutliveTheLibraryThatMadeThem) {
    ReturnedObjects objects;
    {
        const Guest guest;
        guest.find<FillObjects>("fillObjects")(objects);
    }
    EXPECT_EQ(objects.text, "Guest text");
    EXPECT_EQ(objects.empty.append("x"), "x");
    objects.texts.append("more");
    EXPECT_EQ(objects.texts.size(), 4U);
    EXPECT_EQ(objects.date.toString(), "20020308070100.000000-240");
    objects.path.setHost("h");
    EXPECT_EQ(objects.path.toString(), "//h/root/x:Guest.k=\"v\"");
    objects.noPath.setClassName("C");
    EXPECT_EQ(objects.noPath.toString(), "C");
    EXPECT_EQ(objects.value.toString(), "Guest text Guest text Guest text ");
    objects.instance.getProperty(0).setValue(CIMValue(CIMTYPE_STRING, true));
    EXPECT_EQ(objects.instance.clone().getPath().toString(), "root/x:Guest.k=\"v\"");
    EXPECT_EQ(objects.parameter.getValue().toString(), "root/x:Guest.k=\"v\"");
    EXPECT_TRUE(objects.list.contains("p"));
}

TEST(Boundary, ExceptionsOfTheLibraryAreCaughtByTheirClass) {
    const Guest guest;
    auto* const throwIt = guest.find<ThrowException>("throwException");
    try {
        throwIt(0);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_NOT_FOUND);
        EXPECT_EQ(exception.getMessage(), "gone");
    }
    EXPECT_THROW(throwIt(1), UninitializedObjectException);
    EXPECT_THROW(throwIt(2), IndexOutOfBoundsException);
    EXPECT_THROWS(throwIt(3), Exception, "Guest");
}

TEST(Boundary, LibraryReadsContainersOfTheProgram) {
    const Guest guest;
    OperationContext context;
    context.insert(IdentityContainer("me"));
    String user;
    guest.find<UserOf>("userOf")(context, user);
    EXPECT_EQ(user, "me");
}

TEST(Boundary, LibraryIsLoadedAndUnloadedAThousandTimes) {
    ReturnedObjects objects;
    for (int cycle = 0; cycle < 1000; ++cycle) {
        const Guest guest;
        guest.find<FillObjects>("fillObjects")(objects);
        EXPECT_THROW(guest.find<ThrowException>("throwException")(0), CIMException);
    }
    EXPECT_EQ(objects.instance.getClassName().getString(), "Guest");
}

}  // namespace
