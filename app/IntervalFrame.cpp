// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/IntervalFrame.h"

#include "app/ColumnDesign.h"
#include "data/IntervalChoices.h"
#include "util/Controls.h"

namespace kelvrum {

IntervalFrame::IntervalFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Mittelwerte-Intervall"), parent)
    , selInterval(makeControl<QComboBox>(this, "selInterval", column::row(19))) {
    setObjectName(QStringLiteral("Frame4"));
    setGeometry(column::LEFT, 326, column::WIDTH, 45);
    fillChoices(*selInterval, INTERVAL_CHOICES, &IntervalChoice::minutes);
    ignorePassingWheel(*selInterval);
    connect(selInterval, &QComboBox::activated, this, &IntervalFrame::chosen);
}

std::int32_t IntervalFrame::minutes() const { return selInterval->currentData().toInt(); }

QString IntervalFrame::caption() const { return selInterval->currentText(); }

void IntervalFrame::start() { selInterval->setCurrentIndex(0); }

} // namespace kelvrum
