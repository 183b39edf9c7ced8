// SPDX-License-Identifier: MIT
// The installed library, from loading it to unloading it.
#include <Pegasus/Provider/ProviderExceptions.h>

#include "tests/provider/LoadedProvider.h"

namespace Pegasus {
namespace {

class LoadedLibraryTest : public LoadedProvider {
protected:
    CIMObjectPath onlyPath(const char* className) {
        const std::vector<CIMInstance> instances = client_.instances(className);
        return instances.size() == 1 ? instances[0].getPath() : CIMObjectPath();
    }
};

TEST_F(LoadedLibraryTest, ServesAClientFromFindingTheTestToClearingItsResult) {
    PrivateDeviceList::show(hubList);

    // The client enumerates the tests,
    ASSERT_EQ(client_.names("ZORVA_UsbHc_DiagTest"), Texts{testPathText()});
    const CIMObjectPath test = onlyPath("ZORVA_UsbHc_DiagTest");

    // runs one on an element, with a setting,
    CIMInstance setting("Setting");
    setting.addProperty(CIMProperty(CIMName("PercentOfTestCoverage"), CIMValue(Uint8(80))));
    const CIMObjectPath settingPath(String("//h/root/kavex:Setting.InstanceID=\"s\""));
    server_->add(settingPath, setting);
    Array<CIMParamValue> parameters = elementParameter("usb1");
    parameters.append(CIMParamValue("Setting", CIMValue(settingPath)));
    EXPECT_EQ(client_.invokeOn(test, "RunTest", parameters), "uint32 0");
    const std::string resultText = resultPathText(usbTestName, "usb1");
    EXPECT_EQ(client_.outParameters(), Texts{"Result=reference root/kavex:" + resultText});

    // fetches the result by the reference that RunTest returned,
    const CIMInstance result =
        client_.get(CIMObjectPath(String(("root/kavex:" + resultText).c_str())));
    EXPECT_EQ(propertyText(result, "TestState"), "uint16 2");
    EXPECT_EQ(propertyText(result, "PercentOfTestCoverage"), "uint8 80");
    EXPECT_EQ(lines(result.getProperty(result.findProperty("TestResults")).getValue()),
              (Texts{"Product Name                  USB OHCI Root Hub",
                     "Serial Number                 c4846000", "Vendor Name                   ",
                     "Vendor ID                     1d6b ", "Product ID                    0001 ",
                     "Revision                       2.04", "USB Specification              1.10 ",
                     "Interface Number               0 ", "Interface Class               Hub",
                     "Interface Sub Class           None", "Port on Device                00 ",
                     "Device Driver                 hub", "Current Speed                 12  ",
                     "Maximum Current Draw (mAmps)    0", "          "}));

    // follows the associations,
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResultForMSE").size(), 2U);
    const CIMObjectPath forTest = onlyPath("ZORVA_UsbHc_DiagResultForTest");
    EXPECT_EQ(propertyText(client_.get(forTest), "DiagnosticTest"), "reference " + testPathText());
    EXPECT_EQ(propertyText(client_.get(forTest), "DiagnosticResult"), "reference " + resultText);
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagTestForMSE").size(), 2U);
    EXPECT_EQ(
        propertyText(client_.get(onlyPath("ZORVA_UsbHc_DiagTestSoftwareAssoc")), "Antecedent"),
        "reference root/kavex:ZORVA_UsbHc_TestSoftware.Name=\"usbhc-diagnostics\"");

    // runs the test again: one result, without the setting of the first run,
    EXPECT_EQ(client_.invokeOn(test, "RunTest", elementParameter("usb1")), "uint32 0");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult"), Texts{resultText});
    EXPECT_EQ(propertyText(client_.instances("ZORVA_UsbHc_DiagResult")[0], "PercentOfTestCoverage"),
              "uint8 0");

    // marks it stopped,
    EXPECT_EQ(client_.invokeOn(test, "DiscontinueTest", elementParameter("usb1")), "");
    EXPECT_EQ(client_.outParameters(), Texts{"TestingStopped=boolean TRUE"});
    EXPECT_EQ(propertyText(client_.instances("ZORVA_UsbHc_DiagResult")[0], "TestState"),
              "uint16 7");

    // and clears it.
    EXPECT_EQ(client_.invokeOn(test, "ClearResults", elementParameter("usb1")), "uint32 0");
    EXPECT_TRUE(client_.names("ZORVA_UsbHc_DiagResult").empty());
    EXPECT_TRUE(client_.names("ZORVA_UsbHc_DiagResultForMSE").empty());
    EXPECT_TRUE(client_.names("ZORVA_UsbHc_DiagResultForTest").empty());
}

TEST_F(LoadedLibraryTest, ExceptionsReachTheServerWithTheirTypeAndText) {
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.create(); }),
              "ZORVA_UsbHc_DiagProvider::createInstance");
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.modify(); }),
              "ZORVA_UsbHc_DiagProvider::modifyInstance");
    EXPECT_EQ(thrownBy<NotSupported>([&] { client_.remove(); }),
              "ZORVA_UsbHc_DiagProvider::deleteInstance");
    EXPECT_EQ(
        thrownBy<NotSupported>([&] { client_.invoke("StartService", Array<CIMParamValue>()); }),
        "ZORVA_UsbHc_DiagProvider::StartService");
    EXPECT_EQ(
        thrownBy<NotSupported>([&] { client_.invoke("StopService", Array<CIMParamValue>()); }),
        "ZORVA_UsbHc_DiagProvider::StopService");
    EXPECT_EQ(thrownBy<BadReference>(
                  [&] { client_.get(CIMObjectPath(String("ZORVA_UsbHc_DiagTest.Name=\"x\""))); }),
              "bad reference: Invalid Reference");
    EXPECT_EQ(thrownBy<BadReference>([&] {
                  client_.get(CIMObjectPath(String("ZORVA_UsbHc_DiagResult.ExecutionID=\"x\"")));
              }),
              "bad reference: ZORVA_DiagnosticResultbuilder - Invalid Reference");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagTest"), Texts{testPathText()});
}

