// A client with rules stricter than ours.
#include "AllHeaders.h"

#include <QObject>

class StrictListener : public QObject {
  Q_SIGNALS:
    void named();
};
