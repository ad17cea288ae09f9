// SPDX-License-Identifier: GPL-3.0-or-later
// How much stack nested loads take.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kelvrum::testing {

/// How far the stack reaches down, over all calls of `look`.
class StackDepth {
  public:
    void look() {
        const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
        deepest_ = std::min(deepest_, here);
        highest_ = std::max(highest_, here);
    }
    [[nodiscard]] std::uintptr_t bytes() const { return highest_ - deepest_; }

  private:
    std::uintptr_t deepest_ = std::numeric_limits<std::uintptr_t>::max();
    std::uintptr_t highest_ = 0;
};

/// Room in bytes for a load that is entered from an event, once; a hundred nested ones take a multiple of it.
inline constexpr std::uintptr_t MAX_LOAD_STACK = 64UL * 1024;

} // namespace kelvrum::testing
