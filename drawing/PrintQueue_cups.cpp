// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PrintQueue.h"

#include "drawing/CupsLibrary.h"
#include "drawing/CupsTalk.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace kelvrum {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto PATIENCE = std::chrono::seconds(10);  // with a print system that makes no progress
constexpr auto PROBE = std::chrono::seconds(1);      // in which it must answer a probe
constexpr auto WITHDRAWAL = std::chrono::seconds(1); // in which a withdrawn job may still answer
constexpr auto WATCH_EVERY = std::chrono::milliseconds(100);
constexpr auto STEP = std::chrono::milliseconds(20);

/// What caller and helper thread share. It outlives a caller that has given up.
struct Exchange {
    TalkProgress progress;
    std::mutex mutex;
    std::condition_variable done;
    std::optional<QueueAnswer> answer;
};

/// Waits for an answer, at most STEP long.
std::optional<QueueAnswer> awaitAnswer(Exchange& exchange) {
    std::unique_lock lock(exchange.mutex);
    exchange.done.wait_for(lock, STEP, [&] { return exchange.answer.has_value(); });
    return exchange.answer;
}

/// Runs `talk` in its own thread, which ends on its own when the caller gives up.
template<typename Talk>
QueueAnswer runBeside(Talk talk, Clock::duration patience, const QueueStep& step) {
    const auto exchange = std::make_shared<Exchange>();
    std::thread([exchange, talk] {
        QueueAnswer answer = talk(exchange->progress);
        const std::lock_guard lock(exchange->mutex);
        exchange->answer = std::move(answer);
        exchange->done.notify_all();
    }).detach();

    auto lastChange = Clock::now();
    auto changes = exchange->progress.changes.load();
    std::optional<Clock::time_point> withdrawn;
    while (true) {
        if (const auto answer = awaitAnswer(*exchange)) {
            return *answer;
        }
        if (const auto now = exchange->progress.changes.load(); now != changes) {
            changes = now;
            lastChange = Clock::now();
        }
        if (withdrawn && Clock::now() > *withdrawn + WITHDRAWAL) {
            return {QueueAnswer::Fate::withdrawn, 0, {}}; // the thread cancels what may still become a job
        }
        if (!withdrawn && Clock::now() - lastChange > patience) {
            exchange->progress.withdrawn = true; // any late result is ignored
            return {QueueAnswer::Fate::silent, exchange->progress.number, {}};
        }
        if (!withdrawn && step && !step(exchange->progress.sent)) {
            exchange->progress.withdrawn = true;
            withdrawn = Clock::now();
        }
    }
}

} // namespace

bool PrintQueue::isSupported() { return CupsLibrary::load() != nullptr; }

QueueAnswer PrintQueue::probe(const QueueStep& step) {
    if (!isSupported()) {
        return {QueueAnswer::Fate::accepted, 0, {}};
    }
    return runBeside([](TalkProgress& progress) { return cupsProbe(progress); }, PROBE, step);
}

QueueAnswer PrintQueue::print(const QueueJob& job, const QueueStep& step) {
    return runBeside([job](TalkProgress& progress) { return cupsPrint(job, progress); }, PATIENCE, step);
}

/// What window and helper thread share.
struct QueueWatch::Shared {
    std::atomic<bool> isOver = false;
    std::atomic<Clock::time_point> lastAnswer = Clock::now();
};

QueueWatch::QueueWatch(const std::function<void()>& silent)
    : shared_(std::make_shared<Shared>()) {
    if (!PrintQueue::isSupported()) {
        return;
    }
    std::thread([shared = shared_, silent] {
        while (!shared->isOver) {
            if (PrintQueue::probe({}).fate == QueueAnswer::Fate::accepted) {
                shared->lastAnswer = Clock::now();
            } else if (!shared->isOver) {
                silent();
            }
            std::this_thread::sleep_for(WATCH_EVERY);
        }
    }).detach();
}

QueueWatch::~QueueWatch() { shared_->isOver = true; }

std::chrono::steady_clock::duration QueueWatch::silence() const {
    return PrintQueue::isSupported() ? Clock::now() - shared_->lastAnswer.load() : Clock::duration::zero();
}

} // namespace kelvrum
