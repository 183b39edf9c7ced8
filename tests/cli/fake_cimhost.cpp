// SPDX-License-Identifier: MIT
// Stands in for cimhost where tests look at how it is started and ended. What it does is told by
// the name of the device list given to it.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

namespace {

std::string argument(int argc, char* argv[], const char* name) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], name) == 0) {
            return argv[i + 1];
        }
    }
    return {};
}

void describe(const std::string& credentials) {
    struct stat status {};
    ::stat(credentials.c_str(), &status);
    std::string line;
    std::getline(std::ifstream(credentials), line);
    char folder[4096] = "";
    if (::getcwd(folder, sizeof folder) == nullptr) {
        folder[0] = '\0';
    }
    std::cerr << "mode " << std::oct << (status.st_mode & 0777U) << "\ncredentials " << line
              << "\nfolder " << folder << "\ngroup leader " << (::getpgid(0) == ::getpid()) << "\n";
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::string behaviour = argument(argc, argv, "--devices");
    if (behaviour == "/fails") {
        std::cerr << "cannot do it\n";
        return 1;
    }
    if (behaviour == "/babbles") {
        std::cout << "hello" << std::endl;
    } else if (behaviour == "/not-shown") {
        std::cout << "not shown: it" << std::endl;
    } else if (behaviour == "/in-pieces") {
        std::cout << "listening on http://127.0" << std::flush;
        std::cout << ".0.1:7\n" << std::flush;
    } else {
        describe(argument(argc, argv, "--credentials"));
        std::cout << "listening on http://127.0.0.1:4711" << std::endl;
    }
    if (behaviour == "/stubborn") {
        std::signal(SIGTERM, SIG_IGN);
        std::cerr << "ignoring SIGTERM" << std::endl;
    }
    if (behaviour == "/talkative") {
        for (int i = 0; i < 20000; ++i) {
            std::cerr << "line " << std::dec << i << "\n";
        }
    }
    for (;;) {
        ::pause();
    }
}
