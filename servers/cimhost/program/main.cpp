// SPDX-License-Identifier: MIT
// cimhost: a CIM server for one machine that serves the USB diagnostics.
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include <Pegasus/Common/Exception.h>

#include "base/FileDescriptor.h"
#include "devicelist/DeviceListMount.h"
#include "devicelist/HostControllers.h"
#include "options/Completion.h"
#include "options/Help.h"
#include "options/UsageError.h"
#include "servers/cimhost/machine/MachineElements.h"
#include "servers/cimhost/program/Host.h"
#include "servers/cimhost/program/Installation.h"
#include "servers/cimhost/program/Options.h"
#include "servers/cimhost/program/Privileges.h"
#include "servers/cimhost/protocol/CimService.h"
#include "servers/cimhost/protocol/Credentials.h"
#include "servers/cimhost/protocol/UserGate.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/http/HttpServer.h"
#include "wire/http/ListenAddress.h"

namespace {

using namespace cimhost;

constexpr int exitFailure = 1;

// Whoever started this program may give up waiting after a few seconds.
constexpr std::chrono::milliseconds endPatience{1000};

/// Keeps standard output for the one line that says where the host listens: what the provider
/// library prints there goes to standard error. Returns a descriptor on the real standard output.
base::FileDescriptor reserveStandardOutput() {
    base::FileDescriptor output(::dup(STDOUT_FILENO));
    if (!output.isOpen() || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot redirect standard output");
    }
    return output;
}

void announce(base::FileDescriptor output, const std::string& url) {
    const std::string line = "listening on " + url + "\n";
    if (::write(output.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        throw std::system_error(errno, std::generic_category(), "cannot write to standard output");
    }
}

/// Shows the list that the options ask for where the provider reads; returns the host controllers.
std::vector<std::string> presentDevices(const Options& options) {
    if (options.devices.has_value()) {
        // Its name may lead elsewhere a moment later: both are of the file that was opened.
        const devicelist::DeviceListMount list(*options.devices);
        std::vector<std::string> controllers = devicelist::hostControllersOfFile(list.path());
        list.enter();
        return controllers;
    }
    if (::access(base::deviceListPath, F_OK) != 0 && ::access(base::kernelListPath, R_OK) == 0) {
        try {
            devicelist::DeviceListMount(base::kernelListPath).enter();
        } catch (const devicelist::DeviceListMountError& failure) {
            std::cerr << "cimhost: the kernel's device list cannot be shown to the provider: "
                      << failure.what() << '\n';
        }
    }
    return devicelist::hostControllersOfMachine("/sys");
}

bool mayReadDeviceList() {
    return ::faccessat(AT_FDCWD, base::deviceListPath, R_OK, AT_EACCESS) == 0;
}

/// Keeps, of the rights that showing the list may have taken, none. Throws std::runtime_error if the
/// list could be read with them alone: the test would find no devices, and pass.
void giveUpRights(const Options& options) {
    const bool mightRead = mayReadDeviceList();
    for (const std::string& failure : giveUpPrivileges()) {
        std::cerr << "cimhost: goes on with more rights than it needs: " << failure << '\n';
    }
    if (mightRead && !mayReadDeviceList()) {
        throw std::runtime_error("cannot read " + options.devices.value_or(base::deviceListPath) +
                                 " without privileges, which this server gives up: let user " +
                                 std::to_string(::geteuid()) + " read it");
    }
}

HostSettings settingsFrom(const Options& options) {
    const Installation installation = findInstallation();
    HostSettings settings;
    settings.mofFiles =
        options.mofFiles.empty() ? std::vector{installation.mofFile} : options.mofFiles;
    settings.providerLibrary = options.provider.value_or(installation.providerLibrary);
    settings.hostName = shortHostName();
    settings.deviceIds = presentDevices(options);
    return settings;
}

/// Blocks the signals that end the host, for this thread and those that it starts.
sigset_t blockEndingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return signals;
}

/// Keeps what a burst of requests needed from staying with the process: two heaps at most, however
/// many connections have threads of their own, large blocks apart from them, and what becomes free
/// at the end of a heap goes back to the system.
void boundMemory() {
#ifdef __GLIBC__
    constexpr int kibibyte = 1024;
    mallopt(M_ARENA_MAX, 2);
    mallopt(M_MMAP_THRESHOLD, 64 * kibibyte);
    mallopt(M_TRIM_THRESHOLD, 128 * kibibyte);
#endif
}

int serve(const Options& options) {
    const wire::ListenAddress address(options.address, options.port);
    std::optional<Credentials> credentials;
    if (options.credentials.has_value()) {
        credentials = Credentials::fromFile(*options.credentials);
    }
    // Before a namespace is entered in which other users have no names.
    std::unique_ptr<const UserGate> gate;
    if (!options.credentials.has_value() && !options.open) {
        gate = std::make_unique<const UserGate>();
    }
    base::FileDescriptor output = reserveStandardOutput();
    const sigset_t endingSignals = blockEndingSignals();
    const HostSettings settings = settingsFrom(options);
    giveUpRights(options);
    Host host(settings);
    for (const std::string& name : host.missingClasses()) {
        std::cerr << "cimhost: the MOF files have no class " << name
                  << "; there will be no instances of it\n";
    }
    const CimService service(host.operations(), std::move(credentials));
    wire::HttpServer server(
        address, [&](wire::HttpRequest&& request) { return service.answer(std::move(request)); },
        wire::HttpLimits{},
        [&](int socket) { return gate ? gate->refusal(socket) : std::nullopt; });
    announce(std::move(output), server.url());

    int signal = 0;
    sigwait(&endingSignals, &signal);
    const bool answered = server.stop(endPatience);
    if (!host.terminate(endPatience) || !answered) {
        // A request waits inside the provider; its thread must not find anything destroyed.
        std::_Exit(EXIT_SUCCESS);
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = parseOptions({argv + 1, argv + argc});
        if (options.help) {
            std::cout << options::programHelp(program());
            return EXIT_SUCCESS;
        }
        if (options.version) {
            std::cout << options::versionText(program());
            return EXIT_SUCCESS;
        }
        if (options.completion.has_value()) {
            std::cout << options::completionScript(program(), *options.completion);
            return EXIT_SUCCESS;
        }
        boundMemory();
        return serve(options);
    } catch (const options::UsageError& error) {
        std::cerr << options::usageComplaint(program(), error.what());
        return options::exitUsage;
    } catch (const std::invalid_argument& error) {
        std::cerr << options::usageComplaint(program(), error.what());
        return options::exitUsage;
    } catch (const std::exception& error) {
        std::cerr << "cimhost: " << error.what() << '\n';
    } catch (const Pegasus::Exception& error) {
        std::cerr << "cimhost: " << wire::toUtf8(error.getMessage()) << '\n';
    }
    return exitFailure;
}
