// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LimitFrame.h"

#include "app/ColumnDesign.h"
#include "util/Controls.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <limits>

namespace kelvrum {

namespace {

QLineEdit* makeLimit(QWidget* parent, const char* name, int y, const char* text) {
    const QRect place(68, y, 41, column::CONTROL_HEIGHT);
    auto* box = makeControl<QLineEdit>(parent, name, place);
    box->setText(QString::fromUtf8(text)); // given at once, it would be measured in the system's font first
    box->setAlignment(Qt::AlignRight);
    return box;
}

double limitIn(const QLineEdit& box) {
    return numberIn(box).value_or(std::numeric_limits<double>::quiet_NaN());
}

} // namespace

LimitFrame::LimitFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Hilfslinien"), parent)
    , Check1(makeControl<QCheckBox>(this, "Check1", column::option(18), QStringLiteral("an&zeigen")))
    , Text3(makeLimit(this, "Text3", 36, "100"))
    , Text4(makeLimit(this, "Text4", 57, "0"))
    , Label6(column::makeLabel(this, "Label6", 36, "Grenzwert &1", Text3))
    , Label7(column::makeLabel(this, "Label7", 57, "Grenzwert &2", Text4))
    , Check2(makeControl<QCheckBox>(this, "Check2", column::option(79), QStringLiteral("Mi&ttelwert"))) {
    setObjectName(QStringLiteral("Frame7"));
    setGeometry(column::LEFT, 472, column::WIDTH, 98);
    enableLimits();
    connect(Check1, &QCheckBox::clicked, this, [this] {
        enableLimits();
        Q_EMIT limitsToggled();
    });
    connect(Text3, &QLineEdit::textEdited, this, &LimitFrame::firstLimitEdited);
    connect(Text4, &QLineEdit::textEdited, this, &LimitFrame::secondLimitEdited);
    connect(Check2, &QCheckBox::clicked, this, &LimitFrame::meanToggled);
}

bool LimitFrame::areLimitsShown() const { return Check1->isChecked(); }

AuxiliaryLines LimitFrame::limits() const { return {limitIn(*Text3), limitIn(*Text4)}; }

void LimitFrame::setLimits(const AuxiliaryLines& limits) {
    showNumber(*Text3, limits.first);
    showNumber(*Text4, limits.second);
}

bool LimitFrame::isMeanShown() const { return Check2->isChecked(); }

void LimitFrame::enableLimits() {
    const bool shown = areLimitsShown();
    for (QLineEdit* box : {Text3, Text4}) {
        box->setEnabled(shown);
        box->setReadOnly(!shown);
    }
    Label6->setEnabled(shown);
    Label7->setEnabled(shown);
}

} // namespace kelvrum
