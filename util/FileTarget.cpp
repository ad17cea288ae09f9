// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/FileTarget.h"

#include "util/NativeFile.h"
#include "util/Paths.h"

namespace kelvrum {

namespace {

class RealTarget final : public FileTarget {
  public:
    [[nodiscard]] std::error_code open(const std::filesystem::path& path) {
        return file_.open(path, NativeFile::Open::createMissing);
    }

    std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes) override {
        return file_.write(offset, bytes);
    }

  private:
    NativeFile file_;
};

} // namespace

OpenedTarget openTarget(std::string_view path) {
    const auto native = nativePath(path);
    if (!native) {
        return {nullptr, std::make_error_code(std::errc::no_such_file_or_directory)};
    }
    auto file = std::make_unique<RealTarget>();
    if (const std::error_code error = file->open(*native)) {
        return {nullptr, error};
    }
    return {std::move(file), {}};
}

} // namespace kelvrum
