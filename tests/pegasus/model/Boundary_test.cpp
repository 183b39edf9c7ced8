// SPDX-License-Identifier: MIT
// Objects and exceptions that cross between a program and a library with code of its own.
#include <dlfcn.h>

#include "tests/pegasus/model/guest.h"
#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

/// The library, loaded as long as this object lives.
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

TEST(Boundary, LibraryIsReallyUnloaded) {
    { const Guest guest; }
    EXPECT_EQ(dlopen(MODEL_GUEST, RTLD_NOW | RTLD_NOLOAD), nullptr);
}

TEST(Boundary, ObjectsOutliveTheLibraryThatMadeThem) {
    Souvenirs souvenirs;
    {
        const Guest guest;
        guest.find<FillSouvenirs>("fillSouvenirs")(souvenirs);
    }
    EXPECT_EQ(souvenirs.text, "Guest text");
    EXPECT_EQ(souvenirs.empty.append("x"), "x");
    souvenirs.texts.append("more");
    EXPECT_EQ(souvenirs.texts.size(), 4U);
    EXPECT_EQ(souvenirs.date.toString(), "20020308070100.000000-240");
    souvenirs.path.setHost("h");
    EXPECT_EQ(souvenirs.path.toString(), "//h/root/x:Guest.k=\"v\"");
    souvenirs.noPath.setClassName("C");
    EXPECT_EQ(souvenirs.noPath.toString(), "C");
    EXPECT_EQ(souvenirs.value.toString(), "Guest text Guest text Guest text ");
    souvenirs.instance.getProperty(0).setValue(CIMValue(CIMTYPE_STRING, true));
    EXPECT_EQ(souvenirs.instance.clone().getPath().toString(), "root/x:Guest.k=\"v\"");
    EXPECT_EQ(souvenirs.parameter.getValue().toString(), "root/x:Guest.k=\"v\"");
    EXPECT_TRUE(souvenirs.list.contains("p"));
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

TEST(Boundary, ContainersOfTheProgramAreReadInTheLibrary) {
    const Guest guest;
    OperationContext context;
    context.insert(IdentityContainer("me"));
    String user;
    guest.find<UserOf>("userOf")(context, user);
    EXPECT_EQ(user, "me");
}

TEST(Boundary, LibraryComesAndGoesAThousandTimes) {
    Souvenirs souvenirs;
    for (int cycle = 0; cycle < 1000; ++cycle) {
        const Guest guest;
        guest.find<FillSouvenirs>("fillSouvenirs")(souvenirs);
        EXPECT_THROW(guest.find<ThrowException>("throwException")(0), CIMException);
    }
    EXPECT_EQ(souvenirs.instance.getClassName().getString(), "Guest");
}

}  // namespace
