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

} // namespace

FileReplacement::FileReplacement(const fs::path& target, std::error_code& error)
    : file_(target) {
    before_ = fs::status(file_, error);
    error.clear(); // a file that is not there yet is no error
    if (fs::exists(before_)) {
        if (error = checkWritable(file_, before_); error) {
            return;
        }
        if (file_ = fs::canonical(file_, error); error) { // a link stays one
            return;
        }
    }
    fresh_ = file_;
    fresh_ += ".neu";
}

FileReplacement::~FileReplacement() {
    std::error_code ignored;
    if (!fresh_.empty()) {
        fs::remove(fresh_, ignored);
    }
}

std::error_code FileReplacement::commit() {
    std::error_code error;
    if (fs::exists(before_)) {
        fs::permissions(fresh_, before_.permissions(), error);
    }
    if (!error) {
        fs::rename(fresh_, file_, error);
    }
    if (!error) {
        fresh_.clear();
    }
    return error;
}

std::error_code replaceFile(std::string_view path, std::span<const std::byte> bytes) {
    const auto named = nativePath(path);
    if (!named) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    std::error_code error;
    FileReplacement replacement(*named, error);
    if (!error) {
        error = writeFile(replacement.fresh(), bytes);
    }
    return error ? error : replacement.commit();
}

} // namespace kelvrum
