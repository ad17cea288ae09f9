// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/FileReplacement.h"

#include "util/Paths.h"

#include <random>
#include <string>
#include <utility>

namespace kelvrum {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view FRESH_START = "kelvrum-";
constexpr std::string_view FRESH_END = ".neu";
constexpr std::size_t DRAWN_DIGITS = 12;
constexpr std::string_view DIGITS = "0123456789abcdef";

/// "kelvrum-", digits that are drawn, ".neu": no longer than most names, so that it fits where the target
/// does.
std::string freshName() {
    std::random_device draw;
    std::string name(FRESH_START);
    for (std::size_t i = 0; i < DRAWN_DIGITS; ++i) {
        name += DIGITS[draw() % DIGITS.size()];
    }
    return name.append(FRESH_END);
}

bool isFreshName(const std::string& name) {
    if (name.size() != FRESH_START.size() + DRAWN_DIGITS + FRESH_END.size() ||
        !name.starts_with(FRESH_START) || !name.ends_with(FRESH_END)) {
        return false;
    }
    const std::string_view drawn = std::string_view(name).substr(FRESH_START.size(), DRAWN_DIGITS);
    return drawn.find_first_not_of(DIGITS) == std::string_view::npos;
}

/// Removes the fresh files of killed programs: those of programs that run are locked.
void removeLeftOver(const fs::path& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (!isFreshName(entry->path().filename().string()) ||
            !fs::is_regular_file(entry->symlink_status(ignored))) {
            continue;
        }
        NativeFile file;
        if (!file.open(entry->path(), NativeFile::Open::existing) && file.lock()) {
            fs::remove(entry->path(), ignored);
        }
    }
}

/// Whether an existing file may be written. A rename alone would replace a write-protected file as well.
std::error_code checkWritable(const fs::path& file, const fs::file_status& status) {
    if (!fs::is_regular_file(status)) {
        return std::make_error_code(fs::is_directory(status) ? std::errc::is_a_directory
                                                             : std::errc::invalid_argument);
    }
    return NativeFile().open(file, NativeFile::Open::existing);
}

} // namespace

FileReplacement::FileReplacement(fs::path target, std::error_code& error)
    : target_(std::move(target)) {
    before_ = fs::status(target_, error);
    error.clear(); // a file that is not there yet is no error
    if (fs::exists(before_)) {
        error = checkWritable(target_, before_);
        if (!error) {
            target_ = fs::canonical(target_, error); // a link is kept
        }
    }
    if (!error) {
        removeLeftOver(target_.parent_path());
        error = makeFresh();
    }
}

std::error_code FileReplacement::makeFresh() {
    std::error_code error;
    do {
        fresh_ = target_.parent_path() / freshName();
        error = file_.open(fresh_, NativeFile::Open::createNew, fs::exists(before_));
    } while (error == std::errc::file_exists);
    if (error) {
        fresh_.clear();
    } else {
        static_cast<void>(file_.lock()); // without locks, leftover files stay
    }
    return error;
}

FileReplacement::~FileReplacement() {
    file_.close();
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
        error = file_.sync();
    }
    file_.close(); // an open file cannot be renamed everywhere
    if (!error) {
        fs::rename(fresh_, target_, error);
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
        error = replacement.write(bytes);
    }
    return error ? error : replacement.commit();
}

} // namespace kelvrum
