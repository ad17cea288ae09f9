// SPDX-License-Identifier: GPL-3.0-or-later
// A client that writes Qt as most programs do: keywords, foreach, texts from literals.
#include "AllHeaders.h"

#include <QObject>
#include <QString>
#include <QStringList>

class Listener : public QObject {
  signals:
    void named(const QString& name);

  public slots:
    void tell() {
        const QStringList names = {"Wind", "Staub"};
        foreach (const QString& name, names) {
            emit named(name);
        }
    }
};
