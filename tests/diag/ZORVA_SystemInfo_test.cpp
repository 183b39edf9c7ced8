// SPDX-License-Identifier: MIT
#include "diag/ZORVA_SystemInfo.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"

namespace Pegasus {
namespace {

using Texts = std::vector<std::string>;

class ZorvaSystemInfo : public testing::Test {
protected:
    Texts lookUp() {
        const Array<CIMProperty> properties = ZORVA_SystemInfo().getSystemInfo(handle_);
        Texts found;
        for (Uint32 i = 0; i < properties.size(); ++i) {
            found.push_back(text(properties[i].getName()) + "=" +
                            text(properties[i].getValue().toString()));
        }
        return found;
    }

    void addSystem(const char* key,
                   const std::vector<std::pair<const char*, const char*>>& values) {
        CIMInstance system("QUIRVO_ComputerSystem");
        for (const auto& value : values) {
            system.addProperty(CIMProperty(CIMName(value.first), CIMValue(String(value.second))));
        }
        server_->add(
            CIMObjectPath(String("//h/root/kavex:QUIRVO_ComputerSystem.Name=\"") + key + "\""),
            system);
    }

    LogFolder folder_;
    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    CIMOMHandle handle_{server_};
};

TEST_F(ZorvaSystemInfo, NameComesBeforeCreationClassName) {
    addSystem("host1",
              {{"CreationClassName", "QUIRVO_ComputerSystem"}, {"Other", "x"}, {"Name", "host1"}});
    EXPECT_EQ(lookUp(), (Texts{"Name=host1", "CreationClassName=QUIRVO_ComputerSystem"}));
}

TEST_F(ZorvaSystemInfo, LookupIsLogged) {
    lookUp();
    EXPECT_EQ(folder_.take(), "  in SystemInfo \n");
}

TEST_F(ZorvaSystemInfo, OnlyTheFirstOfSeveralSystemsIsUsed) {
    addSystem("first", {{"Name", "first"}});
    addSystem("second", {{"Name", "second"}});
    EXPECT_EQ(lookUp(), Texts{"Name=first"});
}

TEST_F(ZorvaSystemInfo, AllPropertiesAreFetchedByClassAndKeysOnly) {
    addSystem("host1", {{"Name", "host1"}});
    lookUp();
    ASSERT_EQ(server_->calls().size(), 2U);
    EXPECT_EQ(server_->calls()[0].text, "enumerateInstanceNames root/kavex QUIRVO_ComputerSystem");
    const TestServer::Call& get = server_->calls()[1];
    EXPECT_EQ(get.text, "getInstance root/kavex QUIRVO_ComputerSystem.Name=\"host1\"");
    EXPECT_FALSE(get.localOnly);
    EXPECT_FALSE(get.includeQualifiers);
    EXPECT_FALSE(get.includeClassOrigin);
    EXPECT_TRUE(get.allProperties);
}

TEST_F(ZorvaSystemInfo, NoSystemIsAnEmptyArray) {
    EXPECT_EQ(lookUp(), Texts());
    EXPECT_EQ(server_->calls().size(), 1U);
}

TEST_F(ZorvaSystemInfo, SystemWithoutPropertiesIsAnEmptyArray) {
    addSystem("host1", {});
    EXPECT_EQ(lookUp(), Texts());
}

TEST_F(ZorvaSystemInfo, NullSystemIsAnEmptyArray) {
    server_->add(CIMObjectPath(String("QUIRVO_ComputerSystem.Name=\"x\"")), CIMInstance());
    EXPECT_EQ(lookUp(), Texts());
}

TEST_F(ZorvaSystemInfo, SystemWithNameOnlyIsOneElement) {
    addSystem("host1", {{"Name", "host1"}});
    EXPECT_EQ(lookUp(), Texts{"Name=host1"});
}

TEST_F(ZorvaSystemInfo, SystemWithCreationClassNameOnlyIsOneElement) {
    addSystem("host1", {{"CreationClassName", "C"}});
    EXPECT_EQ(lookUp(), Texts{"CreationClassName=C"});
}

TEST_F(ZorvaSystemInfo, CimExceptionOfEitherCallIsAnEmptyArray) {
    addSystem("host1", {{"Name", "host1"}});
    for (const std::size_t failing : {1U, 2U}) {
        server_->forgetCalls();
        server_->beforeCall = [failing](std::size_t call) {
            if (call == failing) {
                throw CIMException(CIM_ERR_ACCESS_DENIED, "no");
            }
        };
        EXPECT_EQ(lookUp(), Texts()) << failing;
        EXPECT_EQ(server_->calls().size(), failing);
    }
}

TEST_F(ZorvaSystemInfo, OtherExceptionsPropagate) {
    server_->beforeCall = [](std::size_t) { throw Exception("broken"); };
    EXPECT_EQ(thrownBy<Exception>([&] { lookUp(); }), "broken");
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    EXPECT_THROW(lookUp(), std::runtime_error);
}

TEST_F(ZorvaSystemInfo, HandleWithoutServerIsAnEmptyArray) {
    handle_ = CIMOMHandle();
    EXPECT_EQ(lookUp(), Texts());
}

}  // namespace
}  // namespace Pegasus
