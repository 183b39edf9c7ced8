// SPDX-License-Identifier: MIT
// Requests per second over one connection that is kept open, cimhost against the HTTP library alone
// with an answer of the same size, and against OpenPegasus with the same provider where PEGASUS_HOME
// names one; start-up time; memory at rest and after a hundred thousand requests.
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/ServerProcess.h"
#include "contract/Names.h"
#include "wire/cimxml/RequestWriter.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/client/CimClient.h"
#include "wire/http/PercentEncoding.h"

using namespace contract;
using namespace wire;

namespace {

std::vector<std::string> cimhostCommand() {
    return {ZORVA_CIMHOST, "--devices", ZORVA_DEVICE_LIST};
}

#ifdef ZORVA_OPENPEGASUS_SERVER
/// A server that ends with this program and that nothing else on the machine sees.
std::vector<std::string> openPegasusCommand() {
    return {"/usr/bin/env", "ZORVA_BUILD_DIR=" ZORVA_BUILD_DIR, ZORVA_OPENPEGASUS_SERVER,
            ZORVA_DEVICE_LIST};
}
#endif

std::string httpRequest(const std::string& method, const std::string& object,
                        const std::string& body) {
    return "POST /cimom HTTP/1.1\r\nHost: localhost\r\n"
           "Content-Type: application/xml; charset=\"utf-8\"\r\nCIMOperation: MethodCall\r\n"
           "CIMMethod: " +
           method + "\r\nCIMObject: " + wire::percentEncoded(object) +
           "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string getInstance(const Pegasus::CIMObjectPath& path) {
    wire::OperationRequestWriter writer("1", "GetInstance", nameSpace);
    writer.instanceName("InstanceName", path);
    writer.boolean("LocalOnly", false);
    return httpRequest("GetInstance", nameSpace, writer.finish());
}

std::string enumerateInstances(const char* className) {
    wire::OperationRequestWriter writer("1", "EnumerateInstances", nameSpace);
    writer.className("ClassName", Pegasus::CIMName(className));
    writer.boolean("LocalOnly", false);
    return httpRequest("EnumerateInstances", nameSpace, writer.finish());
}

/// A server with one result in it, and requests about it.
struct Subject {
    explicit Subject(const std::vector<std::string>& commandLine)
        : server(commandLine), client(wire::ServerUrl::parse(server.url())) {
        test = client.enumerateInstanceNames(nameSpace, classes::test)[0];
        element = client.enumerateInstanceNames(nameSpace, classes::managedElement)[0];
        element.setNameSpace(nameSpace);
        Pegasus::Array<Pegasus::CIMParamValue> parameters;
        parameters.append(
            Pegasus::CIMParamValue(parameters::systemElement, Pegasus::CIMValue(element)));
        client.invokeMethod(nameSpace, test, methods::runTest, parameters);
        result = client.enumerateInstanceNames(nameSpace, classes::result)[0];

        Pegasus::CIMObjectPath local = test;
        local.setNameSpace(nameSpace);
        runTest = httpRequest(
            methods::runTest, wire::toUtf8(local.toString()),
            wire::writeMethodRequest("1", methods::runTest, nameSpace, test, parameters));
    }

