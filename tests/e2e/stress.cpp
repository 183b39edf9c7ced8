// SPDX-License-Identifier: MIT
// usage: e2e_stress_test SECONDS CLIENTS CIMHOST LIBRARY LIST
//
// Many clients at once run the test, list, fetch, follow associations and clear, each over connections
// of its own. Every answer must be well formed and one that the operation may have; at no moment may
// there be two results for a pair of test and element. The host must end with status 0 and without a
// complaint, which under a sanitizer means without a finding.
//
// The host serves 64 connections; further ones are told so (503), give up theirs and come again.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include "contract/Names.h"
#include "tests/support/ObjectModelText.h"
#include "wire/client/CimClient.h"

namespace {

using namespace contract;
using namespace wire;
using Clock = std::chrono::steady_clock;
using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMParamValue;
using Pegasus::CIMValue;
using Pegasus::Uint32;

constexpr int operationsPerConnection = 8;

/// cimhost in a process of its own, with its complaints in a file.
class HostProcess {
public:
    HostProcess(const char* program, const char* library, const char* list) {
        std::array<int, 2> pipe{};
        if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("cannot make a pipe");
        }
        process_ = ::fork();
        if (process_ == 0) {
            const int errors = ::open(complaintsFile, O_WRONLY | O_CREAT | O_TRUNC, 0600);
            ::dup2(pipe[1], STDOUT_FILENO);
            ::dup2(errors, STDERR_FILENO);
            ::execl(program, program, "--provider", library, "--devices", list,
                    static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(pipe[1]);
        std::array<char, 256> line{};
        const ssize_t length = ::read(pipe[0], line.data(), line.size() - 1);
        ::close(pipe[0]);
        constexpr std::string_view announcement = "listening on ";
        const std::string text(line.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
        if (text.compare(0, announcement.size(), announcement) != 0) {
            throw std::runtime_error("cimhost did not start:\n" + complaints());
        }
        url_ = text.substr(announcement.size(), text.find('\n') - announcement.size());
    }

    const std::string& url() const { return url_; }

    /// Resident memory in KiB.
    long memory() const {
        std::ifstream status("/proc/" + std::to_string(process_) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.compare(0, 6, "VmRSS:") == 0) {
                return std::atol(line.c_str() + 6);
            }
        }
        return 0;
    }

    /// Ends the host and returns its exit status.
    int end() const {
        int status = 0;
        ::kill(process_, SIGTERM);
        ::waitpid(process_, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    static std::string complaints() {
        std::ifstream file(complaintsFile);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    static constexpr const char* complaintsFile = "stress.stderr";

    pid_t process_ = 0;
    std::string url_;
};

/// What went wrong and what was done, from all clients.
class Tally {
public:
    void fail(const std::string& what) {
        const std::lock_guard<std::mutex> lock(mutex_);
        ++failures_[what];
    }
    void count(const char* what) {
        const std::lock_guard<std::mutex> lock(mutex_);
        ++counts_[what];
    }
    bool report() const {
        for (const auto& [what, times] : counts_) {
            std::cout << times << ' ' << what << '\n';
        }
        for (const auto& [what, times] : failures_) {
            std::cout << "WRONG, " << times << " times: " << what << '\n';
        }
        return failures_.empty();
    }
    bool did(const char* what) const { return counts_.count(what) != 0; }

private:
    std::mutex mutex_;
    std::map<std::string, unsigned> failures_;
    std::map<std::string, unsigned> counts_;
};

/// What every client needs to know, asked for once.
struct Inventory {
    CIMObjectPath test;
    std::vector<CIMObjectPath> elements;
    CIMObjectPath setting;
};

CIMValue valueOf(const CIMInstance& instance, const char* property) {
    return instance.getProperty(instance.findProperty(CIMName(property))).getValue();
}

/// One client: connects, asks for a while, goes away, comes again.
class StressClient {
public:
    StressClient(const wire::ServerUrl& url, const Inventory& inventory, Tally& tally,
                 unsigned seed)
        : url_(url), inventory_(inventory), tally_(tally), random_(seed) {}

    void runUntil(Clock::time_point end) {
        while (Clock::now() < end) {
            wire::CimClient client(url_);
            try {
                for (int i = 0; i < operationsPerConnection && Clock::now() < end; ++i) {
                    askSomething(client);
                }
            } catch (const wire::ClientError& error) {
                const std::string text = error.what();
                if (text.find(" 503 ") == std::string::npos) {
                    tally_.fail(text);
                } else {
                    tally_.count("connections told to come again");
                    std::this_thread::sleep_for(std::chrono::milliseconds(20));
                }
            } catch (const Pegasus::Exception& error) {
                tally_.fail(text(error.getMessage()));
            }
        }
    }

private:
    const CIMObjectPath& someElement() {
        return inventory_.elements[random_() % inventory_.elements.size()];
    }

    void askSomething(wire::CimClient& client) {
        switch (random_() % 10) {
            case 0:
            case 1:
                return runTest(client);
            case 2:
                return clearResults(client);
            case 3:
                return discontinueTest(client);
            case 4:
                return followAssociations(client);
            case 5:
                return fetchResult(client);
            default:
                return listResults(client);
        }
    }

    wire::MethodResult invoke(wire::CimClient& client, const char* method, bool withSetting) {
        Array<CIMParamValue> parameters;
        parameters.append(CIMParamValue(parameters::systemElement, CIMValue(someElement()), true));
        if (withSetting) {
            parameters.append(
                CIMParamValue(parameters::setting, CIMValue(inventory_.setting), true));
        }
        return client.invokeMethod(nameSpace, inventory_.test, method, parameters);
    }

    void expectZero(const char* method, const wire::MethodResult& result) {
        if (!result.returnValue.has_value() || !(*result.returnValue == CIMValue(Uint32(0)))) {
            tally_.fail(std::string(method) + " did not return 0");
        }
        tally_.count(method);
    }

    void runTest(wire::CimClient& client) {
        const wire::MethodResult result = invoke(client, methods::runTest, random_() % 2 == 0);
        expectZero(methods::runTest, result);
        if (result.outParameters.size() != 1) {
            tally_.fail("RunTest without a reference to its result");
        }
    }

    void clearResults(wire::CimClient& client) {
        expectZero(methods::clearResults, invoke(client, methods::clearResults, false));
    }

    void discontinueTest(wire::CimClient& client) {
        const wire::MethodResult result = invoke(client, methods::discontinueTest, false);
        if (result.returnValue.has_value() || result.outParameters.size() != 1) {
            tally_.fail("DiscontinueTest did not answer TestingStopped alone");
        }
        tally_.count(methods::discontinueTest);
    }

    void listResults(wire::CimClient& client) {
        const auto results = client.enumerateInstances(nameSpace, "CIM_DiagnosticResult");
        std::set<std::string> pairs;
        for (Uint32 i = 0; i < results.size(); ++i) {
            const CIMInstance& result = results[i];
            if (result.getPropertyCount() != 27) {
                tally_.fail("a result with " + std::to_string(result.getPropertyCount()) +
                            " properties");
                return;
            }
            const std::string pair = text(valueOf(result, properties::diagnosticName)) + " " +
                                     text(valueOf(result, properties::executionId));
            if (!pairs.insert(pair).second) {
                tally_.fail("two results for a pair");
            }
        }
        tally_.count("EnumerateInstances");
    }

    void fetchResult(wire::CimClient& client) {
        const auto names = client.enumerateInstanceNames(nameSpace, classes::result);
        tally_.count("EnumerateInstanceNames");
        if (names.size() == 0) {
            return;
        }
        try {
            client.getInstance(nameSpace, names[static_cast<Uint32>(random_()) % names.size()]);
            tally_.count("GetInstance");
        } catch (const CIMException& refusal) {
            if (refusal.getCode() != Pegasus::CIM_ERR_NOT_FOUND) {
                throw;
            }
            tally_.count("GetInstance of a result that was cleared meanwhile");
        }
    }

    void followAssociations(wire::CimClient& client) {
        const auto found = client.associatorNames(nameSpace, someElement());
        bool hasTest = false;
        for (Uint32 i = 0; i < found.size(); ++i) {
            hasTest = hasTest || found[i].getClassName().equal(CIMName(classes::test));
        }
        if (!hasTest) {
            tally_.fail("an element without test");
        }
        tally_.count("AssociatorNames");
    }

    const wire::ServerUrl& url_;
    const Inventory& inventory_;
    Tally& tally_;
    std::minstd_rand random_;
};

Inventory takeInventory(const wire::ServerUrl& url) {
    wire::CimClient client(url);
    Inventory inventory;
    inventory.test = client.enumerateInstanceNames(nameSpace, classes::test)[0];
    inventory.setting = client.enumerateInstanceNames(nameSpace, classes::setting)[0];
    const auto elements = client.enumerateInstanceNames(nameSpace, classes::managedElement);
    for (Uint32 i = 0; i < elements.size(); ++i) {
        inventory.elements.push_back(elements[i]);
    }
    return inventory;
}

/// The results at the end, each element's once; then the host is told to end.
bool check(const HostProcess& host, const Tally& tally, long memoryBefore) {
    bool good = tally.report();
    for (const char* const what :
         {methods::runTest, methods::clearResults, methods::discontinueTest, "EnumerateInstances",
          "AssociatorNames"}) {
        if (!tally.did(what)) {
            std::cout << "WRONG: never did " << what << '\n';
            good = false;
        }
    }
    std::cout << "memory of the host: " << memoryBefore << " KiB at first, " << host.memory()
              << " KiB at the end\n";
    const int status = host.end();
    const std::string complaints = HostProcess::complaints();
    if (status != 0 || complaints.find("Sanitizer") != std::string::npos) {
        std::cout << "WRONG: the host ended with " << status << '\n' << complaints;
        good = false;
    }
    return good;
}

int run(int seconds, int clientCount, const char* program, const char* library, const char* list) {
    const HostProcess host(program, library, list);
    const wire::ServerUrl url = wire::ServerUrl::parse(host.url());
    const Inventory inventory = takeInventory(url);
    const long memoryBefore = host.memory();
    Tally tally;
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::vector<std::thread> clients;
    clients.reserve(static_cast<std::size_t>(clientCount));
    for (int number = 0; number < clientCount; ++number) {
        clients.emplace_back([&, number] {
            StressClient(url, inventory, tally, static_cast<unsigned>(number) + 1).runUntil(end);
        });
    }
    for (std::thread& client : clients) {
        client.join();
    }
    return check(host, tally, memoryBefore) ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::cerr << "usage: e2e_stress_test SECONDS CLIENTS CIMHOST LIBRARY LIST\n";
        return 2;
    }
    try {
        return run(std::atoi(argv[1]), std::atoi(argv[2]), argv[3], argv[4], argv[5]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
