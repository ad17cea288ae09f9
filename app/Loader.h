// SPDX-License-Identifier: GPL-3.0-or-later
// At most one load at a time, and what has to wait for its end.
#pragma once

#include "data/Reading.h"

#include <functional>
#include <string>
#include <vector>

namespace kelvrum {

/// Runs the loads of a window. A load lets pending events run between its steps; a request that they bring is
/// noted and returns at once, and the running load starts over with what is wanted then. Tasks that need a
/// finished view, or open a modal window, wait until the load has returned. So the stack holds at most one
/// load and one task, whatever the user does.
class Loader {
  public:
    /// One load from its start to the view that it shows. It stops, and shows nothing, when `step` returns
    /// false; `step` lets pending events run.
    using Load = std::function<void(const ReadingStep& step)>;

    /// `pump` lets pending events run.
    Loader(Load load, std::function<void()> pump);

    /// Loads now; while a load runs, makes that one start over and returns at once.
    void load();

    /// The running load starts over, since what it reads has changed; nothing without one.
    void startOver();

    /// The running load ends without a view, and what waits for it is dropped.
    void giveUp();

    /// Runs a task now, or after the load and the tasks that run or wait already. A task that waits is not
    /// noted again; tasks are told apart by their names.
    void whenIdle(const std::string& name, std::function<void()> task);

    [[nodiscard]] bool isLoading() const { return loading_; }

    /// Whether a task waits for the load or the task that runs.
    [[nodiscard]] bool hasWaiting() const { return !waiting_.empty(); }

    /// Whether the running load has been superseded: it must show nothing any more.
    [[nodiscard]] bool isOvertaken() const { return overtaken_; }

    /// How many loads have been requested so far.
    [[nodiscard]] unsigned requests() const { return requests_; }

  private:
    struct Task {
        std::string name;
        std::function<void()> run;
    };

    void runLoads();
    void runTasks();

    Load load_;
    std::function<void()> pump_;
    std::vector<Task> waiting_;
    unsigned requests_ = 0;
    bool loading_ = false;
    bool working_ = false;   // a task runs
    bool wanted_ = false;    // another load is to follow
    bool overtaken_ = false; // the running load is no longer wanted
};

} // namespace kelvrum
