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

/// The toolkit puts questions of its own to the print system, in the thread of the window, and waits a minute
/// for each answer. While this lives, a question is given up when the print system has not answered anything
/// for a second, and every later one fails at once. Where there is no CUPS, this does nothing. Make one at a
/// time, in the thread of the window, and only after a probe: it connects to the print system.
class ToolkitPatience {
  public:
    ToolkitPatience();
    ToolkitPatience(const ToolkitPatience&) = delete;
    ToolkitPatience& operator=(const ToolkitPatience&) = delete;
    ~ToolkitPatience();

    /// Whether a question has been given up: what the toolkit has returned since is not complete.
    [[nodiscard]] bool isOver() const { return *over_; }

    /// Covers the connection that there is now. The print system ends one that is not used for half a minute,
    /// and the toolkit makes another one for its next question.
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
