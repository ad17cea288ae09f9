// SPDX-License-Identifier: GPL-3.0-or-later
// Shared by the fuzz targets: numbers taken from the start of an input, and promises that end the program
// when they are broken.
#pragma once

#include "util/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace kelvrum::fuzzing {

/// Ends the program when a promise was not kept; the fuzzer keeps the input then.
inline void require(bool kept, const char* promise) {
    if (!kept) {
        std::fprintf(stderr, "Broken promise: %s\n", promise);
        std::abort();
    }
}

inline bool isUtf8(std::string_view text) {
    Utf8Check check;
    check.feed(text);
    return check.isValid();
}

/// An input that is consumed from its start. Bytes after its end read as zeros.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    /// The next bytes as a number, in the machine's order of bytes.
    template<typename T>
    T take() {
        T value{};
        const std::string_view bytes = text(sizeof(T));
        if (!bytes.empty()) {
            std::memcpy(&value, bytes.data(), bytes.size());
        }
        return value;
    }

    /// The next bytes as a number from `low` to `high`, both included.
    int between(int low, int high) { return low + take<std::uint16_t>() % (high - low + 1); }

    /// The next bytes as a text of at most this length.
    std::string_view text(std::size_t maxLength) {
        const std::string_view taken = rest_.substr(0, maxLength);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    /// The next line, without its end.
    std::string_view line() {
        const std::string_view taken = text(std::min(rest_.find('\n'), rest_.size()));
        text(1);
        return taken;
    }

    [[nodiscard]] std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

} // namespace kelvrum::fuzzing
