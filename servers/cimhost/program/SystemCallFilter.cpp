// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/SystemCallFilter.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/netlink.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <vector>

// Where arguments lie and how the calls are numbered is known of these.
#if defined(__x86_64__)
#define ZORVA_AUDIT_ARCH AUDIT_ARCH_X86_64
#elif defined(__aarch64__) && !defined(__AARCH64EB__)
#define ZORVA_AUDIT_ARCH AUDIT_ARCH_AARCH64
#endif

namespace cimhost {

#ifdef ZORVA_AUDIT_ARCH

namespace {

// A list of what is refused, not of what is allowed: which harmless calls the standard library makes
// differs from version to version. What is newer than this number nobody has looked at.
constexpr std::uint32_t newestKnownCall = 462;  // mseal, Linux 6.10

constexpr std::uint32_t refusedCalls[] = {
#ifndef ZORVA_LEAK_CHECK
    // programs, and the memory of other processes
    SYS_execve, SYS_execveat, SYS_ptrace, SYS_process_vm_readv,
#endif
    SYS_process_vm_writev, SYS_kcmp, SYS_personality,
    // the file system's shape, roots and namespaces
    SYS_mount, SYS_umount2, SYS_pivot_root, SYS_chroot, SYS_unshare, SYS_setns, SYS_mknodat,
    SYS_open_by_handle_at, SYS_name_to_handle_at, SYS_fanotify_init, SYS_quotactl, SYS_swapon,
    SYS_swapoff,
    // the kernel and the machine
    SYS_init_module, SYS_finit_module, SYS_delete_module, SYS_kexec_load, SYS_kexec_file_load,
    SYS_bpf, SYS_perf_event_open, SYS_userfaultfd, SYS_syslog, SYS_reboot, SYS_acct, SYS_vhangup,
    SYS_sethostname, SYS_setdomainname, SYS_settimeofday, SYS_clock_settime, SYS_adjtimex,
    SYS_clock_adjtime,
    // keys
    SYS_add_key, SYS_request_key, SYS_keyctl,
#ifdef __x86_64__
    SYS_mknod, SYS_iopl, SYS_ioperm, SYS_modify_ldt,
#endif
    // From here on every processor numbers them alike; older headers do not name them.
    425,  // io_uring_setup
    426,  // io_uring_enter
    427,  // io_uring_register
    428,  // open_tree
    429,  // move_mount
    430,  // fsopen
    431,  // fsconfig
    432,  // fsmount
    433,  // fspick
    438,  // pidfd_getfd
    440,  // process_madvise
    442,  // mount_setattr
    443,  // quotactl_fd
};
constexpr std::uint32_t clone3Call = 435;

constexpr std::uint32_t newNamespaces = CLONE_NEWNS | CLONE_NEWCGROUP | CLONE_NEWUTS |
                                        CLONE_NEWIPC | CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET;

constexpr std::uint32_t failure(int error) {
    return SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error);
}

/// A filter is a program for a small machine with one register. Every test is followed by the answer
/// that it leads to, so that no jump is longer than one answer.
class Filter {
public:
    void load(std::size_t offset) {
        add(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(offset), 0, 0);
    }
    void loadArgument(unsigned index) {
        // The lower half, which is first on the processors above.
        load(offsetof(seccomp_data, args) + index * sizeof(std::uint64_t));
    }
    void answer(std::uint32_t action) { add(BPF_RET | BPF_K, action, 0, 0); }
    void answerIfEqual(std::uint32_t value, std::uint32_t action) {
        answerIf(BPF_JEQ, value, action);
    }
    void answerUnlessEqual(std::uint32_t value, std::uint32_t action) {
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 1, 0);
        answer(action);
    }
    void answerIfGreater(std::uint32_t value, std::uint32_t action) {
        answerIf(BPF_JGT, value, action);
    }
    void answerIfAnyBit(std::uint32_t bits, std::uint32_t action) {
        answerIf(BPF_JSET, bits, action);
    }
    /// What `build` adds is done where the register holds `value`.
    template <typename Build>
    void ifEqual(std::uint32_t value, Build build) {
        const std::size_t test = instructions_.size();
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 0, 0);
        build();
        instructions_[test].jf = static_cast<std::uint8_t>(instructions_.size() - test - 1);
    }

    bool install() {
        const sock_fprog program = {static_cast<unsigned short>(instructions_.size()),
                                    instructions_.data()};
        return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
    }

private:
    void add(unsigned code, std::uint32_t value, std::uint8_t ifTrue, std::uint8_t ifFalse) {
        instructions_.push_back({static_cast<std::uint16_t>(code), ifTrue, ifFalse, value});
    }
    void answerIf(unsigned test, std::uint32_t value, std::uint32_t action) {
        add(BPF_JMP | test | BPF_K, value, 0, 1);
        answer(action);
    }

    std::vector<sock_filter> instructions_;
};

}  // namespace

bool filterSystemCalls() {
    Filter filter;
    // A program may call the kernel as one of another processor would, with other numbers.
    filter.load(offsetof(seccomp_data, arch));
    filter.answerUnlessEqual(ZORVA_AUDIT_ARCH, failure(ENOSYS));
    filter.load(offsetof(seccomp_data, nr));
    filter.answerIfGreater(newestKnownCall, failure(ENOSYS));
    for (const std::uint32_t call : refusedCalls) {
        filter.answerIfEqual(call, failure(EPERM));
    }
    // Its flags lie in memory, where no filter sees them; the standard library then takes clone.
    filter.answerIfEqual(clone3Call, failure(ENOSYS));
    filter.ifEqual(SYS_clone, [&filter] {
        filter.loadArgument(0);
        filter.answerIfAnyBit(newNamespaces, failure(EPERM));
        filter.answer(SECCOMP_RET_ALLOW);
    });
    filter.ifEqual(SYS_socket, [&filter] {
        filter.loadArgument(0);
        filter.answerIfEqual(AF_INET, SECCOMP_RET_ALLOW);
        filter.answerIfEqual(AF_INET6, SECCOMP_RET_ALLOW);
        filter.answerUnlessEqual(AF_NETLINK, failure(EAFNOSUPPORT));
        filter.loadArgument(2);
        filter.answerUnlessEqual(NETLINK_SOCK_DIAG, failure(EAFNOSUPPORT));
    });
    filter.answer(SECCOMP_RET_ALLOW);
    return filter.install();
}

#else

bool filterSystemCalls() {
    errno = ENOTSUP;
    return false;
}

#endif

}  // namespace cimhost
