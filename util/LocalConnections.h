// SPDX-License-Identifier: GPL-3.0-or-later
// Connections of this process to other programs of the same machine.
#pragma once

#include <filesystem>

namespace kelvrum {

/// Ends every connection of this process to the socket of that name: whatever waits on one goes on at once
/// and finds it closed. Any thread may call it. Does nothing where there are no such sockets.
void endConnectionsTo(const std::filesystem::path& socket);

} // namespace kelvrum
