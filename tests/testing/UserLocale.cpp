// SPDX-License-Identifier: GPL-3.0-or-later
// Runs before the tests of a plain program: the user's locale applies to the C library, as it does in the
// viewer, where the windowing toolkit takes it over at its start. Code that reads or writes numbers by it
// would show.
#include <clocale>

namespace {
[[maybe_unused]] const char* const USER_LOCALE = std::setlocale(LC_ALL, "");
} // namespace
