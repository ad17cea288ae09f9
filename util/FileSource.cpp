// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/FileSource.h"

#include "util/Paths.h"

#include <fstream>
#include <utility>

namespace kelvrum {

namespace {

class RealFile final : public FileSource {
  public:
    explicit RealFile(std::filesystem::path path)
        : path_(std::move(path)) {
        // Without a buffer of its own the stream reads large pieces straight into the caller's memory.
        stream_.rdbuf()->pubsetbuf(nullptr, 0);
        stream_.open(path_, std::ios::binary);
    }

    [[nodiscard]] bool isOpen() const { return stream_.is_open(); }

    std::uint64_t size() override {
        std::error_code error;
        const std::uintmax_t length = std::filesystem::file_size(path_, error);
        return error ? 0 : length;
    }

    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        stream_.clear();
        if (!stream_.seekg(static_cast<std::streamoff>(offset))) {
            return 0;
        }
        stream_.read(reinterpret_cast<char*>(into.data()), static_cast<std::streamsize>(into.size()));
        return static_cast<std::size_t>(stream_.gcount());
    }

  private:
    std::filesystem::path path_;
    std::ifstream stream_;
};

} // namespace

std::unique_ptr<FileSource> openFile(std::string_view path) {
    const auto native = nativePath(path);
    std::error_code error;
    if (!native || !std::filesystem::is_regular_file(*native, error)) {
        return nullptr;
    }
    auto file = std::make_unique<RealFile>(*native);
    return file->isOpen() ? std::move(file) : nullptr;
}

} // namespace kelvrum
