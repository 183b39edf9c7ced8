// SPDX-License-Identifier: MIT
#include "bench/library/Bench.h"

#include <cstdlib>
#include <iostream>

#include "tests/support/Parameters.h"

Bench::Bench() : output_(std::cout.rdbuf(nullptr)), library_(ZORVA_LIBRARY) {
    server_->addHost();
    client_ = std::make_unique<Client>(library_.create());
    Pegasus::CIMOMHandle handle(server_);
    client_->provider().initialize(handle);
}

Bench::~Bench() {
    client_.reset();
    std::cout.rdbuf(output_);
    std::cout.clear();
}

void Bench::run(int element) {
    while (elements_ < element) {
        server_->addElement(std::to_string(++elements_).c_str());
    }
    server_->forgetCalls();
    if (client_->invoke("RunTest", elementParameter(std::to_string(element))) != "uint32 0") {
        std::cerr << "RunTest did not pass\n";
        std::abort();
    }
}

void Bench::makeResults(int count) {
    for (int element = 1; element <= count; ++element) {
        run(element);
    }
}

std::string eightKibibyteList() {
    const std::string hub =
        "T:  Bus=01 Lev=01 Prnt=01 Port=03 Cnt=02 Dev#=  4 Spd=1.5 MxCh= 0\n"
        "D:  Ver= 1.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
        "P:  Vendor=046d ProdID=c00c Rev= 6.10\n"
        "S:  Manufacturer=Logitech\n"
        "S:  Product=USB Mouse\n"
        "C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr= 98mA\n"
        "I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid\n"
        "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms\n"
        "\n";
    constexpr std::size_t readAtMost = 8192;
    std::string list;
    while (list.size() + hub.size() <= readAtMost) {
        list += hub;
    }
    return list;
}
