// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/NativeFile.h"

#include <algorithm>
#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#include <share.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace kelvrum {

namespace {

/// The reason of the call that failed last.
std::error_code lastError() { return {errno, std::generic_category()}; }

constexpr std::size_t PIECE = std::size_t{1} << 30U; // bytes that any system takes with one call

#ifdef _WIN32

int openFlags(NativeFile::Open how) {
    if (how == NativeFile::Open::reading) {
        return _O_RDONLY | _O_BINARY | _O_NOINHERIT;
    }
    const int create = how == NativeFile::Open::existing        ? 0
                       : how == NativeFile::Open::createMissing ? _O_CREAT
                                                                : _O_CREAT | _O_EXCL;
    return _O_RDWR | _O_BINARY | _O_NOINHERIT | create;
}

int openNative(const std::filesystem::path& path, NativeFile::Open how, bool /*isPrivate*/) {
    int file = -1;
    _wsopen_s(&file, path.c_str(), openFlags(how), _SH_DENYNO, _S_IREAD | _S_IWRITE);
    return file;
}

std::ptrdiff_t writeNative(int file, std::uint64_t offset, std::span<const std::byte> bytes) {
    return _lseeki64(file, static_cast<__int64>(offset), SEEK_SET) < 0
               ? -1
               : _write(file, bytes.data(), static_cast<unsigned>(bytes.size()));
}

std::ptrdiff_t readNative(int file, std::uint64_t offset, std::span<std::byte> into) {
    return _lseeki64(file, static_cast<__int64>(offset), SEEK_SET) < 0
               ? -1
               : _read(file, into.data(), static_cast<unsigned>(into.size()));
}

/// The length of an ordinary file; nothing for anything else.
std::optional<std::uint64_t> lengthOf(int file) {
    struct _stat64 found = {};
    if (_fstat64(file, &found) != 0 || (found.st_mode & _S_IFREG) == 0) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(found.st_size);
}

int syncNative(int file) { return _commit(file); }
bool lockNative(int /*file*/) { return false; }
void closeNative(int file) { _close(file); }

#else

int openFlags(NativeFile::Open how) {
    if (how == NativeFile::Open::reading) {
        return O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY; // a pipe must not wait for its other end
    }
    const int create = how == NativeFile::Open::existing        ? 0
                       : how == NativeFile::Open::createMissing ? O_CREAT
                                                                : O_CREAT | O_EXCL;
    return O_RDWR | O_CLOEXEC | create;
}

int openNative(const std::filesystem::path& path, NativeFile::Open how, bool isPrivate) {
    constexpr mode_t OWNER = S_IRUSR | S_IWUSR;
    constexpr mode_t ALL = OWNER | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // reduced by the umask
    return ::open(path.c_str(), openFlags(how), isPrivate ? OWNER : ALL);
}

std::ptrdiff_t writeNative(int file, std::uint64_t offset, std::span<const std::byte> bytes) {
    return ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset));
}

std::ptrdiff_t readNative(int file, std::uint64_t offset, std::span<std::byte> into) {
    return ::pread(file, into.data(), into.size(), static_cast<off_t>(offset));
}

/// The length of an ordinary file; nothing for anything else.
std::optional<std::uint64_t> lengthOf(int file) {
    struct stat found = {};
    if (::fstat(file, &found) != 0 || !S_ISREG(found.st_mode)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(found.st_size);
}

int syncNative(int file) { return ::fsync(file); }
bool lockNative(int file) { return ::flock(file, LOCK_EX | LOCK_NB) == 0; }
void closeNative(int file) { ::close(file); }

#endif

} // namespace

std::error_code NativeFile::open(const std::filesystem::path& path, Open how, bool isPrivate) {
    close();
    do {
        file_ = openNative(path, how, isPrivate);
    } while (file_ < 0 && errno == EINTR);
    if (file_ < 0) {
        return lastError();
    }
    if (how == Open::reading && !lengthOf(file_)) {
        close();
        return std::make_error_code(std::errc::invalid_argument);
    }
    return {};
}

std::uint64_t NativeFile::size() const { return lengthOf(file_).value_or(0); }

std::size_t NativeFile::read(std::uint64_t offset, std::span<std::byte> into) {
    readError_.clear();
    std::size_t done = 0;
    while (done < into.size()) {
        const std::size_t wanted = std::min(into.size() - done, PIECE);
        const std::ptrdiff_t got = readNative(file_, offset + done, into.subspan(done, wanted));
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            readError_ = lastError();
        }
        if (got <= 0) {
            break;
        }
        done += static_cast<std::size_t>(got);
    }
    return done;
}

std::error_code NativeFile::write(std::uint64_t offset, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const std::ptrdiff_t written = writeNative(file_, offset, bytes.first(std::min(bytes.size(), PIECE)));
        if (written < 0 && errno != EINTR) {
            return lastError();
        }
        if (written == 0) {
            return std::make_error_code(std::errc::io_error);
        }
        if (written > 0) {
            offset += static_cast<std::uint64_t>(written);
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        }
    }
    return {};
}

std::error_code NativeFile::sync() {
    if (syncNative(file_) == 0 || errno == EINVAL) { // EINVAL: a file system without such a call
        return {};
    }
    return lastError();
}

bool NativeFile::lock() { return lockNative(file_); }

void NativeFile::close() {
    if (file_ >= 0) {
        closeNative(file_);
    }
    file_ = -1;
}

} // namespace kelvrum
