// SPDX-License-Identifier: GPL-3.0-or-later
// The library of SlowShare.h. It knows the calls with which the program and its C++ library reach files.
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

constexpr int FILES = 4096;            // handles that are watched
constexpr long ENTRIES_PER_CALL = 500; // of a folder, which the system fetches at once

struct State {
    std::mutex mutex;
    std::string folder; // empty: no share
    long answers = 0;
    milliseconds slow{0};
    milliseconds silence{0};
    long made = 0; // calls since the plan began
    long count = 0;
    long kept = 0; // of them not answered at once
    nanoseconds waited{0};
    std::set<DIR*> folders;
    long entries = 0;
};

State& state() {
    static State one;
    return one;
}

std::atomic<bool> watched[FILES];

template<typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool isBelow(const char* path) {
    State& share = state();
    const std::lock_guard lock(share.mutex);
    if (share.folder.empty() || path == nullptr) {
        return false;
    }
    std::string whole = path;
    if (whole.empty() || whole.front() != '/') {
        char here[4096];
        whole = std::string(::getcwd(here, sizeof here) != nullptr ? here : "") + "/" + whole;
    }
    return whole.starts_with(share.folder);
}

bool isWatched(int file) { return file >= 0 && file < FILES && watched[file]; }

int watch(int file, bool isShared) {
    if (file >= 0 && file < FILES) {
        watched[file] = isShared;
    }
    return file;
}

/// Waits as the plan says. False with errno set: the call fails.
bool isAnswered() {
    State& share = state();
    milliseconds wait{0};
    bool fails = false;
    {
        const std::lock_guard lock(share.mutex);
        if (share.folder.empty()) {
            return true;
        }
        ++share.made;
        fails = share.made > share.answers;
        wait = !fails ? share.slow : share.made == share.answers + 1 ? share.silence : milliseconds(0);
    }
    const auto began = Clock::now();
    std::this_thread::sleep_for(wait);
    {
        const std::lock_guard lock(share.mutex);
        ++share.count;
        share.kept += wait.count() > 0 ? 1 : 0;
        share.waited += Clock::now() - began;
    }
    if (fails) {
        errno = EIO;
    }
    return !fails;
}

template<typename Function, typename... Arguments>
int onPath(const char* name, const char* path, Arguments... arguments) {
    return isBelow(path) && !isAnswered() ? -1 : next<Function>(name)(arguments...);
}

template<typename Function, typename... Arguments>
auto onFile(const char* name, int file, Arguments... arguments) {
    using Result = decltype(next<Function>(name)(file, arguments...));
    return isWatched(file) && !isAnswered() ? Result(-1) : next<Function>(name)(file, arguments...);
}

int openAt(int folder, const char* path, int flags, mode_t mode) {
    using Open = int(int, const char*, int, ...);
    const bool isShared = isBelow(path);
    return isShared && !isAnswered() ? -1 : watch(next<Open>("openat")(folder, path, flags, mode), isShared);
}

FILE* openStream(const char* name, const char* path, const char* how) {
    using Open = FILE*(const char*, const char*);
    const bool isShared = isBelow(path);
    if (isShared && !isAnswered()) {
        return nullptr;
    }
    FILE* stream = next<Open>(name)(path, how);
    if (stream != nullptr) {
        watch(::fileno(stream), isShared);
    }
    return stream;
}

DIR* keep(DIR* folder, bool isShared) {
    const std::lock_guard lock(state().mutex);
    if (folder != nullptr && isShared) {
        state().folders.insert(folder);
    }
    state().entries = 0;
    return folder;
}

template<typename Entry>
Entry* readEntry(const char* name, DIR* folder) {
    bool isCall = false;
    {
        const std::lock_guard lock(state().mutex);
        isCall = state().folders.contains(folder) && state().entries++ % ENTRIES_PER_CALL == 0;
    }
    return isCall && !isAnswered() ? nullptr : next<Entry*(DIR*)>(name)(folder);
}

} // namespace

extern "C" {

// --- for the test ---

void kelvrum_share_begin(const char* folder, long answers, long slow, long silence) {
    State& share = state();
    const std::lock_guard lock(share.mutex);
    share.folder = folder;
    share.answers = answers;
    share.slow = milliseconds(slow);
    share.silence = milliseconds(silence);
    share.made = 0;
    share.count = 0;
    share.kept = 0;
    share.waited = {};
}

void kelvrum_share_take(long* count, long* kept, long* waited) {
    State& share = state();
    const std::lock_guard lock(share.mutex);
    *count = share.count;
    *kept = share.kept;
    *waited = share.waited.count();
    share.count = 0;
    share.kept = 0;
    share.waited = {};
}

// --- between the program and the system ---

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, unsigned));
    va_end(rest);
    return openAt(AT_FDCWD, path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, unsigned));
    va_end(rest);
    return openAt(AT_FDCWD, path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, unsigned));
    va_end(rest);
    return openAt(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>(va_arg(rest, unsigned));
    va_end(rest);
    return openAt(folder, path, flags, mode);
}
FILE* fopen(const char* path, const char* how) { return openStream("fopen", path, how); }
FILE* fopen64(const char* path, const char* how) { return openStream("fopen64", path, how); }

int stat(const char* path, struct stat* into) {
    return onPath<int(const char*, struct stat*)>("stat", path, path, into);
}
int lstat(const char* path, struct stat* into) {
    return onPath<int(const char*, struct stat*)>("lstat", path, path, into);
}
int stat64(const char* path, struct stat64* into) {
    return onPath<int(const char*, struct stat64*)>("stat64", path, path, into);
}
int lstat64(const char* path, struct stat64* into) {
    return onPath<int(const char*, struct stat64*)>("lstat64", path, path, into);
}
int fstatat(int folder, const char* path, struct stat* into, int flags) {
    return onPath<int(int, const char*, struct stat*, int)>("fstatat", path, folder, path, into, flags);
}
int fstat(int file, struct stat* into) { return onFile<int(int, struct stat*)>("fstat", file, into); }

ssize_t read(int file, void* into, size_t count) {
    return onFile<ssize_t(int, void*, size_t)>("read", file, into, count);
}
ssize_t pread(int file, void* into, size_t count, off_t offset) {
    return onFile<ssize_t(int, void*, size_t, off_t)>("pread", file, into, count, offset);
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    return onFile<ssize_t(int, const void*, size_t, off_t)>("pwrite", file, bytes, count, offset);
}
int close(int file) {
    watch(file, false);
    return next<int(int)>("close")(file);
}
int fclose(FILE* stream) {
    watch(::fileno(stream), false);
    return next<int(FILE*)>("fclose")(stream);
}

DIR* opendir(const char* path) {
    const bool isShared = isBelow(path);
    return isShared && !isAnswered() ? nullptr : keep(next<DIR*(const char*)>("opendir")(path), isShared);
}
DIR* fdopendir(int file) { return keep(next<DIR*(int)>("fdopendir")(file), isWatched(file)); }
struct dirent* readdir(DIR* folder) {
    return readEntry<struct dirent>("readdir", folder);
}
struct dirent64* readdir64(DIR* folder) {
    return readEntry<struct dirent64>("readdir64", folder);
}
int closedir(DIR* folder) {
    {
        const std::lock_guard lock(state().mutex);
        state().folders.erase(folder);
    }
    return next<int(DIR*)>("closedir")(folder);
}

} // extern "C"
