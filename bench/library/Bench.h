// SPDX-License-Identifier: MIT
// What the benchmarks of the provider library start from.
// One thread.
#pragma once

#include <memory>
#include <string>

#include "tests/support/Client.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/TestServer.h"

/// The loaded library with a provider, on a server that answers from memory.
class Bench {
public:
    /// A provider whose table of results is empty.
    Bench();
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    /// Runs the test on the element of that number; ends the program where it does not pass.
    void run(int element);

    /// Runs the test on elements 1 to `count`, so that there are as many results.
    void makeResults(int count);

    Client& client() { return *client_; }

private:
    std::streambuf* output_;  // of std::cout, which the library writes to
    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    LoadedLibrary library_;
    std::unique_ptr<Client> client_;
    int elements_ = 0;
};

/// Makes `content` the list that the library reads; see main.cpp.
void showDeviceList(const std::string& content);

/// A list of as many hubs as fit into 8 KiB.
std::string eightKibibyteList();
