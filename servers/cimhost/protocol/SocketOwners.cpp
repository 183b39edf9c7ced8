// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/SocketOwners.h"

#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace cimhost {

namespace {

struct Question {
    nlmsghdr header;
    inet_diag_req_v2 request;
};

/// Address and port of one end of a connection.
struct End {
    sockaddr_storage address{};
    socklen_t size = sizeof(sockaddr_storage);

    template <class Get>
    End(Get get, int socket) : isKnown_(get(socket, to<sockaddr>(), &size) == 0) {}

    bool isKnown() const { return isKnown_ && (isIpv4() || address.ss_family == AF_INET6); }
    bool isIpv4() const { return address.ss_family == AF_INET; }

    /// In network byte order, as all that follows.
    in_port_t port() {
        return isIpv4() ? to<sockaddr_in>()->sin_port : to<sockaddr_in6>()->sin6_port;
    }

    void copyTo(__be32 (&words)[4]) {
        if (isIpv4()) {
            std::memcpy(words, &to<sockaddr_in>()->sin_addr, sizeof(in_addr));
        } else {
            std::memcpy(words, &to<sockaddr_in6>()->sin6_addr, sizeof(in6_addr));
        }
    }

private:
    template <class T>
    T* to() {
        return reinterpret_cast<T*>(&address);
    }

    bool isKnown_;
};

[[noreturn]] void fail(const char* what) {
    throw std::runtime_error(std::string(what) + ": " + std::generic_category().message(errno));
}

/// Whether every user has a name of their own here: not so in most user namespaces, where those
/// without one all look like the one "overflow" user.
bool isOverflowUser(uid_t user) {
    std::ifstream overflowFile("/proc/sys/kernel/overflowuid");
    uid_t overflow = 65534;
    overflowFile >> overflow;
    if (user != overflow) {
        return false;
    }
    std::ifstream map("/proc/self/uid_map");
    std::uint64_t inside = 1;
    std::uint64_t outside = 1;
    std::uint64_t count = 0;
    map >> inside >> outside >> count;
    constexpr std::uint64_t everybody = 0xFFFFFFFF;
    return inside != 0 || outside != 0 || count != everybody;
}

/// The owner that an answer tells of the socket with these ports.
std::optional<uid_t> ownerIn(const inet_diag_msg& told, in_port_t port, in_port_t peerPort) {
    // Where there is no such connection the kernel may tell of a listener. A socket that no process
    // holds any more is told as one of root, without an inode.
    const bool isAsked = told.id.idiag_sport == port && told.id.idiag_dport == peerPort &&
                         told.idiag_state != TCP_LISTEN;
    return isAsked && told.idiag_inode != 0 ? std::optional<uid_t>(told.idiag_uid) : std::nullopt;
}

}  // namespace

SocketOwners::SocketOwners()
    : kernel_(socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_SOCK_DIAG)) {
    if (!kernel_.isOpen()) {
        fail("no socket to ask it by");
    }
    const timeval patience{1, 0};
    setsockopt(kernel_.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    tryOut();
}

/// Asks about a connection of this process.
void SocketOwners::tryOut() const {
    if (isOverflowUser(geteuid())) {
        throw std::runtime_error("this user has no name of its own in this user namespace");
    }
    const base::FileDescriptor listening(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const base::FileDescriptor connecting(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (bind(listening.get(), generic, size) != 0 || listen(listening.get(), 1) != 0 ||
        getsockname(listening.get(), generic, &size) != 0 ||
        connect(connecting.get(), generic, size) != 0) {
        fail("no connection to try it out with");
    }
    const base::FileDescriptor accepted(accept4(listening.get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!accepted.isOpen()) {
        fail("no connection to try it out with");
    }
    if (ownerOfPeer(accepted.get()) != geteuid()) {
        throw std::runtime_error("it did not when it was asked about one of this process");
    }
}

std::optional<uid_t> SocketOwners::ownerOfPeer(int connected) const {
    End peer(getpeername, connected);
    End own(getsockname, connected);
    if (!peer.isKnown() || !own.isKnown()) {
        return std::nullopt;
    }
    Question question{};
    question.header.nlmsg_len = sizeof question;
    question.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    question.header.nlmsg_flags = NLM_F_REQUEST;
    question.request.sdiag_family = static_cast<__u8>(peer.address.ss_family);
    question.request.sdiag_protocol = IPPROTO_TCP;
    question.request.idiag_states = ~0U;
    question.request.id.idiag_sport = peer.port();
    question.request.id.idiag_dport = own.port();
    peer.copyTo(question.request.id.idiag_src);
    own.copyTo(question.request.id.idiag_dst);
    std::fill(std::begin(question.request.id.idiag_cookie),
              std::end(question.request.id.idiag_cookie), INET_DIAG_NOCOOKIE);

    const base::MutexLock lock(mutex_);
    question.header.nlmsg_seq = ++question_;
    if (send(kernel_.get(), &question, sizeof question, 0) != sizeof question) {
        return std::nullopt;
    }
    while (true) {
        alignas(nlmsghdr) std::array<char, 4096> answer{};
        sockaddr_nl sender{};
        socklen_t size = sizeof sender;
        const ssize_t length = recvfrom(kernel_.get(), answer.data(), answer.size(), 0,
                                        reinterpret_cast<sockaddr*>(&sender), &size);
        if (length < 0 && errno == EINTR) {
            continue;
        }
        if (length < static_cast<ssize_t>(sizeof(nlmsghdr))) {
            return std::nullopt;
        }
        const auto* const header = reinterpret_cast<const nlmsghdr*>(answer.data());
        if (sender.nl_pid != 0 || header->nlmsg_seq != question.header.nlmsg_seq) {
            continue;  // from somebody else, or to a question that was given up
        }
        if (header->nlmsg_type != SOCK_DIAG_BY_FAMILY ||
            length < static_cast<ssize_t>(NLMSG_LENGTH(sizeof(inet_diag_msg)))) {
            return std::nullopt;
        }
        const auto* const told = reinterpret_cast<const inet_diag_msg*>(NLMSG_DATA(header));
        return ownerIn(*told, peer.port(), own.port());
    }
}

}  // namespace cimhost
