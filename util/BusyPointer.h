// SPDX-License-Identifier: GPL-3.0-or-later
// The busy pointer.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace kelvrum {

/// The pointer is the busy one for as long as this lives.
class BusyPointer {
  public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace kelvrum
