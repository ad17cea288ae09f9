#include "util/FileReplacement.h"

#include "util/Paths.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace kelvrum {

namespace fs = std::filesystem;

namespace {

/// The reason of the stream operation that failed last.
std::error_code streamError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

/// Whether an existing file may be written. A rename alone would replace a write-protected file as well.
std::error_code checkWritable(const fs::path& file, const fs::file_status& status) {
    if (!fs::is_regular_file(status)) {
        return std::make_error_code(fs::is_directory(status) ? std::errc::is_a_directory
                                                             : std::errc::invalid_argument);
    }
    errno = 0;
    return std::fstream(file, std::ios::binary | std::ios::in | std::ios::out) ? std::error_code()
                                                                               : streamError();
}

/// Makes a file; one that could not be filled is removed again.
std::error_code writeFile(const fs::path& file, std::span<const std::byte> bytes) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) {
        return streamError();
    }
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    stream.close(); // flushes: a full disk shows at the latest here
    if (stream) {
        return {};
    }
    const std::error_code error = streamError();
    std::error_code ignored;
    fs::remove(file, ignored);
    return error;
}

/// Gives the fresh file the name of the old one, and its rights.
std::error_code moveOver(const fs::path& fresh, const fs::path& file, const fs::file_status& before) {
    std::error_code error;
    if (fs::exists(before)) {
        fs::permissions(fresh, before.permissions(), error);
    }
    if (!error) {
        fs::rename(fresh, file, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
    }
    return error;
}

} // namespace

std::error_code replaceFile(std::string_view path, std::span<const std::byte> bytes) {
    const auto named = nativePath(path);
    if (!named) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    fs::path file = *named;
    std::error_code error;
    const fs::file_status before = fs::status(file, error);
    if (fs::exists(before)) {
        if (error = checkWritable(file, before); error) {
            return error;
        }
        if (file = fs::canonical(file, error); error) { // a link stays one
            return error;
        }
    }
    fs::path fresh = file;
    fresh += ".neu";
    error = writeFile(fresh, bytes);
    return error ? error : moveOver(fresh, file, before);
}

} // namespace kelvrum
