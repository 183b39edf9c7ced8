// SPDX-License-Identifier: MIT
// Life cycle and instance operations.
#include "provider/ZORVA_UsbHc_DiagProvider.h"

#include <stdexcept>

#include <Pegasus/Provider/ProviderExceptions.h>

#include "tests/provider/ProviderTest.h"

namespace Pegasus {
namespace {

class ZorvaUsbHcDiagProvider : public ProviderTest {};

const char* const associationClasses[] = {
    "ZORVA_UsbHc_DiagResultForMSE", "ZORVA_UsbHc_DiagResultForTest", "ZORVA_UsbHc_DiagTestForMSE",
    "ZORVA_UsbHc_DiagTestSoftwareAssoc"};

// --- life cycle

TEST_F(ZorvaUsbHcDiagProvider, ClassNamesAreThoseThatClientsKnow) {
    using Provider = ZORVA_UsbHc_DiagProvider;
    EXPECT_EQ(text(Provider::DIAG_TEST), "ZORVA_UsbHc_DiagTest");
    EXPECT_EQ(text(Provider::DIAG_RESULT), "ZORVA_UsbHc_DiagResult");
    EXPECT_EQ(text(Provider::DIAG_RESULT_FOR_MSE), "ZORVA_UsbHc_DiagResultForMSE");
    EXPECT_EQ(text(Provider::DIAG_RESULT_FOR_TEST), "ZORVA_UsbHc_DiagResultForTest");
    EXPECT_EQ(text(Provider::DIAG_TEST_FOR_MSE), "ZORVA_UsbHc_DiagTestForMSE");
    EXPECT_EQ(text(Provider::DIAG_TEST_SOFTWARE_ASSOC), "ZORVA_UsbHc_DiagTestSoftwareAssoc");
    EXPECT_EQ(text(Provider::DIAG_TEST_SOFTWARE), "ZORVA_UsbHc_TestSoftware");
}

TEST_F(ZorvaUsbHcDiagProvider, InitializeIsLoggedAndDisallowsUnloading) {
    client_.provider().initialize(handle_);
    EXPECT_EQ(folder_.take(), "\n\n\ninit ZORVA_UsbHc_DiagProvider\n\n");
    EXPECT_EQ(server_->unloadsDisallowed(), 2);
}

TEST_F(ZorvaUsbHcDiagProvider, InitializeIgnoresFailuresOfTheServer) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_NOT_SUPPORTED, "no"); };
    client_.provider().initialize(handle_);
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    client_.provider().initialize(handle_);
    server_->beforeCall = nullptr;
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagTest"), Texts{testPathText()});
}

TEST_F(ZorvaUsbHcDiagProvider, TerminateOnlyLogsAndTheProviderCanBeCalled) {
    addResult("usb1");
    client_.provider().terminate();
    EXPECT_EQ(folder_.take(), "In terminate provider call\n");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText(usbTestName, "usb1")});
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagTest"), Texts{testPathText()});
}

TEST_F(ZorvaUsbHcDiagProvider, WithoutInitializeTheSystemNameIsEmpty) {
    Client fresh(PegasusCreateProvider("ZORVA_UsbHc_DiagProvider"));
    ASSERT_EQ(fresh.instances("ZORVA_UsbHc_DiagTest").size(), 1U);
    EXPECT_EQ(propertyText(fresh.instances("ZORVA_UsbHc_DiagTest")[0], "SystemName"), "string ");
}

TEST_F(ZorvaUsbHcDiagProvider, AllProvidersShareTheResults) {
    addResult("usb1");
    Client other(PegasusCreateProvider("ZORVA_UsbHc_DiagProvider"));
    EXPECT_EQ(other.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText(usbTestName, "usb1")});
}

// --- getInstance

TEST_F(ZorvaUsbHcDiagProvider, TestIsFoundWithHostAndNamespace) {
    const CIMInstance test = client_.get(path("//h/root/x:" + testPathText()));
    EXPECT_EQ(propertyText(test, "Name"), "string GetUsbDeviceInformation");
    EXPECT_EQ(client_.handlerCalls(), (Texts{"processing", "deliver 1", "complete"}));
}

TEST_F(ZorvaUsbHcDiagProvider, GetOfTheTestLogsThePathAndNoClassLine) {
    const std::string requested = "//h/root/x:" + testPathText();
    client_.get(path(requested));
    EXPECT_EQ(folder_.take(),
              "\nIn getInstance IF call\n    for ref: " + requested + "\n" + testTableLog());
}

