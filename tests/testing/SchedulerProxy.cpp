// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/SchedulerProxy.h"

#include "tests/testing/PrivateCups.h"
#include "tests/testing/SocketAddress.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace kelvrum::testing {

namespace {

constexpr int LOOK_EVERY = 5;             // milliseconds
constexpr std::size_t A_PART = 32 * 1024; // bytes of a document

/// A connection to the scheduler, or -1.
int callScheduler(const std::string& path) {
    const sockaddr_un address = socketAddress(path);
    const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        ::close(handle);
        return -1;
    }
    return handle;
}

/// False when the other side takes no more.
bool sendAll(int handle, const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t n = ::send(handle, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (n <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(n);
    }
    return true;
}

bool isReadable(int handle) {
    pollfd one{handle, POLLIN, 0};
    return ::poll(&one, 1, 0) > 0;
}

} // namespace

SchedulerProxy::SchedulerProxy(std::string path, std::string scheduler)
    : path_(std::move(path))
    , scheduler_(std::move(scheduler)) {
    listen();
    thread_ = std::thread([this] { run(); });
}

std::unique_ptr<SchedulerProxy> SchedulerProxy::beforeScheduler() {
    if (!PrivateCups::isInstalled()) {
        return nullptr;
    }
    const QByteArray scheduler = qgetenv("CUPS_SERVER");
    const QByteArray path = scheduler + "-proxy";
    auto proxy = std::make_unique<SchedulerProxy>(path.toStdString(), scheduler.toStdString());
    qputenv("CUPS_SERVER", path);
    return proxy;
}

SchedulerProxy::~SchedulerProxy() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    thread_.join();
    hangUp();
    stopListening();
}

void SchedulerProxy::listen() {
    if (socket_ >= 0) {
        return;
    }
    const sockaddr_un address = socketAddress(path_);
    socket_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
    constexpr int CALLS = 50;
    if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(socket_, CALLS) != 0) {
        throw std::runtime_error("no socket to listen on: " + path_);
    }
}

void SchedulerProxy::stopListening() {
    if (socket_ >= 0) {
        ::close(std::exchange(socket_, -1));
        ::unlink(path_.c_str());
    }
}

void SchedulerProxy::hangUp() {
    for (const Call& call : calls_) {
        ::close(call.program);
        ::close(call.scheduler);
    }
    calls_.clear();
}

void SchedulerProxy::begin() { restart(0, End::silence); }

void SchedulerProxy::begin(std::size_t question, End end) { restart(question, end); }

void SchedulerProxy::restart(std::size_t question, End end) {
    const std::lock_guard lock(mutex_);
    hangUp();
    listen();
    questions_.clear();
    last_ = question;
    end_ = end;
    hasEnded_ = false;
}

std::vector<std::string> SchedulerProxy::questions() const {
    const std::lock_guard lock(mutex_);
    return questions_;
}

bool SchedulerProxy::hasEnded() const {
    const std::lock_guard lock(mutex_);
    return hasEnded_;
}

void SchedulerProxy::hold() {
    const std::lock_guard lock(mutex_);
    pieces_ = 0;
}

void SchedulerProxy::pass(std::size_t pieces) {
    const std::lock_guard lock(mutex_);
    pieces_ = pieces_.value_or(0) + pieces;
}

void SchedulerProxy::passAll() {
    const std::lock_guard lock(mutex_);
    pieces_.reset();
}

bool SchedulerProxy::isHeld(const Call& call) const {
    return pieces_ == 0 && !call.isAnswered && call.bytes > A_PART;
}

void SchedulerProxy::run() {
    while (true) {
        std::vector<pollfd> handles;
        {
            const std::lock_guard lock(mutex_);
            if (stop_) {
                return;
            }
            if (socket_ >= 0) {
                handles.push_back({socket_, POLLIN, 0});
            }
            if (!hasEnded_) { // otherwise they are readable for ever
                for (const Call& call : calls_) {
                    if (!isHeld(call)) { // likewise
                        handles.push_back({call.program, POLLIN, 0});
                    }
                    handles.push_back({call.scheduler, POLLIN, 0});
                }
            }
        }
        ::poll(handles.data(), handles.size(), LOOK_EVERY);
        const std::lock_guard lock(mutex_);
        serve();
    }
}

void SchedulerProxy::serve() {
    if (socket_ >= 0 && isReadable(socket_)) {
        take();
    }
    const auto isOver = [this](Call& call) {
        if (hasEnded_ || (passOn(call, true) && passOn(call, false))) {
            return false;
        }
        ::close(call.program);
        ::close(call.scheduler);
        return true;
    };
    calls_.erase(std::remove_if(calls_.begin(), calls_.end(), isOver), calls_.end());
    if (hasEnded_ && end_ != End::silence) {
        hangUp();
        stopListening();
    }
}

void SchedulerProxy::take() {
    const int program = ::accept(socket_, nullptr, nullptr);
    const int scheduler = callScheduler(scheduler_);
    if (program < 0 || scheduler < 0) {
        ::close(program);
        ::close(scheduler);
        return;
    }
    calls_.push_back({program, scheduler});
}

/// Passes on what has arrived from one side; false when that side has ended the connection.
bool SchedulerProxy::passOn(Call& call, bool toScheduler) {
    const int from = toScheduler ? call.program : call.scheduler;
    if ((toScheduler && isHeld(call)) || !isReadable(from)) {
        return true;
    }
    if (toScheduler && pieces_ && !call.isAnswered && call.bytes > A_PART) {
        --*pieces_;
    }
    std::array<char, 16384> piece{};
    const ssize_t n = ::read(from, piece.data(), piece.size());
    if (n <= 0) {
        return false;
    }
    const std::string bytes(piece.data(), static_cast<std::size_t>(n));
    if (!toScheduler) {
        call.isAnswered = true;
        return sendAll(call.program, bytes);
    }
    if (admits(call, bytes)) {
        sendAll(call.scheduler, bytes); // when it takes no more, it may have said why
    }
    return true;
}

/// Counts a question; false when it or this part of it is not to be passed on.
bool SchedulerProxy::admits(Call& call, const std::string& bytes) {
    if (call.isAnswered && (bytes.starts_with("POST ") || bytes.starts_with("GET "))) {
        questions_.push_back(bytes.substr(0, bytes.find(" HTTP")));
        call.bytes = 0;
    }
    call.isAnswered = false;
    call.bytes += bytes.size();
    const bool isMeant = last_ > 0 && questions_.size() >= last_;
    if (isMeant && (end_ != End::midway || call.bytes > A_PART)) {
        hasEnded_ = true;
    }
    return !hasEnded_;
}

} // namespace kelvrum::testing
