// SPDX-License-Identifier: GPL-3.0-or-later
// An end to the waiting of the toolkit for the print system.
#pragma once

#include "drawing/PrintQueue.h"

#include <QTemporaryDir>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace kelvrum {

/// The toolkit queries the print system itself, on the user-interface thread, and waits up to a minute for
/// each reply. While this lives, a query is aborted when the print system has not replied to anything for a
/// second, and every later one fails at once. Does nothing without CUPS. Create one at a time, on the
/// user-interface thread, and only after a probe: it connects to the print system.
class ToolkitPatience {
  public:
    ToolkitPatience();
    ToolkitPatience(const ToolkitPatience&) = delete;
    ToolkitPatience& operator=(const ToolkitPatience&) = delete;
    ~ToolkitPatience();

    /// Whether a query was aborted: what the toolkit has returned since is incomplete.
    [[nodiscard]] bool isOver() const { return *over_; }

    /// Covers the current connection. The print system closes one that is idle for half a minute, and the
    /// toolkit opens another for its next query.
    void renew();

    /// For the function that CUPS calls whenever an answer is late: whether to wait on.
    [[nodiscard]] bool waitsOn();

  private:
    void detour();
    void watch();

    std::unique_ptr<QTemporaryDir> folder_; // of the detour
    std::shared_ptr<std::atomic<bool>> over_ =
        std::make_shared<std::atomic<bool>>(false); // set in the helper thread
    std::function<void()> giveUp_;                  // any thread may call it
    std::optional<QueueWatch> watch_;
    bool isConnected_ = false; // when it last looked
};

} // namespace kelvrum
