// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagRunTestMethod.h"

#include <map>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

// Records its steps and returns what the test has set.
class ScriptedRun : public ZORVA_DiagRunTestMethod {
public:
    using ZORVA_DiagRunTestMethod::ZORVA_DiagRunTestMethod;

    Boolean doResultsExist() override {
        steps.push_back("doResultsExist");
        return hasRecord;
    }
    CIMValue retrieveResultProperty(String propertyName) override {
        steps.push_back("retrieveResultProperty " + text(propertyName));
        return CIMValue(state);
    }
    CIMObjectPath retrieveResultReference() override {
        steps.push_back("retrieveResultReference");
        return CIMObjectPath(String("Record.k=\"v\""));
    }
    void writeToResults(String propertyName, CIMValue value) override {
        steps.push_back("writeToResults " + text(propertyName) + " " + text(value));
    }
    void writeTestResults(String line) override {
        steps.push_back("writeTestResults " + text(line));
    }
    Uint32 verifyMSE() override {
        steps.push_back("verifyMSE");
        return elementCode;
    }
    Uint32 verifyExclusivity() override {
        steps.push_back("verifyExclusivity");
        return exclusivityCode;
    }
    Uint32 executeTest() override {
        steps.push_back("executeTest");
        if (breaks) {
            throw std::runtime_error("broken");
        }
        return testCode;
    }

    Texts steps;
    bool hasRecord = true;
    Uint16 state = 0;
    Uint32 elementCode = 0;
    Uint32 exclusivityCode = 0;
    Uint32 testCode = 0;
    bool breaks = false;
};

// Overrides only the pure virtual operations.
class PlainRun : public ZORVA_DiagRunTestMethod {
public:
    Boolean doResultsExist() override { return true; }
    CIMValue retrieveResultProperty(String) override { return CIMValue(Uint16(0)); }
    CIMObjectPath retrieveResultReference() override { return CIMObjectPath(); }
    void writeToResults(String, CIMValue) override {}
    void writeTestResults(String) override {}
};

class ZorvaDiagRunTestMethod : public testing::Test {
protected:
    ZorvaDiagRunTestMethod() {
        CIMInstance setting("Setting");
        const Array<String> noTexts;
        setting.addProperty(CIMProperty(CIMName("HaltOnError"), CIMValue(Boolean(true))));
        setting.addProperty(CIMProperty(CIMName("LoopControl"), CIMValue(CIMTYPE_UINT16, true)));
        setting.addProperty(CIMProperty(CIMName("quickmode"), CIMValue(String("wrong type"))));
        setting.addProperty(CIMProperty(CIMName("Elsewhere"), CIMValue(Uint8(1))));
        server_->add(settingPath_, setting);
    }

    ScriptedRun run() { return ScriptedRun(handle_, "Test", parameters_); }

    void give(const char* name, const CIMValue& value) {
        parameters_.append(CIMParamValue(name, value));
    }

    CIMObjectPath settingPath_{String("//h/root/kavex:Setting.k=\"v\"")};
    LogFolder folder_;
    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    CIMOMHandle handle_{server_};
    Array<CIMParamValue> parameters_;
    Array<CIMParamValue> out_;
};

const Texts stepsBeforeSettings = {"verifyMSE", "doResultsExist",
                                   "retrieveResultProperty TestState"};

TEST_F(ZorvaDiagRunTestMethod, StepsOfASuccessfulRunAreInOrder) {
    ScriptedRun method = run();
    EXPECT_EQ(text(method.processTest(out_)), "uint32 0");
    EXPECT_EQ(method.steps,
              (Texts{"verifyMSE", "doResultsExist", "retrieveResultProperty TestState",
                     "verifyExclusivity", "retrieveResultReference", "executeTest"}));
    EXPECT_EQ(folder_.take(), "         in verifySettings \n");
}

