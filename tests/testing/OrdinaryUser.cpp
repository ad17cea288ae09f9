// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/OrdinaryUser.h"

#ifdef __linux__
#include <cerrno>
#include <exception>
#include <system_error>
#include <unistd.h>
#endif

namespace kelvrum::testing {

#ifdef __linux__

namespace {
constexpr uid_t ADMINISTRATOR = 0;
constexpr uid_t NOBODY = 65534;
} // namespace

OrdinaryUser::OrdinaryUser() {
    if (geteuid() != ADMINISTRATOR) {
        return;
    }
    // The saved user stays: it is the way back. Some questions about rights go by the real one.
    if (setresuid(NOBODY, NOBODY, ADMINISTRATOR) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot become an ordinary user");
    }
    changed_ = true;
}

OrdinaryUser::~OrdinaryUser() {
    if (changed_ && setresuid(ADMINISTRATOR, ADMINISTRATOR, ADMINISTRATOR) != 0) {
        std::terminate(); // every later test would run with other rights
    }
}

#else

OrdinaryUser::OrdinaryUser() = default;
OrdinaryUser::~OrdinaryUser() = default;

#endif

} // namespace kelvrum::testing
