// SPDX-License-Identifier: MIT
#include "diag/ZORVA_AssociationBuilder.h"

#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

#include "diag/InstanceProperties.h"
#include "tests/support/LogFolder.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

// Lets a test set the table. Its own role operations return nothing, to show whether they are
// called.
class Associations : public ZORVA_AssociationBuilder {
public:
    using ZORVA_AssociationBuilder::ZORVA_AssociationBuilder;

    void fill(const InstanceTable& table) { associations_ = table; }

    Array<CIMObjectPath> getRole1References() override { return Array<CIMObjectPath>(); }
    Array<CIMObjectPath> getRole2References() override { return Array<CIMObjectPath>(); }
};

Array<CIMObjectPath> paths(const Texts& texts) {
    Array<CIMObjectPath> all;
    for (const std::string& text : texts) {
        all.append(CIMObjectPath(String(text.c_str())));
    }
    return all;
}

// "first key / second key" of each association.
Texts pairsOf(const InstanceTable& table) {
    Texts all;
    for (Uint32 i = 0; i < table.size(); ++i) {
        const Array<CIMKeyBinding> keys = table[i].first.getKeyBindings();
        all.push_back(text(keys[0].getValue()) + " / " + text(keys[1].getValue()));
    }
    return all;
}

class ZorvaAssociationBuilder : public testing::Test {
protected:
    // A builder with an empty table, since the server has no elements.
    Associations builder() {
        CIMOMHandle handle(std::make_shared<TestServer>());
        return Associations(handle, "Assoc", "Ante", "Dep", "AnteClass", "DepClass");
    }

    LogFolder folder_;
};

TEST_F(ZorvaAssociationBuilder, AllPairsAreOrderedByRole2ThenRole1) {
    const InstanceTable table =
        builder().getAssociations(paths({"A.k=1", "A.k=2"}), paths({"B.k=1", "B.k=2", "B.k=3"}));
    EXPECT_EQ(pairsOf(table), (Texts{"A.k=1 / B.k=1", "A.k=2 / B.k=1", "A.k=1 / B.k=2",
                                     "A.k=2 / B.k=2", "A.k=1 / B.k=3", "A.k=2 / B.k=3"}));
}

TEST_F(ZorvaAssociationBuilder, InstanceHasTheRole2ReferenceBeforeTheRole1Reference) {
    const InstanceTable table =
        builder().getAssociations(paths({"root/x:A.k=1"}), paths({"//h/root/x:B.k=\"b\""}));
    ASSERT_EQ(table.size(), 1U);
    const CIMInstance& instance = table[0].second;
    EXPECT_EQ(text(instance.getClassName()), "Assoc");
    EXPECT_EQ(propertiesOf(instance),
              (Texts{"Dep: reference //h/root/x:B.k=\"b\"", "Ante: reference root/x:A.k=1"}));
    EXPECT_EQ(text(instance.getProperty(0).getReferenceClassName()), "DepClass");
    EXPECT_EQ(text(instance.getProperty(1).getReferenceClassName()), "AnteClass");
}