TEST_F(ZorvaUsbHcDiagProvider, GetOfAResultLogsItsClass) {
    addResult("usb1");
    const std::string requested = resultPathText(usbTestName, "usb1");
    const CIMInstance result = client_.get(path(requested));
    EXPECT_EQ(propertyText(result, "ExecutionID"), "string usb1");
    EXPECT_EQ(folder_.take(), "\nIn getInstance IF call\n    for ref: " + requested +
                                  "\n   In getInstance IF call for ZORVA_UsbHc_DiagResult\n"
                                  "before bad reference \nreturn instance \n");
}

TEST_F(ZorvaUsbHcDiagProvider, GetOfAnAssociationLogsItsClassInTheCaseOfTheConstant) {
    addResult("usb1");
    for (const std::string className : associationClasses) {
        const Texts names = client_.names(className);
        ASSERT_FALSE(names.empty()) << className;
        CIMObjectPath requested = client_.instances(className)[0].getPath();
        std::string lowerCase = className;
        for (char& letter : lowerCase) {
            letter = static_cast<char>(std::tolower(letter));
        }
        requested.setClassName(CIMName(lowerCase.c_str()));
        folder_.take();
        const CIMInstance found = client_.get(requested);
        EXPECT_EQ(text(found.getPath()), names[0]);
        const std::string log = folder_.take();
        const std::string expected = "\nIn getInstance IF call\n    for ref: " + text(requested) +
                                     "\n   In getInstance IF call for " + className + "\n";
        EXPECT_EQ(log.substr(0, expected.size()), expected);
    }
}

TEST_F(ZorvaUsbHcDiagProvider, UnknownTestIsABadReferenceBetweenProcessingAndComplete) {
    EXPECT_EQ(
        thrownBy<BadReference>([&] { client_.get(path("ZORVA_UsbHc_DiagTest.Name=\"another\"")); }),
        "bad reference: Invalid Reference");
    EXPECT_EQ(client_.handlerCalls(), Texts{"processing"});
}

TEST_F(ZorvaUsbHcDiagProvider, UnknownResultIsABadReference) {
    EXPECT_EQ(
        thrownBy<BadReference>([&] { client_.get(path(resultPathText(usbTestName, "usb1"))); }),
        "bad reference: ZORVA_DiagnosticResultbuilder - Invalid Reference");
    EXPECT_EQ(client_.handlerCalls(), Texts{"processing"});
}

TEST_F(ZorvaUsbHcDiagProvider, UnknownAssociationIsABadReference) {
    for (const std::string className : associationClasses) {
        EXPECT_EQ(thrownBy<BadReference>([&] { client_.get(path(className + ".k=\"v\"")); }),
                  "bad reference: Invalid Reference")
            << className;
    }
}

TEST_F(ZorvaUsbHcDiagProvider, BadReferenceIsStatusNotFound) {
    try {
        client_.get(path("ZORVA_UsbHc_DiagTest.Name=\"another\""));
        FAIL() << "nothing was thrown";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_NOT_FOUND);
    }
}

TEST_F(ZorvaUsbHcDiagProvider, UnknownClassIsAnEmptySuccessOfEveryReadOperation) {
    const Texts empty = {"processing", "complete"};
    for (const std::string className :
         {"ZORVA_UsbHc_TestSoftware", "ZORVA_UsbHc", "CIM_DiagnosticTest"}) {
        EXPECT_TRUE(client_.instances(className).empty());
        EXPECT_EQ(client_.handlerCalls(), empty);
        EXPECT_TRUE(client_.names(className).empty());
        EXPECT_EQ(client_.handlerCalls(), empty);
        client_.get(path(className + ".k=\"v\""));
        EXPECT_EQ(client_.handlerCalls(), empty);
    }
    client_.get(CIMObjectPath());
    EXPECT_EQ(client_.handlerCalls(), empty);
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaUsbHcDiagProvider, GetOfAnUnknownClassLogsOnlyThePath) {
    client_.get(path("Other.k=\"v\""));
    EXPECT_EQ(folder_.take(), "\nIn getInstance IF call\n    for ref: Other.k=\"v\"\n");
}

TEST_F(ZorvaUsbHcDiagProvider, KeyOfAClientForgesNoLineOfTheLog) {
    client_.get(path("Other.k=\"v\nIn terminate provider call\n\x1B[2J\""));
    EXPECT_EQ(folder_.take(),
              "\nIn getInstance IF call\n"
              "    for ref: Other.k=\"v\\x0aIn terminate provider call\\x0a\\x1b[2J\"\n");
}

