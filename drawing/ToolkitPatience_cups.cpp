// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/CupsLibrary.h"
#include "drawing/ToolkitPatience.h"
#include "util/LocalConnections.h"

#include <QFile>
#include <filesystem>

namespace kelvrum {

namespace {

constexpr auto SILENCE = std::chrono::seconds(1);
const QString LINK = QStringLiteral("cups"); // its name
constexpr double LOOK_EVERY = 0.05;          // seconds

/// Called by CUPS whenever an answer is late; 0 aborts the query.
int waitOn(http_t* /*connection*/, void* patience) {
    return static_cast<ToolkitPatience*>(patience)->waitsOn() ? 1 : 0;
}

} // namespace

ToolkitPatience::ToolkitPatience() {
    const CupsLibrary* cups = CupsLibrary::load();
    if (cups != nullptr && cups->threadConnection != nullptr) {
        detour();
        watch();
        isConnected_ = true;
        renew();
    }
}

ToolkitPatience::~ToolkitPatience() {
    const CupsLibrary* cups = CupsLibrary::load();
    if (folder_) {
        cups->cupsSetServer(nullptr); // the usual one; ends the connection
    } else if (isConnected_) {
        if (http_t* connection = cups->threadConnection(); connection != nullptr) {
            cups->httpSetTimeout(connection, 0, nullptr, nullptr);
        }
    }
}

/// Routes this thread's connections through a symbolic link to the socket. Once the link is removed, every
/// new query fails at once; without it, connecting to a silent print system would still succeed, and CUPS
/// waits a second on each connection before it checks its timeout.
void ToolkitPatience::detour() {
    constexpr qsizetype LONGEST = 100; // bytes of a socket's name
    const CupsLibrary* cups = CupsLibrary::load();
    const QString server = QFile::decodeName(cups->cupsServer());
    auto folder = std::make_unique<QTemporaryDir>();
    const QString link = folder->filePath(LINK);
    if (server.startsWith(QLatin1Char('/')) && folder->isValid() &&
        QFile::encodeName(link).size() < LONGEST && QFile::link(server, link)) {
        folder_ = std::move(folder);
        cups->cupsSetServer(QFile::encodeName(link).constData());
    }
}

/// CUPS opens further connections for some queries, so all those to a silent print system are closed.
void ToolkitPatience::watch() {
    const std::filesystem::path link =
        folder_ ? std::filesystem::path(folder_->filePath(LINK).toStdU16String()) : std::filesystem::path();
    giveUp_ = [over = over_, link] {
        *over = true;
        std::error_code error;
        if (const auto server = std::filesystem::read_symlink(link, error); !error) {
            std::filesystem::remove(link, error);
            endConnectionsTo(server);
        }
    };
    watch_.emplace(giveUp_);
}

void ToolkitPatience::renew() {
    if (!isConnected_ || *over_) {
        return; // without a print system each try may take a while
    }
    const CupsLibrary* cups = CupsLibrary::load();
    http_t* connection = cups->threadConnection();
    isConnected_ = connection != nullptr;
    if (isConnected_) {
        cups->httpSetTimeout(connection, LOOK_EVERY, waitOn, this);
    }
}

bool ToolkitPatience::waitsOn() {
    if (watch_->silence() >= SILENCE) {
        giveUp_();
    }
    return !*over_;
}

} // namespace kelvrum