TEST_F(ZorvaAssociationBuilder, PathHoldsTheTextsOfBothPathsWithTheirHosts) {
    const InstanceTable table =
        builder().getAssociations(paths({"root/x:A.k=1"}), paths({"//h/root/x:B.k=\"b\""}));
    const CIMObjectPath& path = table[0].first;
    EXPECT_EQ(text(path.getHost()), "");
    EXPECT_TRUE(path.getNameSpace().isNull());
    EXPECT_EQ(text(path.getClassName()), "Assoc");
    const Array<CIMKeyBinding> keys = path.getKeyBindings();
    ASSERT_EQ(keys.size(), 2U);
    EXPECT_EQ(text(keys[0].getName()), "Ante");
    EXPECT_EQ(text(keys[0].getValue()), "root/x:A.k=1");
    EXPECT_EQ(keys[0].getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(text(keys[1].getName()), "Dep");
    EXPECT_EQ(text(keys[1].getValue()), "//h/root/x:B.k=\"b\"");
    EXPECT_EQ(keys[1].getType(), CIMKeyBinding::STRING);
    EXPECT_EQ(text(table[0].second.getPath()), text(path));
}

TEST_F(ZorvaAssociationBuilder, EmptyRoleOnEitherSideGivesAnEmptyTable) {
    Associations associations = builder();
    const Array<CIMObjectPath> none;
    const Array<CIMObjectPath> one = paths({"A.k=1"});
    EXPECT_EQ(associations.getAssociations(none, one).size(), 0U);
    EXPECT_EQ(associations.getAssociations(one, none).size(), 0U);
    EXPECT_EQ(associations.getAssociations(none, one, "k", "k").size(), 0U);
    EXPECT_EQ(associations.getAssociations(one, none, "k", "k").size(), 0U);
    EXPECT_EQ(associations.enumAssocInstances().size(), 0U);
    EXPECT_EQ(associations.enumAssocReferences().size(), 0U);
    EXPECT_EQ(thrownBy<BadReference>(
                  [&] { associations.getAssocInstance(CIMObjectPath(String("Assoc"))); }),
              "bad reference: Invalid Reference");
}

TEST_F(ZorvaAssociationBuilder, MatchedPairsHaveEqualKeysIgnoringCase) {
    const InstanceTable table =
        builder().getAssociations(paths({"A.Name=\"one\"", "A.NAME=\"TWO\""}),
                                  paths({"B.id=\"Two\"", "B.ID=\"ONE\""}), "name", "Id");
    EXPECT_EQ(pairsOf(table),
              (Texts{"A.NAME=\"TWO\" / B.id=\"Two\"", "A.Name=\"one\" / B.ID=\"ONE\""}));
}

TEST_F(ZorvaAssociationBuilder, MatchedPairsAreMadeAsAllPairsAre) {
    Associations associations = builder();
    const InstanceTable all =
        associations.getAssociations(paths({"A.k=\"1\""}), paths({"B.k=\"1\""}));
    const InstanceTable matched =
        associations.getAssociations(paths({"A.k=\"1\""}), paths({"B.k=\"1\""}), "k", "k");
    ASSERT_EQ(matched.size(), 1U);
    EXPECT_EQ(matched[0].first, all[0].first);
    EXPECT_EQ(propertiesOf(matched[0].second), propertiesOf(all[0].second));
}

TEST_F(ZorvaAssociationBuilder, LastOfSeveralMatchingKeysCounts) {
    const InstanceTable table = builder().getAssociations(
        paths({"A.k=\"1\",K=\"2\""}), paths({"B.k=\"1\"", "B.k=\"2\""}), "k", "k");
    EXPECT_EQ(pairsOf(table), Texts{"A.k=\"1\",K=\"2\" / B.k=\"2\""});
}

TEST_F(ZorvaAssociationBuilder, PathWithoutTheKeyInheritsTheValueOfThePathBefore) {
    const InstanceTable table = builder().getAssociations(
        paths({"A.k=\"1\"", "A.x=\"nothing\""}), paths({"B.k=\"1\"", "B.x=\"nothing\""}), "k", "k");
    EXPECT_EQ(table.size(), 4U);
}

TEST_F(ZorvaAssociationBuilder, InheritedRole1ValueOutlivesTheRole2Element) {
    // The first role-1 path has no key: for the first element the empty value is compared, for the
    // second one the value that the second role-1 path left.
    const InstanceTable table = builder().getAssociations(
        paths({"A.x=\"nothing\"", "A.k=\"1\""}), paths({"B.k=\"2\"", "B.k=\"1\""}), "k", "k");
    EXPECT_EQ(pairsOf(table), (Texts{"A.x=\"nothing\" / B.k=\"1\"", "A.k=\"1\" / B.k=\"1\""}));
}

TEST_F(ZorvaAssociationBuilder, PathsThatBothLackTheKeyFromTheStartArePaired) {
    const InstanceTable table =
        builder().getAssociations(paths({"A.x=1"}), paths({"B.x=2"}), "k", "k");
    EXPECT_EQ(pairsOf(table), Texts{"A.x=1 / B.x=2"});
}

TEST_F(ZorvaAssociationBuilder, AssociationIsFoundIgnoringHostAndNamespace) {
    Associations associations = builder();
    associations.fill(associations.getAssociations(paths({"A.k=1", "A.k=2"}), paths({"B.k=1"})));
    CIMObjectPath wanted = associations.enumAssocReferences()[1];
    wanted.setHost("h");
    wanted.setNameSpace(CIMNamespaceName("root/x"));
    const Array<CIMInstance> found = associations.getAssocInstance(wanted);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(propertyText(found[0], "Ante"), "reference A.k=2");
}

TEST_F(ZorvaAssociationBuilder, UnknownPathIsABadReference) {
    Associations associations = builder();
    associations.fill(associations.getAssociations(paths({"A.k=1"}), paths({"B.k=1"})));
    EXPECT_EQ(thrownBy<BadReference>([&] {
                  associations.getAssocInstance(
                      CIMObjectPath(String("Assoc.Ante=\"A.k=9\",Dep=\"B.k=1\"")));
              }),
              "bad reference: Invalid Reference");
}

TEST_F(ZorvaAssociationBuilder, EnumerationsAreInTableOrder) {
    Associations associations = builder();
    associations.fill(associations.getAssociations(paths({"A.k=1", "A.k=2"}), paths({"B.k=1"})));
    const Array<CIMInstance> instances = associations.enumAssocInstances();
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(propertyText(instances[0], "Ante"), "reference A.k=1");
    EXPECT_EQ(propertyText(instances[1], "Ante"), "reference A.k=2");
    EXPECT_EQ(associations.enumAssocReferences()[0], instances[0].getPath());
    EXPECT_EQ(associations.enumAssocReferences()[1], instances[1].getPath());
}

TEST_F(ZorvaAssociationBuilder, ReturnedInstancesAreClones) {
    Associations associations = builder();
    associations.fill(associations.getAssociations(paths({"A.k=1"}), paths({"B.k=1"})));
    CIMInstance one = associations.enumAssocInstances()[0];
    addProperty(one, "More", CIMValue(Uint8(1)));
    EXPECT_EQ(associations.enumAssocInstances()[0].getPropertyCount(), 2U);
}

TEST_F(ZorvaAssociationBuilder, ConstructorPairsTestsWithElementsIgnoringOverrides) {
    const auto server = std::make_shared<TestServer>();
    server->addHost();
    server->addElement("usb1");
    server->addElement("usb2");
    CIMOMHandle handle(server);
    Associations associations(handle, "Assoc", "Ante", "Dep", "AnteClass", "DepClass");
    const Array<CIMInstance> instances = associations.enumAssocInstances();
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(propertiesOf(instances[0]),
              (Texts{"Dep: reference root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"",
                     "Ante: reference ZORVA_UsbHc_DiagTest.CreationClassName="
                     "\"ZORVA_UsbHc_DiagTest\",Name=\"GetUsbDeviceInformation\","
                     "SystemCreationClassName=\"QUIRVO_ComputerSystem\",SystemName=\"host1\""}));
    EXPECT_EQ(server->calls().back().text, "enumerateInstanceNames root/kavex ZORVA_UsbHc");
}

TEST_F(ZorvaAssociationBuilder, FailedLookupOfElementsPropagatesFromTheConstructor) {
    CIMOMHandle unconnected;
    EXPECT_EQ(thrownBy<CIMException>(
                  [&] { ZORVA_AssociationBuilder(unconnected, "Assoc", "Ante", "Dep", "A", "D"); }),
              "the provider is not connected to a CIM server");
}

TEST_F(ZorvaAssociationBuilder, DefaultConstructedBuilderIsEmpty) {
    ZORVA_AssociationBuilder empty;
    EXPECT_EQ(empty.enumAssocInstances().size(), 0U);
    EXPECT_EQ(empty.enumAssocReferences().size(), 0U);
}

TEST_F(ZorvaAssociationBuilder, VirtualOperationsKeepTheirSlots) {
    using Builder = ZORVA_AssociationBuilder;
    using Table = Array<Pair<CIMObjectPath, CIMInstance>>;
    using Paths = Array<CIMObjectPath>;
    EXPECT_EQ(slotOf<Table (Builder::*)(Paths, Paths)>(&Builder::getAssociations), 2U);
    EXPECT_EQ(slotOf<Table (Builder::*)(Paths, Paths, String, String)>(&Builder::getAssociations),
              3U);
    EXPECT_EQ(slotOf(&Builder::getRole1References), 4U);
    EXPECT_EQ(slotOf(&Builder::getRole2References), 5U);
}

}  // namespace
}  // namespace Pegasus