// --- enumerations

TEST_F(ZorvaUsbHcDiagProvider, ClassNameInLowerCaseIsServed) {
    EXPECT_EQ(client_.instances("zorva_usbhc_diagtest").size(), 1U);
    EXPECT_EQ(client_.names("zorva_usbhc_diagtest"), Texts{testPathText()});
    CIMObjectPath requested = path(testPathText());
    requested.setClassName(CIMName("zorva_usbhc_diagtest"));
    EXPECT_EQ(propertyText(client_.get(requested), "Name"), "string GetUsbDeviceInformation");
}

TEST_F(ZorvaUsbHcDiagProvider, ResultsBeforeAnyRunAreAnEmptyArray) {
    EXPECT_TRUE(client_.instances("ZORVA_UsbHc_DiagResult").empty());
    EXPECT_EQ(client_.handlerCalls(), (Texts{"processing", "deliver 0", "complete"}));
    EXPECT_TRUE(client_.names("ZORVA_UsbHc_DiagResult").empty());
    EXPECT_EQ(client_.handlerCalls(), (Texts{"processing", "deliver 0", "complete"}));
}

TEST_F(ZorvaUsbHcDiagProvider, WholeAnswerIsDeliveredInOneCall) {
    addResult("usb1");
    addResult("usb2");
    client_.instances("ZORVA_UsbHc_DiagResult");
    EXPECT_EQ(client_.handlerCalls(), (Texts{"processing", "deliver 2", "complete"}));
    client_.names("ZORVA_UsbHc_DiagResultForMSE");
    EXPECT_EQ(client_.handlerCalls(), (Texts{"processing", "deliver 4", "complete"}));
}

TEST_F(ZorvaUsbHcDiagProvider, EnumerationsAreLogged) {
    client_.instances("ZORVA_UsbHc_DiagResult");
    EXPECT_EQ(folder_.take(), "In enumerateInstances IF call\n");
    client_.names("ZORVA_UsbHc_DiagResult");
    EXPECT_EQ(folder_.take(), "In enumerateInstanceNames IF call\n");
    client_.instances("ZORVA_UsbHc_DiagTest");
    EXPECT_EQ(folder_.take(), "In enumerateInstances IF call\n" + testTableLog());
}

TEST_F(ZorvaUsbHcDiagProvider, EveryInstanceHasThePathUnderWhichItIsEnumerated) {
    addResult("usb1");
    for (const std::string className :
         {"ZORVA_UsbHc_DiagTest", "ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc_DiagResultForMSE",
          "ZORVA_UsbHc_DiagResultForTest", "ZORVA_UsbHc_DiagTestForMSE",
          "ZORVA_UsbHc_DiagTestSoftwareAssoc"}) {
        Texts paths;
        for (const CIMInstance& instance : client_.instances(className)) {
            paths.push_back(text(instance.getPath()));
            EXPECT_EQ(text(instance.getClassName()), className);
            EXPECT_EQ(text(client_.get(instance.getPath()).getPath()), paths.back());
        }
        EXPECT_FALSE(paths.empty()) << className;
        EXPECT_EQ(paths, client_.names(className)) << className;
    }
}

TEST_F(ZorvaUsbHcDiagProvider, AssociationsNameTheirRoles) {
    addResult("usb1");
    const std::string result = "reference " + resultPathText(usbTestName, "usb1");
    const std::string test = "reference " + testPathText();
    const std::string element = "reference root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"";
    const std::string software =
        "reference root/kavex:ZORVA_UsbHc_TestSoftware.Name=\"usbhc-diagnostics\"";
    EXPECT_EQ(propertiesOf(client_.instances("ZORVA_UsbHc_DiagResultForMSE")[0]),
              (Texts{"SystemElement: " + element, "Result: " + result}));
    EXPECT_EQ(propertiesOf(client_.instances("ZORVA_UsbHc_DiagResultForTest")[0]),
              (Texts{"DiagnosticTest: " + test, "DiagnosticResult: " + result}));
    EXPECT_EQ(propertiesOf(client_.instances("ZORVA_UsbHc_DiagTestForMSE")[0]),
              (Texts{"Dependent: " + element, "Antecedent: " + test,
                     "EstimatedTimeOfPerforming: uint32 0", "IsExclusiveForMSE: boolean FALSE"}));
    EXPECT_EQ(propertiesOf(client_.instances("ZORVA_UsbHc_DiagTestSoftwareAssoc")[0]),
              (Texts{"Dependent: " + test, "Antecedent: " + software}));
}

