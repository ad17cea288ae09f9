// SPDX-License-Identifier: GPL-3.0-or-later
// Connections of this process to other programs of the same machine.
#pragma once

#include <filesystem>
#include <string>

namespace kelvrum {

/// Ends every connection of this process to the socket of that name: whatever waits on one goes on at once
/// and finds it closed. Any thread may call it. Does nothing where there are no such sockets.
void endConnectionsTo(const std::filesystem::path& socket);

/// What has arrived at a connection and has not been read yet, at most 256 bytes; it stays there.
std::string waitingBytes(int connection);

} // namespace kelvrum
