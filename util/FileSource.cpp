// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/FileSource.h"

#include "util/NativeFile.h"
#include "util/Paths.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace kelvrum {

namespace {

class RealFile final : public FileSource {
  public:
    [[nodiscard]] std::error_code open(const std::filesystem::path& path) {
        return file_.open(path, NativeFile::Open::reading);
    }

    std::uint64_t size() override { return file_.size(); }

    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        return file_.read(offset, into);
    }

    [[nodiscard]] std::error_code readError() const override { return file_.readError(); }

  private:
    NativeFile file_;
};

} // namespace

std::unique_ptr<FileSource> openFile(std::string_view path) {
    const auto native = nativePath(path);
    auto file = std::make_unique<RealFile>();
    return native && !file->open(*native) ? std::move(file) : nullptr;
}

} // namespace kelvrum
