// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/CommandLine.h"

#include "tools/makestation/FileWriting.h"
#include "tools/makestation/StationWriter.h"

#include <charconv>
#include <ostream>
#include <string_view>

namespace kelvrum::sample {

namespace {

constexpr std::string_view USAGE =
    "usage: makestation FOLDER [--form ini|narrow|wide] [--until yyyy-mm-dd[Thh:mm]] [--days N] [--seed N]\n";

constexpr int MAX_DAYS = 36'525; // a century

template<typename T>
bool readWhole(std::string_view text, T min, T max, T& into) {
    T value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < min || value > max) {
        return false;
    }
    into = value;
    return true;
}

bool readForm(std::string_view text, StationForm& into) {
    constexpr struct {
        std::string_view name;
        StationForm form;
    } FORMS[] = {{"ini", StationForm::ini}, {"narrow", StationForm::narrow}, {"wide", StationForm::wide}};
    for (const auto& entry : FORMS) {
        if (entry.name == text) {
            into = entry.form;
            return true;
        }
    }
    return false;
}

bool readMoment(std::string text, DateTime& into) {
    constexpr std::size_t DATE_LENGTH = 10; // of yyyy-mm-dd
    if (text.size() < DATE_LENGTH || text[4] != '-') {
        return false;
    }
    if (text.size() > DATE_LENGTH) {
        if (text[DATE_LENGTH] != 'T') {
            return false;
        }
        text[DATE_LENGTH] = ' ';
    }
    const auto moment = parseDateTime(text);
    // The model lives in the years of plain positive day numbers.
    if (!moment || *moment < dateSerial(1901, 1, 1)) {
        return false;
    }
    into = *moment;
    return true;
}

bool readOption(std::string_view name, const std::string& value, StationPlan& plan) {
    if (name == "--form") {
        return readForm(value, plan.form);
    }
    if (name == "--until") {
        return readMoment(value, plan.until);
    }
    if (name == "--days") {
        return readWhole(value, 1, MAX_DAYS, plan.days);
    }
    return name == "--seed" && readWhole<std::uint64_t>(value, 0, UINT64_MAX, plan.seed);
}

} // namespace

std::optional<Order> parseOrder(std::span<const std::string> arguments, DateTime now, std::string& problem) {
    Order order;
    order.plan.until = now;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.starts_with("--")) {
            const std::string value = i + 1 < arguments.size() ? arguments[++i] : std::string();
            if (!readOption(argument, value, order.plan)) {
                problem = "cannot use ";
                problem.append(argument).append(" ").append(value);
                return std::nullopt;
            }
        } else if (order.folder.empty() && !argument.empty()) {
            order.folder = argument;
        } else {
            problem = "one folder only";
            return std::nullopt;
        }
    }
    if (order.folder.empty()) {
        problem = "no folder";
        return std::nullopt;
    }
    if (order.plan.begin() < 0) {
        problem = "too many days before this moment";
        return std::nullopt;
    }
    return order;
}

int makeStation(std::span<const std::string> arguments, DateTime now, std::ostream& messages) {
    std::string problem;
    const auto order = parseOrder(arguments, now, problem);
    if (!order) {
        messages << "makestation: " << problem << "\n" << USAGE;
        return 2;
    }
    try {
        writeStation(order->folder, order->plan);
    } catch (const WriteError& error) {
        messages << "makestation: " << error.what() << "\n";
        return 1;
    }
    return 0;
}

} // namespace kelvrum::sample
