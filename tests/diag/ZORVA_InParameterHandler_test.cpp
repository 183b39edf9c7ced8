// SPDX-License-Identifier: MIT
#include "diag/ZORVA_InParameterHandler.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"
#include "tests/support/TestServer.h"

namespace Pegasus {
namespace {

class ZorvaInParameterHandler : public testing::Test {
protected:
    ZorvaInParameterHandler() { server_->addElement("usb1"); }

    static Array<CIMParamValue> parameters() {
        Array<CIMParamValue> all;
        all.append(CIMParamValue("Setting", CIMValue(String("a"))));
        all.append(CIMParamValue("setting", CIMValue(String("b"))));
        all.append(CIMParamValue("SystemElement", CIMValue(Uint32(7))));
        return all;
    }

    static CIMValue reference(const char* path) { return CIMValue(CIMObjectPath(String(path))); }

    bool isFound(const CIMValue& value) {
        return !ZORVA_InParameterHandler().getInParameterInstance(handle_, value).isUninitialized();
    }

    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    CIMOMHandle handle_{server_};
};

TEST_F(ZorvaInParameterHandler, ParameterNamedInAnotherCaseIsFound) {
    ZORVA_InParameterHandler handler(parameters());
    EXPECT_EQ(text(handler.getInParameterValue("systemelement")), "uint32 7");
    EXPECT_EQ(text(handler.getInParameterValue("SYSTEMELEMENT")), "uint32 7");
}

TEST_F(ZorvaInParameterHandler, FirstOfSeveralParametersOfANameIsTaken) {
    EXPECT_EQ(text(ZORVA_InParameterHandler(parameters()).getInParameterValue("setting")),
              "string a");
}

TEST_F(ZorvaInParameterHandler, AbsentParameterIsMarkedByUint32Value1050) {
    EXPECT_EQ(text(ZORVA_InParameterHandler(parameters()).getInParameterValue("Other")),
              "uint32 1050");
    EXPECT_EQ(text(ZORVA_InParameterHandler().getInParameterValue("Setting")), "uint32 1050");
}

TEST_F(ZorvaInParameterHandler, MarkerIsNoReference) {
    ZORVA_InParameterHandler handler;
    EXPECT_FALSE(handler.isParamTypeReference(handler.getInParameterValue("Setting")));
}

TEST_F(ZorvaInParameterHandler, OnlyScalarReferencesAreReferences) {
    ZORVA_InParameterHandler handler;
    EXPECT_TRUE(handler.isParamTypeReference(reference("C.k=1")));
    EXPECT_TRUE(handler.isParamTypeReference(CIMValue(CIMTYPE_REFERENCE, false)));
    EXPECT_FALSE(handler.isParamTypeReference(CIMValue(String("C.k=1"))));
    EXPECT_FALSE(handler.isParamTypeReference(CIMValue(Array<CIMObjectPath>())));
    EXPECT_FALSE(handler.isParamTypeReference(CIMValue()));
}

TEST_F(ZorvaInParameterHandler, InstanceIsFetchedInTheNamespaceOfTheReferenceWithoutHost) {
    EXPECT_TRUE(isFound(reference("//client/root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"")));
    ASSERT_EQ(server_->calls().size(), 1U);
    const TestServer::Call& call = server_->calls()[0];
    EXPECT_EQ(call.text, "getInstance root/kavex ZORVA_UsbHc.DeviceID=\"usb1\"");
    EXPECT_FALSE(call.localOnly);
    EXPECT_FALSE(call.includeQualifiers);
    EXPECT_FALSE(call.includeClassOrigin);
    EXPECT_TRUE(call.allProperties);
}

TEST_F(ZorvaInParameterHandler, ReferenceToNothingIsANullInstance) {
    EXPECT_FALSE(isFound(reference("root/kavex:ZORVA_UsbHc.DeviceID=\"usb9\"")));
    EXPECT_FALSE(isFound(reference("ZORVA_UsbHc.DeviceID=\"usb1\"")));  // no namespace
    EXPECT_FALSE(isFound(CIMValue(CIMObjectPath())));
    EXPECT_EQ(server_->calls().size(), 3U);
}

TEST_F(ZorvaInParameterHandler, NullReferenceIsANullInstanceWithoutACall) {
    EXPECT_FALSE(isFound(CIMValue(CIMTYPE_REFERENCE, false)));
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaInParameterHandler, ValueThatIsNoReferenceIsANullInstanceWithoutACall) {
    EXPECT_FALSE(isFound(CIMValue(String("root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\""))));
    EXPECT_FALSE(isFound(CIMValue(Uint32(1050))));
    EXPECT_FALSE(isFound(CIMValue(Array<CIMObjectPath>())));
    EXPECT_FALSE(isFound(CIMValue()));
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaInParameterHandler, ExceptionsOfTheObjectModelAreANullInstance) {
    const CIMValue element = reference("root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"");
    server_->beforeCall = [](std::size_t) { throw CIMException(CIM_ERR_FAILED, "no"); };
    EXPECT_FALSE(isFound(element));
    server_->beforeCall = [](std::size_t) { throw TypeMismatchException(); };
    EXPECT_FALSE(isFound(element));
}

TEST_F(ZorvaInParameterHandler, OtherExceptionsPropagate) {
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    EXPECT_THROW(isFound(reference("root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\"")),
                 std::runtime_error);
}

}  // namespace
}  // namespace Pegasus
