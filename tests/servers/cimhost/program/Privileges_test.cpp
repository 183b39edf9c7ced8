// SPDX-License-Identifier: MIT
// What cimhost gives up. Each case does it in a process of its own, since nothing brings it back.
#include "servers/cimhost/program/Privileges.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/netlink.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "servers/cimhost/program/SystemCallFilter.h"

namespace cimhost {
namespace {

/// What `ask` returns in a child process. An exit without a word is an empty text.
std::string inChild(const std::function<std::string()>& ask) {
    std::array<int, 2> ends = {};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return "no pipe";
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string answer = ask();
        const ssize_t written = ::write(ends[1], answer.data(), answer.size());
        ::_exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
    }
    ::close(ends[1]);
    std::string answer;
    std::array<char, 4096> buffer = {};
    for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;) {
        answer.append(buffer.data(), static_cast<size_t>(count));
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? answer : answer + "(died)";
}

std::string afterGivingUp(const std::function<std::string()>& ask) {
    return inChild([&ask] {
        const std::vector<std::string> failures = giveUpPrivileges();
        return failures.empty() ? ask() : failures.front();
    });
}

/// The outcome of a system call: "0", or the name of the error.
std::string outcome(long result) {
    return result >= 0 ? "0" : strerrorname_np(errno);
}

std::string outcomeAfterGivingUp(const std::function<long()>& call) {
    return afterGivingUp([&call] { return outcome(call()); });
}

std::string statusOfThisThread() {
    std::ifstream file("/proc/thread-self/status");
    std::string found;
    for (std::string line; std::getline(file, line);) {
        for (const char* const name :
             {"CapInh:", "CapPrm:", "CapEff:", "CapAmb:", "NoNewPrivs:", "Seccomp:"}) {
            if (line.rfind(name, 0) == 0) {
                found += line + "\n";
            }
        }
    }
    return found;
}

constexpr const char* givenUp =
    "CapInh:\t0000000000000000\n"
    "CapPrm:\t0000000000000000\n"
    "CapEff:\t0000000000000000\n"
    "CapAmb:\t0000000000000000\n"
    "NoNewPrivs:\t1\n"
    "Seccomp:\t2\n";

TEST(Privileges, NothingIsLeftToThisThreadAndThoseThatItStarts) {
    EXPECT_EQ(afterGivingUp(statusOfThisThread), givenUp);
    EXPECT_EQ(afterGivingUp([] {
                  std::string status;
                  std::thread([&status] { status = statusOfThisThread(); }).join();
                  return status;
              }),
              givenUp);
}

TEST(Privileges, BoundingSetIsEmptyWhereTheProcessMayEmptyIt) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "skipped: only root may";
    }
    EXPECT_EQ(afterGivingUp([] {
                  return std::string(::prctl(PR_CAPBSET_READ, 0, 0, 0, 0) == 0 ? "empty" : "full");
              }),
              "empty");
}

TEST(Privileges, MayBeGivenUpTwice) {
    EXPECT_EQ(afterGivingUp([] { return std::to_string(giveUpPrivileges().size()); }), "0");
}

