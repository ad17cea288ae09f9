// SPDX-License-Identifier: GPL-3.0-or-later
// Sockets of this machine by their paths.
#pragma once

#include <cstring>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace kelvrum::testing {

/// The address of a socket; throws std::runtime_error when the path is too long for one.
inline sockaddr_un socketAddress(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        throw std::runtime_error("too long for the name of a socket: " + path);
    }
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return address;
}

} // namespace kelvrum::testing
