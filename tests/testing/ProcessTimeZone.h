// SPDX-License-Identifier: GPL-3.0-or-later
// The time zone of the process, chosen by a test.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <ctime>

namespace kelvrum::testing {

/// The time zone of the process is another one as long as this lives.
class ProcessTimeZone {
  public:
    explicit ProcessTimeZone(const QByteArray& zone)
        : had_(qEnvironmentVariableIsSet("TZ"))
        , before_(qgetenv("TZ")) {
        qputenv("TZ", zone);
        tzset();
    }
    ProcessTimeZone(const ProcessTimeZone&) = delete;
    ProcessTimeZone& operator=(const ProcessTimeZone&) = delete;
    ~ProcessTimeZone() {
        had_ ? qputenv("TZ", before_) : qunsetenv("TZ");
        tzset();
    }

  private:
    bool had_;
    QByteArray before_;
};

} // namespace kelvrum::testing