// A refused call has to be told from one that lacks a capability, which fails with EPERM, too: with
// these arguments the kernel itself would answer otherwise.
TEST(Privileges, CallsThatAServerDoesWithoutAreRefused) {
    const std::map<std::string, std::function<long()>> calls = {
        {"unshare", [] { return ::unshare(CLONE_FS); }},
        {"unshare user", [] { return ::unshare(CLONE_NEWUSER); }},
        {"keyctl", [] { return ::syscall(SYS_keyctl, 0, -3, 0); }},
        {"personality", [] { return ::syscall(SYS_personality, 0xFFFFFFFF); }},
        {"clone", [] { return ::syscall(SYS_clone, CLONE_NEWUSER | SIGCHLD, 0, 0, 0, 0); }},
        {"mknod", [] { return ::mknod("fifo", S_IFIFO | 0600, 0); }},
        {"io_uring_setup", [] { return ::syscall(425, 0, nullptr); }},
        {"bpf", [] { return ::syscall(SYS_bpf, -1, nullptr, 0); }},
#ifndef ZORVA_LEAK_CHECK
        {"ptrace", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
        {"execve", [] { return ::execl("/nonexistent", "nonexistent", nullptr); }},
#endif
    };
    for (const auto& [name, call] : calls) {
        EXPECT_EQ(outcomeAfterGivingUp(call), "EPERM") << name;
    }
}

TEST(Privileges, CallsThatNobodyHasLookedAtAreUnknown) {
    EXPECT_EQ(outcomeAfterGivingUp([] { return ::syscall(463, 0, 0, 0); }), "ENOSYS");
    EXPECT_EQ(outcomeAfterGivingUp([] { return ::syscall(435, nullptr, 0); }), "ENOSYS");
    const std::function<long()> newestKnown = [] { return ::syscall(462, 0, 0, 0); };
    EXPECT_EQ(outcomeAfterGivingUp(newestKnown),
              inChild([&newestKnown] { return outcome(newestKnown()); }));
#ifdef __x86_64__
    constexpr long x32 = 0x40000000;
    EXPECT_EQ(outcomeAfterGivingUp([] { return ::syscall(x32 + SYS_getpid); }), "ENOSYS");
#endif
}

#ifdef __x86_64__
TEST(Privileges, CallsOfAnotherProcessorAreUnknown) {
    const auto callOf32Bits = [] {
        constexpr int getpidOf32Bits = 20;
        long result = getpidOf32Bits;
        asm volatile("int $0x80" : "+a"(result) : : "memory", "r8", "r9", "r10", "r11");
        return result == ::getpid() ? std::string("pid") : std::to_string(result);
    };
    if (inChild(callOf32Bits) != "pid") {
        GTEST_SKIP() << "skipped: this kernel runs no programs of 32 bits";
    }
    EXPECT_EQ(afterGivingUp(callOf32Bits), std::to_string(-ENOSYS));
}
#endif

TEST(Privileges, SocketsAreOfIpAndForTheDiagnosisOfSockets) {
    EXPECT_EQ(outcomeAfterGivingUp([] { return ::socket(AF_INET, SOCK_STREAM, 0); }), "0");
    const std::map<std::string, std::array<int, 3>> kernelsChoice = {
        {"IPv6", {AF_INET6, SOCK_STREAM, 0}},
        {"diagnosis", {AF_NETLINK, SOCK_RAW, NETLINK_SOCK_DIAG}},
    };
    for (const auto& [name, socket] : kernelsChoice) {
        const std::function<long()> call = [&socket = socket] {
            return ::socket(socket[0], socket[1], socket[2]);
        };
        EXPECT_EQ(outcomeAfterGivingUp(call), inChild([&call] { return outcome(call()); })) << name;
    }
    const std::map<std::string, std::array<int, 3>> refused = {
        {"unix", {AF_UNIX, SOCK_STREAM, 0}},
        {"unix, the protocol's number", {AF_UNIX, SOCK_STREAM, NETLINK_SOCK_DIAG}},
        {"packet", {AF_PACKET, SOCK_RAW, 0}},
        {"route", {AF_NETLINK, SOCK_RAW, NETLINK_ROUTE}},
    };
    for (const auto& [name, socket] : refused) {
        EXPECT_EQ(outcomeAfterGivingUp(
                      [&socket = socket] { return ::socket(socket[0], socket[1], socket[2]); }),
                  "EAFNOSUPPORT")
            << name;
    }
}

TEST(Privileges, ThreadsFilesAndLibrariesGoOn) {
    EXPECT_EQ(afterGivingUp([] {
                  std::string text;
                  std::thread([&text] {
                      const bool file = ::open("/dev/null", O_WRONLY | O_CLOEXEC) >= 0;
                      // One that this program has not loaded.
                      const bool library = ::dlopen("libanl.so.1", RTLD_NOW) != nullptr;
                      text = std::string(file ? "file " : "") + (library ? "library" : "");
                  }).join();
                  return text;
              }),
              "file library");
}

/// Has prctl(option) fail with EINVAL, as on a kernel that does not know it.
void makeUnknown(int option) {
    std::array<sock_filter, 6> filter = {{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_prctl, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(option), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program = {filter.size(), filter.data()};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0);
}

std::string failuresWithout(int option) {
    return inChild([option] {
        makeUnknown(option);
        std::string text;
        for (const std::string& failure : giveUpPrivileges()) {
            text += failure + "\n";
        }
        return text + statusOfThisThread().substr(0, std::string(givenUp).find("NoNewPrivs"));
    });
}

TEST(Privileges, WhatTheKernelDoesNotKnowIsNamedAndTheRestIsDone) {
    const std::string withoutCapabilities =
        std::string(givenUp).substr(0, std::string(givenUp).find("NoNewPrivs"));
    EXPECT_EQ(failuresWithout(PR_SET_SECCOMP),
              "system calls cannot be filtered: Invalid argument\n" + withoutCapabilities);
    EXPECT_EQ(failuresWithout(PR_SET_NO_NEW_PRIVS),
              "no_new_privs cannot be set: Invalid argument\n" + withoutCapabilities);
}

TEST(Privileges, WhereNoCapabilityIsLeftTheCallMayBeForbidden) {
    const std::string failures = afterGivingUp([] {
        std::array<sock_filter, 4> filter = {{
            BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_capset, 0, 1),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        }};
        const sock_fprog program = {filter.size(), filter.data()};
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0);
        std::string text;
        for (const std::string& failure : giveUpPrivileges()) {
            text += failure + "\n";
        }
        return text;
    });
    EXPECT_EQ(failures, "");
}

}  // namespace
}  // namespace cimhost
