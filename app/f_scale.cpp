// Scale, limit lines, mean line and zoom: they redraw, they never reload.
#include "app/f.h"
#include "diagram/PolarSys.h"
#include "util/Numbers.h"
#include "util/Validity.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <limits>

namespace kelvrum {

namespace {

constexpr int ZOOM_LOWEST = 1;
constexpr int ZOOM_HIGHEST = 25;
constexpr int ZOOM_GREYED = 20; // ">>" greys out here although its handler goes on to ZOOM_HIGHEST: kept so

QString numberText(double v) { return QString::fromStdString(plainNumber(v)); }

void setEntryValid(QLineEdit& box, bool valid) {
    QPalette colours;
    if (!valid) {
        colours.setColor(QPalette::Base, QColor(255, 0, 0));
    }
    box.setPalette(colours);
}

void setEntryEnabled(QLineEdit& box, bool enabled) {
    box.setEnabled(enabled);
    box.setReadOnly(!enabled);
}

} // namespace

void f::scaleAutomatic() {
    for (QLineEdit* box : {Text1, Text2}) {
        setEntryEnabled(*box, false);
    }
    Label4->setEnabled(false);
    Label5->setEnabled(false);
    setAutomaticRange();
    KS->Draw();
}

void f::scaleManual() {
    for (QLineEdit* box : {Text1, Text2}) {
        setEntryEnabled(*box, true);
    }
    Label4->setEnabled(true);
    Label5->setEnabled(true);
    KS->setY1Low(manualMinimum_);
    KS->setY1High(manualMaximum_);
    KS->Draw();
}

void f::scaleEdited(bool maximum) {
    QLineEdit& box = maximum ? *Text2 : *Text1;
    const auto value = wholeNumber(box.text().toStdString());
    setEntryValid(box, value.has_value());
    if (!value) {
        return;
    }
    if (maximum) {
        manualMaximum_ = *value;
        KS->setY1High(*value);
    } else {
        manualMinimum_ = *value;
        KS->setY1Low(*value);
    }
    KS->Draw();
}

void f::scaleLeft(bool maximum) {
    QLineEdit& box = maximum ? *Text2 : *Text1;
    if (!wholeNumber(box.text().toStdString())) {
        box.setText(numberText(maximum ? manualMaximum_ : manualMinimum_));
        setEntryValid(box, true);
    }
}

double f::limitOf(const QLineEdit& box) {
    return wholeNumber(box.text().toStdString()).value_or(std::numeric_limits<double>::quiet_NaN());
}

void f::limitsToggled() {
    const bool shown = Check1->isChecked();
    setEntryEnabled(*Text3, shown);
    setEntryEnabled(*Text4, shown);
    Label6->setEnabled(shown);
    Label7->setEnabled(shown);
    KS->setHilfslinie2(shown ? validate(limitOf(*Text4)) : 0);
    KS->setHilfslinie1(shown ? validate(limitOf(*Text3)) : 0);
    KS->Draw();
}

void f::limitEdited(int number) {
    if (number == 1) {
        KS->setHilfslinie1(validate(limitOf(*Text3)));
    } else {
        KS->setHilfslinie2(validate(limitOf(*Text4)));
    }
    if (KS->isVisible()) {
        KS->Draw();
    }
}

void f::meanToggled() {
    KS->setShowMittel(Check2->isChecked());
    KS->Draw();
}

void f::zoomBy(int steps) {
    const int wanted = zoom_ + steps;
    if (wanted >= ZOOM_LOWEST && wanted <= ZOOM_HIGHEST) {
        zoom_ = wanted;
        lZoom->setText(QString::number(zoom_));
        Form_Resize();
    }
    Command1->setEnabled(zoom_ > ZOOM_LOWEST);
    Command2->setEnabled(zoom_ < ZOOM_GREYED);
}

} // namespace kelvrum