TEST_F(ZorvaUsbHcDiagProvider, ReferencesOfAssociationsAreDeclaredWithTheirClasses) {
    addResult("usb1");
    const auto classesOf = [&](const char* className) {
        CIMInstance instance = client_.instances(className)[0];
        return Texts{text(instance.getProperty(1).getReferenceClassName()),
                     text(instance.getProperty(0).getReferenceClassName())};
    };
    EXPECT_EQ(classesOf("ZORVA_UsbHc_DiagResultForMSE"),
              (Texts{"ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc"}));
    EXPECT_EQ(classesOf("ZORVA_UsbHc_DiagResultForTest"),
              (Texts{"ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc_DiagTest"}));
    EXPECT_EQ(classesOf("ZORVA_UsbHc_DiagTestForMSE"),
              (Texts{"ZORVA_UsbHc_DiagTest", "ZORVA_UsbHc"}));
    EXPECT_EQ(classesOf("ZORVA_UsbHc_DiagTestSoftwareAssoc"),
              (Texts{"ZORVA_UsbHc_TestSoftware", "ZORVA_UsbHc_DiagTest"}));
}

TEST_F(ZorvaUsbHcDiagProvider, TablesAreBuiltForEachRequest) {
    client_.names("ZORVA_UsbHc_DiagTest");
    client_.names("ZORVA_UsbHc_DiagTest");
    EXPECT_EQ(server_->calls().size(), 4U);
    server_->addElement("usb3");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagTestForMSE").size(), 3U);
}

TEST_F(ZorvaUsbHcDiagProvider, ExceptionsOfTheServerPropagateBetweenProcessingAndComplete) {
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_INVALID_CLASS, "no"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { client_.names("ZORVA_UsbHc_DiagResultForMSE"); }), "no");
    EXPECT_EQ(client_.handlerCalls(), Texts{"processing"});
}

// --- unsupported operations

TEST_F(ZorvaUsbHcDiagProvider, CreateIsNotSupported) {
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.create(); }),
              "ZORVA_UsbHc_DiagProvider::createInstance");
    EXPECT_EQ(folder_.take(), "In createInstance IF call\n");
    EXPECT_EQ(client_.handlerCalls(), Texts());
}

TEST_F(ZorvaUsbHcDiagProvider, ModifyIsNotSupported) {
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.modify(); }),
              "ZORVA_UsbHc_DiagProvider::modifyInstance");
    EXPECT_EQ(folder_.take(), "In modifyInstance IF call\n");
    EXPECT_EQ(client_.handlerCalls(), Texts());
}

TEST_F(ZorvaUsbHcDiagProvider, DeleteIsNotSupported) {
    addResult("usb1");
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.remove(); }),
              "ZORVA_UsbHc_DiagProvider::deleteInstance");
    EXPECT_EQ(folder_.take(), "In deleteInstance IF call\n");
    EXPECT_EQ(client_.handlerCalls(), Texts());
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult").size(), 1U);
}

TEST_F(ZorvaUsbHcDiagProvider, NotSupportedIsStatus7) {
    try {
        client_.create();
        FAIL() << "nothing was thrown";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_NOT_SUPPORTED);
    }
}

// --- returned instances

TEST_F(ZorvaUsbHcDiagProvider, ChangesOfReturnedInstancesDoNotReachTheTables) {
    addResult("usb1");
    const Texts before = propertiesOf(client_.instances("ZORVA_UsbHc_DiagResult")[0]);
    const CIMObjectPath requested = path(resultPathText(usbTestName, "usb1"));
    for (CIMInstance instance :
         {client_.instances("ZORVA_UsbHc_DiagResult")[0], client_.get(requested)}) {
        instance.getProperty(2).setValue(CIMValue(String("changed")));
        CIMObjectPath moved = instance.getPath();
        moved.setHost("elsewhere");
        moved.setNameSpace(CIMNamespaceName("root/x"));
        instance.setPath(moved);
        while (instance.getPropertyCount() > 0) {
            instance.removeProperty(0);
        }
    }
    EXPECT_EQ(propertiesOf(client_.instances("ZORVA_UsbHc_DiagResult")[0]), before);
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultPathText(usbTestName, "usb1")});
    EXPECT_EQ(text(client_.instances("ZORVA_UsbHc_DiagResult")[0].getPath()),
              resultPathText(usbTestName, "usb1"));
}

}  // namespace
}  // namespace Pegasus
