// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ScaleFrame.h"

#include "app/ColumnDesign.h"
#include "util/Controls.h"
#include "util/NumberField.h"

#include <QButtonGroup>
#include <QFocusEvent>
#include <QLabel>
#include <QRadioButton>

namespace kelvrum {

namespace {

NumberField* makeBound(QWidget* parent, const char* name, int y) {
    return makeControl<NumberField>(parent, name, QRect(59, y, 50, column::CONTROL_HEIGHT), QString());
}

} // namespace

ScaleFrame::ScaleFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Skalierung"), parent)
    , Option1(makeControl<QRadioButton>(this, "Option1", column::option(18), QStringLiteral("&Automatisch")))
    , Option2(makeControl<QRadioButton>(this, "Option2", column::option(35), QStringLiteral("Man&uell")))
    , Text1(makeBound(this, "Text1", 53))
    , Text2(makeBound(this, "Text2", 74))
    , Label4(column::makeLabel(this, "Label4", 53, "&Minimum:", Text1))
    , Label5(column::makeLabel(this, "Label5", 74, "Ma&ximum:", Text2)) {
    setObjectName(QStringLiteral("Frame5"));
    setGeometry(column::LEFT, 373, column::WIDTH, 97);
    auto* scales = new QButtonGroup(this);
    scales->addButton(Option1);
    scales->addButton(Option2);
    Option2->setChecked(true);
    // The tab key reaches the chosen option alone; from here on the group sees to it.
    Option1->setFocusPolicy(Qt::ClickFocus);
    start();
    for (QRadioButton* option : {Option1, Option2}) {
        connect(option, &QRadioButton::clicked, this, [this] {
            enableBounds();
            Q_EMIT chosen();
        });
    }
    for (QLineEdit* box : {Text1, Text2}) {
        connect(box, &QLineEdit::textEdited, this, [this, box] { edit(*box); });
        box->installEventFilter(this);
    }
}

bool ScaleFrame::isAutomatic() const { return Option1->isChecked(); }

void ScaleFrame::start() {
    minimum_ = 0;
    maximum_ = 100;
    Text1->setText(numberText(minimum_));
    Text2->setText(numberText(maximum_));
}

void ScaleFrame::enableBounds() {
    const bool manual = !isAutomatic();
    for (QLineEdit* box : {Text1, Text2}) {
        box->setEnabled(manual);
        box->setReadOnly(!manual);
    }
    Label4->setEnabled(manual);
    Label5->setEnabled(manual);
}

void ScaleFrame::edit(QLineEdit& box) {
    const auto value = numberIn(box);
    if (!value) {
        return;
    }
    if (&box == Text1) {
        minimum_ = *value;
        Q_EMIT minimumEdited(*value);
    } else {
        maximum_ = *value;
        Q_EMIT maximumEdited(*value);
    }
}

void ScaleFrame::leave(QLineEdit& box) {
    if (!numberIn(box)) {
        box.setText(numberText(&box == Text1 ? minimum_ : maximum_));
    }
}

bool ScaleFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && (watched == Text1 || watched == Text2)) {
        // A context menu or another program borrows the focus only.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            leave(*static_cast<QLineEdit*>(watched));
        }
    }
    return QGroupBox::eventFilter(watched, event);
}

} // namespace kelvrum
