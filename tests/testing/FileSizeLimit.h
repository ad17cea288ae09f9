// SPDX-License-Identifier: GPL-3.0-or-later
// A limit for the length of files, where the system has one: it stands for a full disk.
#pragma once

#if __has_include(<sys/resource.h>)
#define KELVRUM_HAS_LIMITS
#include <csignal>
#include <sys/resource.h>

namespace kelvrum::testing {

/// While this lives no file may become longer than `bytes`; a write beyond that fails as too large.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes)
        : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limited = before_;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_ = {};
    void (*handler_)(int);
};

} // namespace kelvrum::testing
#endif
