// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/counterparts/WriterProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kelvrum::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* BEGUN = "begun\n";

/// A started writer and the end of its pipe.
struct Started {
    pid_t process;
    int output;
};

Started start(const std::vector<std::string>& arguments) {
    std::vector<char*> words{const_cast<char*>(KELVRUM_WRITER)};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t process = ::fork();
    if (process == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::execv(KELVRUM_WRITER, words.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    return {process, ends[0]};
}

/// Reads until `text` has at least `count` bytes; up to the end for npos.
void readOutput(int from, std::string& text, std::size_t count) {
    std::array<char, 1024> piece{};
    while (text.size() < count) {
        const ssize_t got = ::read(from, piece.data(), piece.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            break;
        }
        text.append(piece.data(), static_cast<std::size_t>(got));
    }
}

int variable(const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : otherwise;
}

} // namespace

WriterEnd runWriter(const std::vector<std::string>& arguments, std::optional<Micros> killAfter) {
    const std::string begun = BEGUN;
    const Started writer = start(arguments);
    std::string output;
    readOutput(writer.output, output, begun.size());
    const auto began = Clock::now();
    if (killAfter) {
        std::this_thread::sleep_for(*killAfter);
        ::kill(writer.process, SIGKILL);
    }
    readOutput(writer.output, output, std::string::npos);
    int status = 0;
    ::waitpid(writer.process, &status, 0);
    ::close(writer.output);
    if (!output.starts_with(begun)) {
        throw std::runtime_error("the writer does not begin");
    }
    WriterEnd end;
    end.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    end.succeeded = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    end.message = output.substr(begun.size());
    end.duration = std::chrono::duration_cast<Micros>(Clock::now() - began);
    return end;
}

int killCount() {
    constexpr int FEW = 6;
    return variable("KELVRUM_KILLS", FEW);
}

unsigned killSeed() {
    constexpr int SEED = 20200618;
    return static_cast<unsigned>(variable("KELVRUM_KILL_SEED", SEED));
}

int leftOverFiles(const std::filesystem::path& folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        count += entry.path().extension() == ".neu" ? 1 : 0;
    }
    return count;
}

} // namespace kelvrum::testing
