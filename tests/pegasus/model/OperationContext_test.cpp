// SPDX-License-Identifier: MIT
#include <Pegasus/Common/OperationContext.h>

#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

/// A container of another class. It counts the existing objects.
class Other : public OperationContext::Container {
public:
    explicit Other(const String& name) : name_(name) { ++living; }
    Other(const Other& other) : OperationContext::Container(other), name_(other.name_) { ++living; }
    Other& operator=(const Other&) = delete;
    ~Other() override { --living; }

    String getName() const override { return name_; }
    Container* clone() const override { return new Other(*this); }
    void destroy() override { delete this; }

    static int living;

private:
    String name_;
};
int Other::living = 0;

String userOf(const OperationContext& context) {
    return IdentityContainer(context.get(IdentityContainer::NAME)).getUserName();
}

TEST(OperationContext, FindsContainersByName) {
    OperationContext context;
    {
        ROW("context-001");
        EXPECT_FALSE(context.contains("IdentityContainer"));
    }
    {
        ROW("context-002");
        EXPECT_THROWS(context.get("IdentityContainer"), Exception, "object not found");
    }
    {
        ROW("context-003");
        EXPECT_EQ(IdentityContainer::NAME, "IdentityContainer");
        EXPECT_EQ(IdentityContainer("u").getName(), "IdentityContainer");
    }
    {
        ROW("context-007");
        EXPECT_THROWS(context.set(IdentityContainer("u")), Exception, "object not found");
    }
    {
        ROW("context-008");
        EXPECT_THROWS(context.remove("IdentityContainer"), Exception, "object not found");
    }
    {
        ROW("context-005");
        context.insert(IdentityContainer("u"));
        EXPECT_EQ(userOf(context), "u");
    }
    {
        ROW("context-006");
        EXPECT_THROWS(context.insert(IdentityContainer("u")), Exception, "object already exists.");
    }
    context.set(IdentityContainer("v"));
    EXPECT_EQ(userOf(context), "v");
    context.remove("IdentityContainer");
    EXPECT_FALSE(context.contains("IdentityContainer"));
}

TEST(OperationContext, IsIndependentOfItsCopies) {
    ROW("context-009");
    const OperationContext first;
    OperationContext copy(first);
    copy.insert(IdentityContainer("u"));
    EXPECT_FALSE(first.contains("IdentityContainer"));
    OperationContext assigned;
    assigned = copy;
    copy.clear();
    EXPECT_EQ(userOf(assigned), "u");
    EXPECT_FALSE(copy.contains("IdentityContainer"));
}

TEST(OperationContext, DestroysItsCopies) {
    {
        OperationContext context;
        context.insert(Other("x"));
        context.set(Other("x"));
        const OperationContext copy(context);
        EXPECT_EQ(Other::living, 2);
    }
    EXPECT_EQ(Other::living, 0);
}

TEST(IdentityContainer, IsNotMadeFromAnotherContainer) {
    ROW("context-010");
    EXPECT_THROWS(IdentityContainer(static_cast<const OperationContext::Container&>(Other("x"))),
                  DynamicCastFailedException, "dynamic cast failed");
}

}  // namespace
