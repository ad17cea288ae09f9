// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Loader.h"

#include <algorithm>
#include <utility>

namespace kelvrum {

namespace {

/// Set for as long as this lives.
class Raised {
  public:
    explicit Raised(bool& flag)
        : flag_(flag) {
        flag_ = true;
    }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { flag_ = false; }

  private:
    bool& flag_;
};

} // namespace

Loader::Loader(Load load, std::function<void()> pump)
    : load_(std::move(load))
    , pump_(std::move(pump)) {}

void Loader::load() {
    ++requests_;
    if (loading_) {
        startOver();
        return;
    }
    runLoads();
    runTasks();
}

void Loader::startOver() {
    if (loading_) {
        wanted_ = true;
        overtaken_ = true;
    }
}

void Loader::giveUp() {
    wanted_ = false;
    overtaken_ = true;
    waiting_.clear();
}

void Loader::whenIdle(const std::string& name, std::function<void()> task) {
    const auto hasName = [&name](const Task& one) { return one.name == name; };
    if (std::none_of(waiting_.begin(), waiting_.end(), hasName)) {
        waiting_.push_back({name, std::move(task)});
    }
    runTasks();
}

void Loader::runLoads() {
    const Raised loading(loading_);
    do {
        wanted_ = false;
        overtaken_ = false;
        load_([this] {
            pump_();
            return !overtaken_;
        });
    } while (wanted_);
}

void Loader::runTasks() {
    if (loading_ || working_) {
        return; // the load or the task calls this at its end
    }
    const Raised working(working_);
    while (!waiting_.empty()) {
        const Task next = std::move(waiting_.front());
        waiting_.erase(waiting_.begin());
        next.run();
    }
}

} // namespace kelvrum
