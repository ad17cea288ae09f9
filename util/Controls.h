// SPDX-License-Identifier: GPL-3.0-or-later
// Creates the windows' controls and puts texts and numbers into them.
#pragma once

#include <QComboBox>
#include <QFont>
#include <QRect>
#include <QString>
#include <QWidget>
#include <optional>
#include <utility>

class QLineEdit;
class QTableView;

namespace kelvrum {

/// The face of the controls: Arial, 11 pixels.
QFont controlFont();

/// A caption that shows `text` as it is: an ampersand in it marks no key.
QString captionOf(QString text);

/// A number as it is written into an edit field: with ".", in the shortest form of at most 15 digits.
QString numberText(double v);

/// The number that the whole text of a field is; nothing when it is none.
std::optional<double> numberIn(const QLineEdit& field);

/// Writes a number into a field; one that is too long shows its start.
void showNumber(QLineEdit& field, double v);

/// The wheel changes a picker or a choice only while it has the focus, not while the user scrolls past it,
/// and does not give it the focus.
void ignorePassingWheel(QWidget& control);

/// A row that a screen reader selects in a closed drop-down list is chosen as if by the user; the toolkit
/// alone would only mark it.
void followScreenReader(QComboBox& choice);

/// Makes a table a report list: no grid, no row numbers, whole rows selected, rows of one fixed height in
/// pixels. The tab key leaves it.
void makeReport(QTableView& view, int rowHeight);

/// A control with its object name, at its place in its parent.
template<typename Control, typename... Arguments>
Control* makeControl(QWidget* parent, const QString& name, const QRect& place, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)..., parent);
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}
template<typename Control, typename... Arguments>
Control* makeControl(QWidget* parent, const char* name, const QRect& place, Arguments&&... arguments) {
    return makeControl<Control>(parent, QString::fromUtf8(name), place,
                                std::forward<Arguments>(arguments)...);
}

/// Fills a drop-down list with choices, each of which has a `caption`; `data` is the member that becomes the
/// item data. Screen readers can choose from it.
template<typename Choices, typename Data>
void fillChoices(QComboBox& box, const Choices& choices, Data data) {
    for (const auto& choice : choices) {
        box.addItem(QString::fromUtf8(choice.caption), choice.*data);
    }
    followScreenReader(box);
}

} // namespace kelvrum