TEST_F(LoadedLibraryTest, UnknownProviderNameIsNull) {
    EXPECT_EQ(library_.create("another"), nullptr);
}

TEST_F(LoadedLibraryTest, TerminatedProviderCanBeCalled) {
    client_.invoke("RunTest", elementParameter("usb1"));
    client_.provider().terminate();
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult").size(), 1U);
    EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb2")), "uint32 0");
}

TEST_F(LoadedLibraryTest, BadParametersDoNotAffectTheNextRequest) {
    client_.invoke("RunTest", elementParameter("usb1"));
    const auto everythingWorks = [&](const std::string& after) {
        EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult").size(), 1U) << after;
        EXPECT_EQ(client_.invoke("RunTest", elementParameter("usb1")), "uint32 0") << after;
    };
    for (const CIMValue& value :
         {CIMValue(), CIMValue(String("usb1")), CIMValue(Uint64(1)), CIMValue(Array<Boolean>()),
          CIMValue(Array<CIMObjectPath>()), CIMValue(CIMTYPE_REFERENCE, false),
          CIMValue(CIMTYPE_REFERENCE, true), CIMValue(CIMObjectPath()),
          CIMValue(elementPath("no such element")),
          CIMValue(CIMObjectPath(String("//h/no/such/namespace:C.DeviceID=\"x\"")))}) {
        for (const char* name : {"SystemElement", "Setting"}) {
            for (const char* method : {"RunTest", "ClearResults", "DiscontinueTest"}) {
                Array<CIMParamValue> parameters = parameter(name, value);
                if (std::string(name) == "Setting") {
                    parameters.appendArray(elementParameter("usb1"));
                }
                try {
                    client_.invoke(method, parameters);
                } catch (const TypeMismatchException&) {
                    EXPECT_STREQ(method, "DiscontinueTest");
                }
                if (client_.names("ZORVA_UsbHc_DiagResult").empty()) {
                    EXPECT_STREQ(method, "ClearResults");
                    client_.invoke("RunTest", elementParameter("usb1"));
                }
                everythingWorks(std::string(method) + " " + name + " " + text(value));
            }
        }
    }
}

}  // namespace
}  // namespace Pegasus
