// SPDX-License-Identifier: MIT
// The elements of the machine are instances of the classes that the MOF files define.
#include "servers/cimhost/machine/MachineElements.h"

#include <gtest/gtest.h>

#include "contract/Names.h"
#include "servers/cimhost/mof/MofReader.h"

namespace cimhost {
namespace {

using Pegasus::CIMName;
using Pegasus::String;

const Pegasus::CIMNamespaceName nameSpace(contract::nameSpace);

TEST(MachineElementsTest, EveryElementHasItsKeys) {
    Schema schema;
    Repository repository(schema);
    MofReader(schema, repository).readFile(ZORVA_MOF_FOLDER "/cimhost.mof", nameSpace);

    EXPECT_TRUE(
        addMachineElements(schema, repository, nameSpace, "box", {"0000:00:14.0", "usb2"}).empty());

    const auto systems =
        repository.enumerateInstanceNames(nameSpace, CIMName(contract::classes::computerSystem));
    ASSERT_EQ(systems.size(), 1U);
    EXPECT_EQ(systems[0].toString(),
              String("QUIRVO_ComputerSystem.CreationClassName=\"QUIRVO_ComputerSystem\","
                     "Name=\"box\""));
    const auto controllers =
        repository.enumerateInstanceNames(nameSpace, CIMName(contract::classes::managedElement));
    ASSERT_EQ(controllers.size(), 2U);
    EXPECT_EQ(controllers[0].toString(),
              String("ZORVA_UsbHc.CreationClassName=\"ZORVA_UsbHc\",DeviceID=\"0000:00:14.0\","
                     "SystemCreationClassName=\"QUIRVO_ComputerSystem\",SystemName=\"box\""));
    EXPECT_EQ(repository.enumerateInstanceNames(nameSpace, CIMName(contract::classes::testSoftware))
                  .size(),
              1U);
}

TEST(MachineElementsTest, ClassesThatAreNotThereAreNamed) {
    Schema schema;
    schema.addNamespace(nameSpace);
    Repository repository(schema);
    EXPECT_EQ(addMachineElements(schema, repository, nameSpace, "box", {"usb1"}),
              (std::vector<std::string>{"QUIRVO_ComputerSystem", "ZORVA_UsbHc",
                                        "ZORVA_UsbHc_TestSoftware"}));
}

TEST(MachineElementsTest, TheHostNameHasNoDomain) {
    EXPECT_FALSE(shortHostName().empty());
    EXPECT_EQ(shortHostName().find('.'), std::string::npos);
}

TEST(MachineElementsTest, ShortHostNameIsOneThatPathsCanCarry) {
    EXPECT_EQ(shortHostName("box.example.org"), "box");
    EXPECT_EQ(shortHostName("box"), "box");
    EXPECT_EQ(shortHostName("(none)"), "localhost");
    EXPECT_EQ(shortHostName(""), "localhost");
    EXPECT_EQ(shortHostName("12.example.org"), "localhost");
}

}  // namespace
}  // namespace cimhost
