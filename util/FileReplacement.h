// Replacing a small file as a whole.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <system_error>

namespace kelvrum {

/// Gives the file of a station path new contents: they are written beside it and take its place when they are
/// complete, with its rights; a link stays one. When anything fails the old file stays as it was; the result
/// says what the system objected to, and is empty after success. A write-protected file is not replaced.
[[nodiscard]] std::error_code replaceFile(std::string_view path, std::span<const std::byte> bytes);

} // namespace kelvrum
