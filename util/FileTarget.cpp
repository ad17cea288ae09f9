#include "util/FileTarget.h"

#include "util/Paths.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace kelvrum {

namespace {

/// The system's words for what went wrong last.
std::string lastReason() {
    const int number = errno;
    return number == 0 ? "Ein-/Ausgabefehler" : std::generic_category().message(number);
}

class RealTarget final : public FileTarget {
  public:
    explicit RealTarget(const std::filesystem::path& path) {
        // Without a buffer of its own the stream reports a failing write at once.
        stream_.rdbuf()->pubsetbuf(nullptr, 0);
        stream_.open(path, std::ios::in | std::ios::out | std::ios::binary);
    }

    [[nodiscard]] bool isOpen() const { return stream_.is_open(); }

    std::string write(std::uint64_t offset, std::span<const std::byte> bytes) override {
        errno = 0;
        stream_.seekp(static_cast<std::streamoff>(offset));
        stream_.write(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<std::streamsize>(bytes.size()));
        stream_.flush();
        return stream_.good() ? std::string() : lastReason();
    }

  private:
    std::fstream stream_;
};

} // namespace

OpenedTarget openTarget(std::string_view path) {
    const auto native = nativePath(path);
    if (!native) {
        return {nullptr, std::generic_category().message(ENOENT)};
    }
    errno = 0;
    std::error_code error; // what cannot even be looked at fails below, with the system's reason
    if (!std::filesystem::exists(*native, error) &&
        !std::ofstream(*native, std::ios::binary | std::ios::app)) {
        return {nullptr, lastReason()};
    }
    errno = 0;
    auto file = std::make_unique<RealTarget>(*native);
    if (!file->isOpen()) {
        return {nullptr, lastReason()};
    }
    return {std::move(file), {}};
}

} // namespace kelvrum
