// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/CupsTalk.h"

#include "drawing/CupsLibrary.h"
#include "util/LocalConnections.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace kelvrum {

namespace {

using Fate = QueueAnswer::Fate;
using Clock = std::chrono::steady_clock;

constexpr int CONNECT_PATIENCE = 10'000;                 // milliseconds
constexpr double TALK_PATIENCE = 10;                     // seconds without a byte
constexpr auto PRINT_PATIENCE = std::chrono::seconds(3); // with a healthy queue that has not printed yet
constexpr auto ASK_AGAIN = std::chrono::milliseconds(50);

/// Nothing is printed by this thread unless the library is there.
const CupsLibrary& cups() { return *CupsLibrary::load(); }

struct CloseConnection {
    void operator()(http_t* http) const { cups().httpClose(http); }
};
struct DropMessage {
    void operator()(ipp_t* message) const { cups().ippDelete(message); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;
using Message = std::unique_ptr<ipp_t, DropMessage>;

/// The options of a job as CUPS keeps them.
class EncodedOptions {
  public:
    explicit EncodedOptions(const QueueJob& job) {
        for (const auto& [name, value] : job.options) {
            count_ = cups().cupsAddOption(name.c_str(), value.c_str(), count_, &list_);
        }
    }
    EncodedOptions(const EncodedOptions&) = delete;
    EncodedOptions& operator=(const EncodedOptions&) = delete;
    ~EncodedOptions() { cups().cupsFreeOptions(count_, list_); }
    void encode(ipp_t* request) const {
        cups().cupsEncodeOptions2(request, count_, list_, IPP_TAG_OPERATION);
        cups().cupsEncodeOptions2(request, count_, list_, IPP_TAG_JOB);
    }

  private:
    int count_ = 0;
    cups_option_t* list_ = nullptr;
};

/// Never asks for a password: this thread has no window, and the default would ask on a terminal.
const char* noPassword(const char*, http_t*, const char*, const char*, void*) { return nullptr; }

/// Ends a wait.
int giveUp(http_t*, void*) { return 0; }

/// Connects to the print system; nothing when there is none.
Connection connect() {
    cups().cupsSetPasswordCB2(noPassword, nullptr);
    Connection http(cups().httpConnect2(cups().cupsServer(), cups().ippPort(), nullptr, AF_UNSPEC,
                                        cups().cupsEncryption(), 1, CONNECT_PATIENCE, nullptr));
    if (http) {
        cups().httpSetTimeout(http.get(), TALK_PATIENCE, giveUp, nullptr);
    }
    return http;
}

/// Whether the last exchange timed out.
bool wasSilent(http_t* http) {
    const int error = cups().httpError(http);
    return error == EWOULDBLOCK || error == EAGAIN || error == ETIMEDOUT ||
           cups().cupsLastError() == IPP_STATUS_ERROR_TIMEOUT;
}

QueueAnswer lost(http_t* http) { return {wasSilent(http) ? Fate::silent : Fate::unreachable, 0, {}}; }

Message newRequest(ipp_op_t operation, const std::string& queue) {
    Message request(cups().ippNewRequest(operation));
    std::array<char, HTTP_MAX_URI> uri{};
    cups().httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                            "localhost", 0, "/printers/%s", queue.c_str());
    cups().ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    return request;
}

void addUser(ipp_t* request) {
    cups().ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                        cups().cupsUser());
}

/// All values of a text attribute; empty when the message has none.
std::string textOf(ipp_t* message, const char* name) {
    ipp_attribute_t* found = cups().ippFindAttribute(message, name, IPP_TAG_ZERO);
    std::string text;
    for (int i = 0; found != nullptr && i < cups().ippGetCount(found); ++i) {
        const char* value = cups().ippGetString(found, i, nullptr);
        const std::string part = value != nullptr ? value : "";
        if (!part.empty() && part != "none" && part != "job-printing" &&
            text.find(part) == std::string::npos) {
            text += (text.empty() ? "" : ", ") + part;
        }
    }
    return text;
}

int numberOf(ipp_t* message, const char* name) {
    ipp_attribute_t* found = cups().ippFindAttribute(message, name, IPP_TAG_ZERO);
    return found != nullptr ? cups().ippGetInteger(found, 0) : 0;
}

/// The first text that is not empty.
std::string firstOf(ipp_t* message, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (std::string text = textOf(message, name); !text.empty()) {
            return text;
        }
    }
    return {};
}

Message ask(http_t* http, Message request, std::initializer_list<const char*> wanted) {
    addUser(request.get());
    std::vector<const char*> names(wanted);
    cups().ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                         static_cast<int>(names.size()), nullptr, names.data());
    return Message(cups().cupsDoRequest(http, request.release(), "/")); // CUPS deletes the request
}