TEST_F(ZorvaDiagRunTestMethod, OutParameterIsTheTypedReferenceInTheProvidersNamespace) {
    out_.append(CIMParamValue("Before", CIMValue(Uint8(1))));
    run().processTest(out_);
    ASSERT_EQ(out_.size(), 2U);
    EXPECT_EQ(text(out_[1].getParameterName()), "Result");
    EXPECT_EQ(text(out_[1].getValue()), "reference root/kavex:Record.k=\"v\"");
    EXPECT_TRUE(out_[1].isTyped());
}

TEST_F(ZorvaDiagRunTestMethod, RejectedElementEndsTheCallWithItsCode) {
    ScriptedRun method = run();
    method.elementCode = 1044;
    EXPECT_EQ(text(method.processTest(out_)), "uint32 1044");
    EXPECT_EQ(method.steps, Texts{"verifyMSE"});
    EXPECT_EQ(out_.size(), 0U);
}

TEST_F(ZorvaDiagRunTestMethod, MissingRecordIs1024) {
    ScriptedRun method = run();
    method.hasRecord = false;
    EXPECT_EQ(text(method.processTest(out_)), "uint32 1024");
    EXPECT_EQ(method.steps, (Texts{"verifyMSE", "doResultsExist"}));
    EXPECT_EQ(out_.size(), 0U);
}

TEST_F(ZorvaDiagRunTestMethod, TestInProgressIs1028WithoutSettingAndWithoutResult) {
    give("Setting", CIMValue(settingPath_));
    ScriptedRun method = run();
    method.state = 4;
    EXPECT_EQ(text(method.processTest(out_)), "uint32 1028");
    EXPECT_EQ(method.steps, stepsBeforeSettings);
    EXPECT_EQ(out_.size(), 0U);
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaDiagRunTestMethod, FailedExclusivityCheckEndsTheCallWithItsCode) {
    ScriptedRun method = run();
    method.exclusivityCode = 1034;
    EXPECT_EQ(text(method.processTest(out_)), "uint32 1034");
    EXPECT_EQ(method.steps.back(), "verifyExclusivity");
    EXPECT_EQ(out_.size(), 0U);
}

TEST_F(ZorvaDiagRunTestMethod, ResultIsReturnedWhenTheTestFails) {
    ScriptedRun method = run();
    method.testCode = 99;
    EXPECT_EQ(text(method.processTest(out_)), "uint32 99");
    ASSERT_EQ(out_.size(), 1U);
    EXPECT_EQ(text(out_[0].getParameterName()), "Result");
}

TEST_F(ZorvaDiagRunTestMethod, ExceptionsOfTheTestPropagateAndTheResultIsAppended) {
    ScriptedRun method = run();
    method.breaks = true;
    EXPECT_THROW(method.processTest(out_), std::runtime_error);
    EXPECT_EQ(out_.size(), 1U);
}

TEST_F(ZorvaDiagRunTestMethod, SettingIsCopiedByNameInOrderWithItsTypes) {
    give("setting", CIMValue(settingPath_));
    ScriptedRun method = run();
    EXPECT_EQ(method.verifySettings(), 0U);
    EXPECT_EQ(method.steps, (Texts{"writeToResults QuickMode string wrong type",
                                   "writeToResults HaltOnError boolean TRUE",
                                   "writeToResults LoopControl uint16[] null"}));
}

TEST_F(ZorvaDiagRunTestMethod, AllNinePropertiesOfASettingAreCopiedInOrder) {
    const Texts names = {"QuickMode",
                         "TestWarningLevel",
                         "ReportSoftErrors",
                         "ReportStatusMessages",
                         "PercentOfTestCoverage",
                         "HaltOnError",
                         "LoopControl",
                         "LoopControlParameter",
                         "OtherLoopControlDescription"};
    CIMInstance setting("Setting");
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        setting.addProperty(CIMProperty(CIMName(name->c_str()), CIMValue(Uint8(1))));
    }
    const CIMObjectPath path(String("root/kavex:Setting.k=\"all\""));
    server_->add(path, setting);
    give("Setting", CIMValue(path));
    ScriptedRun method = run();
    method.verifySettings();
    Texts expected;
    for (const std::string& name : names) {
        expected.push_back("writeToResults " + name + " uint8 1");
    }
    EXPECT_EQ(method.steps, expected);
}

