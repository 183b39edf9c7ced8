// SPDX-License-Identifier: MIT
#include "diag/InstanceTable.h"

#include <gtest/gtest.h>

#include "diag/InstanceProperties.h"
#include "diag/PathKeys.h"
#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

class InstanceTableTest : public testing::Test {
protected:
    InstanceTableTest() {
        append("a");
        append("b");
    }

    void append(const char* key) {
        CIMInstance instance("C");
        addProperty(instance, "k", CIMValue(String(key)));
        Array<CIMKeyBinding> keys;
        keys.append(stringKey("k", key));
        appendTo(table_, tablePath("C", keys), instance);
    }

    InstanceTable table_;
};

TEST_F(InstanceTableTest, StoredInstanceHasItsPath) {
    EXPECT_EQ(text(table_[0].second.getPath()), "C.k=\"a\"");
    EXPECT_EQ(text(cloneOfInstance(table_, 1)[0].getPath()), "C.k=\"b\"");
}

TEST_F(InstanceTableTest, FirstMatchIsFoundIgnoringHostAndNamespace) {
    append("a");
    EXPECT_EQ(findPath(table_, CIMObjectPath(String("//h/root/x:C.k=\"a\""))), 0U);
    EXPECT_EQ(findPath(table_, CIMObjectPath(String("c.K=\"b\""))), 1U);
    EXPECT_EQ(findPath(table_, CIMObjectPath(String("C.k=\"B\""))), PEG_NOT_FOUND);
    EXPECT_EQ(findPath(table_, CIMObjectPath()), PEG_NOT_FOUND);
}

TEST_F(InstanceTableTest, CopiesAreInTableOrder) {
    EXPECT_EQ(texts(copiesOfPaths(table_)), (Texts{"C.k=\"a\"", "C.k=\"b\""}));
    const Array<CIMInstance> instances = clonesOfInstances(table_);
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(propertiesOf(instances[0]), Texts{"k: string a"});
    EXPECT_EQ(propertiesOf(instances[1]), Texts{"k: string b"});
}

TEST_F(InstanceTableTest, ChangesOfACopyDoNotReachTheTable) {
    Array<CIMInstance> one = cloneOfInstance(table_, 0);
    Array<CIMInstance> all = clonesOfInstances(table_);
    Array<CIMObjectPath> paths = copiesOfPaths(table_);
    for (CIMInstance instance : {one[0], all[0]}) {
        propertyOf(instance, "k").setValue(CIMValue(String("changed")));
        addProperty(instance, "more", CIMValue(Uint8(1)));
        CIMObjectPath path = instance.getPath();
        path.setHost("elsewhere");
        instance.setPath(path);
    }
    paths[0].setHost("elsewhere");
    EXPECT_EQ(propertiesOf(table_[0].second), Texts{"k: string a"});
    EXPECT_EQ(text(table_[0].second.getPath()), "C.k=\"a\"");
    EXPECT_EQ(text(table_[0].first), "C.k=\"a\"");
}

TEST_F(InstanceTableTest, ChangesOfTheTableDoNotReachACopy) {
    const Array<CIMInstance> one = cloneOfInstance(table_, 0);
    propertyOf(table_[0].second, "k").setValue(CIMValue(String("changed")));
    EXPECT_EQ(propertiesOf(one[0]), Texts{"k: string a"});
}

}  // namespace
}  // namespace Pegasus
