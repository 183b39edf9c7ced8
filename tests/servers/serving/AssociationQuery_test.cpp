// SPDX-License-Identifier: MIT
#include "servers/serving/AssociationQuery.h"

#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

using namespace Pegasus;
using serving::AssociationQuery;

namespace {

CIMInstance link(const char* left, const char* right) {
    CIMInstance instance(CIMName("T_Link"));
    instance.addProperty(CIMProperty(CIMName("Left"), CIMValue(CIMObjectPath(left))));
    instance.addProperty(CIMProperty(CIMName("Right"), CIMValue(CIMObjectPath(right))));
    instance.addProperty(CIMProperty(CIMName("Weight"), CIMValue(Uint32(1))));
    return instance;
}

Array<CIMInstance> links() {
    Array<CIMInstance> instances;
    instances.append(link("T_Item.Id=1", "T_Item.Id=2"));
    instances.append(link("T_Item.Id=1", "T_Other.Id=3"));
    instances.append(link("T_Item.Id=2", "T_Item.Id=1"));
    return instances;
}

AssociationQuery from(const char* object) {
    AssociationQuery query;
    query.object = CIMObjectPath(object);
    return query;
}

std::string texts(const Array<CIMObjectPath>& paths) {
    std::string all;
    for (Uint32 i = 0; i < paths.size(); i++) {
        all += static_cast<const char*>(paths[i].toString().getCString());
        all += ' ';
    }
    return all;
}

TEST(AssociationQuery, ReferringInstancesHoldTheObjectInAnyRole) {
    EXPECT_EQ(serving::referringInstances(links(), from("T_Item.Id=1")).size(), 3U);
    EXPECT_EQ(serving::referringInstances(links(), from("T_Other.Id=3")).size(), 1U);
    EXPECT_EQ(serving::referringInstances(links(), from("T_Other.Id=9")).size(), 0U);
}

TEST(AssociationQuery, RoleNarrowsReferringInstancesIgnoringCase) {
    AssociationQuery query = from("T_Item.Id=1");
    query.role = "left";
    EXPECT_EQ(serving::referringInstances(links(), query).size(), 2U);
    query.role = "Bogus";
    EXPECT_EQ(serving::referringInstances(links(), query).size(), 0U);
    query.role = "Weight";
    EXPECT_EQ(serving::referringInstances(links(), query).size(), 0U);
}

TEST(AssociationQuery, ObjectIsFoundWhateverItsHostAndNamespace) {
    EXPECT_EQ(serving::referringInstances(links(), from("//h/root/kavex:T_Item.Id=1")).size(), 3U);
}

TEST(AssociationQuery, EachAssociatedObjectComesOnce) {
    EXPECT_EQ(texts(serving::associatedPaths(links(), from("T_Item.Id=1"))),
              "T_Item.Id=2 T_Other.Id=3 ");
}

TEST(AssociationQuery, RolesNarrowBothEnds) {
    AssociationQuery query = from("T_Item.Id=1");
    query.role = "Right";
    EXPECT_EQ(texts(serving::associatedPaths(links(), query)), "T_Item.Id=2 ");
    query.resultRole = "LEFT";
    EXPECT_EQ(texts(serving::associatedPaths(links(), query)), "T_Item.Id=2 ");
    query.resultRole = "Right";
    EXPECT_EQ(texts(serving::associatedPaths(links(), query)), "");
}

TEST(AssociationQuery, ResultClassNarrowsTheOtherEnd) {
    AssociationQuery query = from("T_Item.Id=1");
    query.isResultClass = [](const CIMName& name) { return name.equal(CIMName("T_Other")); };
    EXPECT_EQ(texts(serving::associatedPaths(links(), query)), "T_Other.Id=3 ");
}

TEST(AssociationQuery, ObjectTiedToItselfIsAssociatedWithItself) {
    Array<CIMInstance> instances;
    instances.append(link("T_Item.Id=1", "T_Item.Id=1"));
    EXPECT_EQ(texts(serving::associatedPaths(instances, from("T_Item.Id=1"))), "T_Item.Id=1 ");
}

TEST(AssociationQuery, NullReferencesTieNothing) {
    CIMInstance instance(CIMName("T_Link"));
    instance.addProperty(CIMProperty(CIMName("Left"), CIMValue(CIMObjectPath("T_Item.Id=1"))));
    instance.addProperty(CIMProperty(CIMName("Right"), CIMValue(CIMTYPE_REFERENCE, false)));
    Array<CIMInstance> instances;
    instances.append(instance);
    EXPECT_EQ(serving::associatedPaths(instances, from("T_Item.Id=1")).size(), 0U);
    EXPECT_EQ(serving::referringInstances(instances, from("T_Item.Id=1")).size(), 1U);
}

}  // namespace