    ServerProcess server;
    wire::CimClient client;
    Pegasus::CIMObjectPath test;
    Pegasus::CIMObjectPath element;
    Pegasus::CIMObjectPath result;
    std::string runTest;
};

Subject& embeddedHost() {
    static Subject only(cimhostCommand());
    return only;
}

#ifdef ZORVA_OPENPEGASUS_SERVER
Subject& openPegasus() {
    static Subject only(openPegasusCommand());
    return only;
}
#endif

void exchange(benchmark::State& state, std::uint16_t port, const std::string& request) {
    KeptConnection connection(port);
    std::size_t bytes = connection.exchange(request).size();
    for (auto _ : state) {
        bytes = connection.exchange(request).size();
    }
    state.counters["requests/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["answer_bytes"] = static_cast<double>(bytes);
}

void constantAnswer(benchmark::State& state, const std::string& program) {
    const std::string request = getInstance(embeddedHost().result);
    KeptConnection connection(embeddedHost().server.port());
    const std::string response = connection.exchange(request);
    const std::size_t body = response.size() - response.find("\r\n\r\n") - 4;
    const ServerProcess constant({program, std::to_string(body)});
    exchange(state, constant.port(), request);
}

void httpLibraryAlone(benchmark::State& state) {
    constantAnswer(state, ZORVA_CONSTANT_SERVER);
}

#ifdef ZORVA_CONSTANT_HTTPLIB_SERVER
void otherHttpLibraryAlone(benchmark::State& state) {
    constantAnswer(state, ZORVA_CONSTANT_HTTPLIB_SERVER);
}
BENCHMARK(otherHttpLibraryAlone)->UseRealTime();
#endif

using SubjectSource = Subject& (*)();

/// Exchanges what `request` makes of the server's paths; without that server says so instead.
template <class Request>
void exchangeWith(benchmark::State& state, SubjectSource source, Request request) {
    try {
        Subject& subject = source();
        exchange(state, subject.server.port(), request(subject));
    } catch (const std::runtime_error& error) {
        state.SkipWithError(error.what());
    }
}

void getInstanceOfResult(benchmark::State& state, SubjectSource source) {
    exchangeWith(state, source, [](const Subject& subject) { return getInstance(subject.result); });
}

void getInstanceOfTest(benchmark::State& state, SubjectSource source) {
    exchangeWith(state, source, [](const Subject& subject) { return getInstance(subject.test); });
}

void enumerateTests(benchmark::State& state, SubjectSource source) {
    exchangeWith(state, source, [](const Subject&) { return enumerateInstances(classes::test); });
}

void runTest(benchmark::State& state, SubjectSource source) {
    exchangeWith(state, source, [](const Subject& subject) { return subject.runTest; });
}

void startUp(benchmark::State& state) {
    for (auto _ : state) {
        auto server = std::make_unique<ServerProcess>(cimhostCommand());
        state.PauseTiming();
        server.reset();
        state.ResumeTiming();
    }
}

void memory(benchmark::State& state) {
    constexpr int requests = 100'000;
    constexpr double kiBPerMiB = 1024;
    for (auto _ : state) {
        const Subject fresh(cimhostCommand());
        state.counters["idle_MiB"] = static_cast<double>(fresh.server.residentKiB()) / kiBPerMiB;
        const std::string request = getInstance(fresh.result);
        KeptConnection connection(fresh.server.port());
        for (int i = 0; i < requests; ++i) {
            connection.exchange(request);
        }
        state.counters["after_MiB"] = static_cast<double>(fresh.server.residentKiB()) / kiBPerMiB;
    }
}

BENCHMARK(httpLibraryAlone)->UseRealTime();
BENCHMARK_CAPTURE(getInstanceOfResult, cimhost, embeddedHost)->UseRealTime();
BENCHMARK_CAPTURE(getInstanceOfTest, cimhost, embeddedHost)->UseRealTime();
BENCHMARK_CAPTURE(enumerateTests, cimhost, embeddedHost)->UseRealTime();
BENCHMARK_CAPTURE(runTest, cimhost, embeddedHost)->UseRealTime();
#ifdef ZORVA_OPENPEGASUS_SERVER
BENCHMARK_CAPTURE(getInstanceOfResult, openpegasus, openPegasus)->UseRealTime();
BENCHMARK_CAPTURE(getInstanceOfTest, openpegasus, openPegasus)->UseRealTime();
BENCHMARK_CAPTURE(enumerateTests, openpegasus, openPegasus)->UseRealTime();
BENCHMARK_CAPTURE(runTest, openpegasus, openPegasus)->UseRealTime();
#endif
BENCHMARK(startUp)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(memory)->UseRealTime()->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