TEST_F(ZorvaDiagRunTestMethod, SettingIsFetchedOnceByClassAndKeys) {
    give("Setting", CIMValue(settingPath_));
    run().verifySettings();
    ASSERT_EQ(server_->calls().size(), 1U);
    EXPECT_EQ(server_->calls()[0].text, "getInstance root/kavex Setting.k=\"v\"");
}

TEST_F(ZorvaDiagRunTestMethod, RunWithoutSettingKeepsTheSettingsOfTheRecord) {
    ScriptedRun method = run();
    EXPECT_EQ(text(method.processTest(out_)), "uint32 0");
    EXPECT_EQ(method.steps.back(), "executeTest");
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaDiagRunTestMethod, SettingThatIsNoReferenceIsIgnored) {
    for (const CIMValue& value : {CIMValue(String("Setting.k=\"v\"")), CIMValue(),
                                  CIMValue(Array<CIMObjectPath>()), CIMValue(Uint32(1050))}) {
        parameters_.clear();
        give("Setting", value);
        ScriptedRun method = run();
        EXPECT_EQ(text(method.processTest(out_)), "uint32 0") << text(value);
        EXPECT_EQ(method.steps.size(), 6U);
    }
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaDiagRunTestMethod, NullSettingIsIgnored) {
    give("Setting", CIMValue(CIMTYPE_REFERENCE, false));
    ScriptedRun method = run();
    EXPECT_EQ(method.verifySettings(), 0U);
    EXPECT_TRUE(method.steps.empty());
    EXPECT_TRUE(server_->calls().empty());
}

TEST_F(ZorvaDiagRunTestMethod, SettingThatDoesNotExistIsIgnored) {
    give("Setting", CIMValue(CIMObjectPath(String("root/kavex:Setting.k=\"other\""))));
    ScriptedRun method = run();
    EXPECT_EQ(text(method.processTest(out_)), "uint32 0");
    EXPECT_EQ(method.steps.back(), "executeTest");
}

TEST_F(ZorvaDiagRunTestMethod, SettingWithoutPropertiesChangesNothing) {
    const CIMObjectPath path(String("root/kavex:Setting.k=\"bare\""));
    server_->add(path, CIMInstance("Setting"));
    give("Setting", CIMValue(path));
    ScriptedRun method = run();
    EXPECT_EQ(method.verifySettings(), 0U);
    EXPECT_TRUE(method.steps.empty());
}

TEST_F(ZorvaDiagRunTestMethod, DefaultChecksAllowTheRun) {
    PlainRun method;
    EXPECT_EQ(method.verifyMSE(), 0U);
    EXPECT_EQ(method.verifyExclusivity(), 0U);
    EXPECT_EQ(method.executeTest(), 0U);
    EXPECT_EQ(text(method.processTest(out_)), "uint32 0");
}

TEST_F(ZorvaDiagRunTestMethod, VirtualOperationsKeepTheirSlots) {
    using Method = ZORVA_DiagRunTestMethod;
    EXPECT_EQ(slotOf(&Method::processTest), 2U);
    EXPECT_EQ(slotOf(&Method::doResultsExist), 3U);
    EXPECT_EQ(slotOf(&Method::retrieveResultProperty), 4U);
    EXPECT_EQ(slotOf(&Method::retrieveResultReference), 5U);
    EXPECT_EQ(slotOf(&Method::writeToResults), 6U);
    EXPECT_EQ(slotOf(&Method::writeTestResults), 7U);
    EXPECT_EQ(slotOf(&Method::verifyMSE), 8U);
    EXPECT_EQ(slotOf(&Method::verifyExclusivity), 9U);
    EXPECT_EQ(slotOf(&Method::executeTest), 10U);
}

}  // namespace
}  // namespace Pegasus