// --- sending ---

/// The request head and the document; nothing when the connection failed or the job was withdrawn.
Message sendOnce(http_t* http, const QueueJob& job, std::ifstream& file, std::uintmax_t size,
                 TalkProgress& progress) {
    Message request = newRequest(IPP_OP_PRINT_JOB, job.queue);
    addUser(request.get());
    cups().ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr,
                        job.title.c_str());
    cups().ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
                        "application/pdf");
    EncodedOptions(job).encode(request.get());

    const std::string resource = "/printers/" + job.queue;
    const std::size_t length = cups().ippLength(request.get()) + static_cast<std::size_t>(size);
    http_status_t status = cups().cupsSendRequest(http, request.get(), resource.c_str(), length);
    file.clear();
    file.seekg(0);
    std::vector<char> piece(std::size_t{1} << 16U);
    std::uintmax_t sent = 0;
    while (status == HTTP_STATUS_CONTINUE && sent < size && !progress.withdrawn) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        const auto count = static_cast<std::size_t>(file.gcount());
        if (count == 0) {
            return {}; // shorter than it was: the queue does not get the whole request and drops it
        }
        status = cups().cupsWriteRequestData(http, piece.data(), count);
        sent += count;
        progress.sent = static_cast<double>(sent) / static_cast<double>(size);
        ++progress.changes;
    }
    if (status == HTTP_STATUS_ERROR && !progress.withdrawn && !wasSilent(http)) {
        cups().httpUpdate(http); // it may have said why it ended the connection
    }
    // A queue that has the whole document makes a job of it, which is then cancelled.
    if ((progress.withdrawn && sent < size) || status == HTTP_STATUS_ERROR) {
        return {};
    }
    return Message(cups().cupsGetResponse(http, resource.c_str()));
}

/// Sends until no further login is wanted.
Message send(http_t* http, const QueueJob& job, std::ifstream& file, std::uintmax_t size,
             TalkProgress& progress) {
    constexpr int LOGINS = 3;
    Message answer;
    for (int i = 0; i < LOGINS && !answer && !progress.withdrawn; ++i) {
        answer = sendOnce(http, job, file, size, progress);
        if (cups().httpGetStatus(http) != HTTP_STATUS_UNAUTHORIZED) {
            break;
        }
    }
    return answer;
}

/// A printer that announces itself on the network gets its queue only when it is looked at.
bool makeTemporaryQueue(http_t* http, const std::string& name) {
    cups_dest_t* dest = cups().cupsGetNamedDest(http, name.c_str(), nullptr);
    if (dest == nullptr) {
        return false;
    }
    cups_dinfo_t* info = cups().cupsCopyDestInfo(http, dest);
    cups().cupsFreeDestInfo(info);
    cups().cupsFreeDests(1, dest);
    return info != nullptr;
}

// --- the fate ---

/// The queue's own description of its state.
struct QueueState {
    bool stopped = false;
    bool refuses = false;
    std::string words;
};

QueueState stateOf(http_t* http, const std::string& queue) {
    const Message answer =
        ask(http, newRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue),
            {"printer-state", "printer-state-message", "printer-state-reasons", "printer-is-accepting-jobs"});
    if (!answer) {
        return {};
    }
    ipp_attribute_t* accepting =
        cups().ippFindAttribute(answer.get(), "printer-is-accepting-jobs", IPP_TAG_BOOLEAN);
    return {numberOf(answer.get(), "printer-state") == IPP_PSTATE_STOPPED,
            accepting != nullptr && cups().ippGetBoolean(accepting, 0) == 0,
            firstOf(answer.get(), {"printer-state-message", "printer-state-reasons"})};
}

/// The fate of a job so far; nothing while it waits or prints on a healthy queue.
std::optional<QueueAnswer> fateNow(http_t* http, const std::string& queue, int number) {
    Message request = newRequest(IPP_OP_GET_JOB_ATTRIBUTES, queue);
    cups().ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", number);
    const Message answer =
        ask(http, std::move(request),
            {"job-state", "job-state-message", "job-printer-state-message", "job-state-reasons"});
    if (cups().cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND ||
        cups().cupsLastError() == IPP_STATUS_ERROR_GONE) {
        return QueueAnswer{Fate::printed, number, {}}; // accepted, and off the list since
    }
    if (!answer || cups().cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
        QueueAnswer unknown = lost(http);
        unknown.number = number;
        return unknown;
    }
    const int state = numberOf(answer.get(), "job-state");
    const auto words = [&] {
        std::string own = firstOf(answer.get(), {"job-state-message", "job-printer-state-message"});
        return own.empty() ? textOf(answer.get(), "job-state-reasons") : own;
    };
    if (state == IPP_JSTATE_COMPLETED) {
        return QueueAnswer{Fate::printed, number, {}};
    }
    if (state == IPP_JSTATE_CANCELED || state == IPP_JSTATE_ABORTED) {
        return QueueAnswer{Fate::cancelled, number, words()};
    }
    const QueueState printer = stateOf(http, queue);
    if (printer.stopped || state == IPP_JSTATE_STOPPED) {
        return QueueAnswer{printer.stopped ? Fate::stopped : Fate::halted, number,
                           printer.words.empty() ? words() : printer.words};
    }
    if (state == IPP_JSTATE_HELD) {
        return QueueAnswer{Fate::accepted, number, {}};
    }
    return std::nullopt;
}

