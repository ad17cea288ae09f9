// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/LocalConnections.h"

#include <algorithm>
#include <array>

#if __has_include(<sys/un.h>)
#include <sys/socket.h>
#include <sys/un.h>
#define KELVRUM_HAS_LOCAL_SOCKETS
#endif

namespace kelvrum {

#ifdef KELVRUM_HAS_LOCAL_SOCKETS
namespace {

/// The name of the socket at the other end; empty when it has none.
std::filesystem::path otherEnd(int handle) {
    sockaddr_un address = {};
    socklen_t size = sizeof(address) - 1; // the name may fill it without a zero
    if (::getpeername(handle, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        address.sun_family != AF_UNIX) {
        return {};
    }
    return address.sun_path;
}

} // namespace

void endConnectionsTo(const std::filesystem::path& socket) {
    constexpr int HANDLES = 1024; // what a process may have open by default
    std::error_code ignored;
    const std::filesystem::path meant = std::filesystem::weakly_canonical(socket, ignored);
    for (int handle = 0; handle < HANDLES; ++handle) {
        const std::filesystem::path other = otherEnd(handle);
        if (!other.empty() && std::filesystem::weakly_canonical(other, ignored) == meant) {
            ::shutdown(handle, SHUT_RDWR);
        }
    }
}

std::string waitingBytes(int connection) {
    std::array<char, 256> bytes{};
    const ssize_t count = ::recv(connection, bytes.data(), bytes.size(), MSG_PEEK | MSG_DONTWAIT);
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}
#else
std::string waitingBytes(int /*connection*/) { return {}; }

void endConnectionsTo(const std::filesystem::path& /*socket*/) {}
#endif

} // namespace kelvrum
