// SPDX-License-Identifier: GPL-3.0-or-later
// A client with rules stricter than ours.
#include "AllHeaders.h"

#include <QObject>

class StrictListener : public QObject {
  Q_SIGNALS:
    void named();
};