QueueAnswer awaitFate(http_t* http, const std::string& queue, int number, TalkProgress& progress) {
    const auto end = Clock::now() + PRINT_PATIENCE;
    while (true) {
        if (progress.withdrawn && cups().cupsCancelJob2(http, queue.c_str(), number, 0) == IPP_STATUS_OK) {
            return {Fate::withdrawn, number, {}};
        }
        if (auto fate = fateNow(http, queue, number)) {
            return *fate;
        }
        ++progress.changes;
        if (Clock::now() > end) {
            return {Fate::accepted, number, {}};
        }
        std::this_thread::sleep_for(ASK_AGAIN);
    }
}

/// The queue's own words for a refusal.
std::string refusalWords(http_t* http, const std::string& queue, ipp_t* answer) {
    std::string words = textOf(answer, "status-message");
    if (words.empty() && cups().cupsLastErrorString() != nullptr) {
        words = cups().cupsLastErrorString();
    }
    const QueueState state = stateOf(http, queue);
    if (state.refuses && !state.words.empty() && words.find(state.words) == std::string::npos) {
        words += (words.empty() ? "" : " ") + state.words;
    }
    return words;
}

/// The outcome of a job whose request the print system has ended or has not answered.
QueueAnswer unanswered(http_t* http) {
    const http_status_t status = cups().httpGetStatus(http);
    // CUPS keeps the answer that ends a request as its error when the connection ends as well, or leaves it
    // unread when it has more to write itself.
    if (status == HTTP_STATUS_REQUEST_TOO_LARGE || cups().cupsLastError() == IPP_STATUS_ERROR_REQUEST_VALUE ||
        waitingBytes(cups().httpGetFd(http)).starts_with("HTTP/1.1 413")) {
        return {Fate::refused, 0,
                std::string("Das Drucksystem hat keinen Platz für das Dokument (") +
                    cups().httpStatus(HTTP_STATUS_REQUEST_TOO_LARGE) + ")."}; // or has a limit
    }
    return status < HTTP_STATUS_BAD_REQUEST ? lost(http)
                                            : QueueAnswer{Fate::refused, 0, cups().httpStatus(status)};
}

} // namespace

QueueAnswer cupsProbe(TalkProgress& /*progress*/) {
    const Connection http = connect();
    if (!http) {
        return {Fate::accepted, 0, {}};
    }
    Message request(cups().ippNewRequest(IPP_OP_CUPS_GET_DEFAULT));
    const Message answer = ask(http.get(), std::move(request), {"printer-name"});
    return {!answer && wasSilent(http.get()) ? Fate::silent : Fate::accepted, 0, {}};
}

QueueAnswer cupsPrint(const QueueJob& job, TalkProgress& progress) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(job.document, error);
    std::ifstream file(job.document, std::ios::binary);
    const Connection http = !error && file ? connect() : nullptr;
    if (!http) {
        return {Fate::unreachable, 0, {}};
    }
    Message answer = send(http.get(), job, file, size, progress);
    if (answer && cups().ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND &&
        makeTemporaryQueue(http.get(), job.queue)) {
        answer = send(http.get(), job, file, size, progress);
    }
    if (answer && cups().ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) {
        return {Fate::unreachable, 0, {}};
    }
    if (!answer) {
        return progress.withdrawn ? QueueAnswer{Fate::withdrawn, 0, {}} : unanswered(http.get());
    }
    const int number = numberOf(answer.get(), "job-id");
    if (number == 0 || cups().ippGetStatusCode(answer.get()) > IPP_STATUS_OK_EVENTS_COMPLETE) {
        return {Fate::refused, 0, refusalWords(http.get(), job.queue, answer.get())};
    }
    progress.number = number;
    ++progress.changes;
    return awaitFate(http.get(), job.queue, number, progress);
}

} // namespace kelvrum
