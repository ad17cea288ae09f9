// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ControlNames.h"

#include <QString>
#include <QWidget>

namespace kelvrum {

namespace {

constexpr const char* NO_TIP = nullptr;
constexpr const char* NAME_IS_TIP = "";

struct Name {
    const char* control;
    const char* name;
    const char* tip;
};

/// In tab order.
constexpr Name NAMES[] = {
    {"KS", "Diagramm", NO_TIP},
    {"lView", "Datenliste", NO_TIP},
    {"HScroll", "Zeitachse", "Zeichnet das Diagramm neu"},
    {"selChan", "Kanal", "Angezeigter Kanal; F5 liest ihn neu"},
    {"optView(1)", "Datenliste", "Werte als Liste zeigen"},
    {"optView(0)", "Liniendiagramm", "Werte als Diagramm zeigen"},
    {"DTPicker1", "von: Uhrzeit", "Beginn des Zeitraums, Uhrzeit"},
    {"Command3", "Beginn einen Tag früher", NAME_IS_TIP},
    {"Command4", "Beginn einen Tag später", NAME_IS_TIP},
    {"DTPicker", "von: Datum", "Beginn des Zeitraums, Datum"},
    {"DTPicker3", "bis: Uhrzeit", "Ende des Zeitraums, Uhrzeit"},
    {"Command6", "Ende einen Tag früher", NAME_IS_TIP},
    {"Command5", "Ende einen Tag später", NAME_IS_TIP},
    {"DTPicker2", "bis: Datum", "Ende des Zeitraums, Datum"},
    {"selScroll", "Scrolleinheit", "Einheit, um die der Zeitraum verschoben wird"},
    {"Command7", "Zeitraum zurück", "Zeitraum um eine Einheit zurück (im Diagramm: Bild auf)"},
    {"Command8", "Zeitraum vor", "Zeitraum um eine Einheit vor (im Diagramm: Bild ab)"},
    {"selInterval", "Mittelwerte-Intervall", "Dauer eines Intervalls"},
    {"Option1", "Skalierung automatisch", "Skala nach den Werten"},
    {"Option2", "Skalierung manuell", "Skala von Minimum bis Maximum"},
    {"Text1", "Minimum", "Unteres Ende der Skala"},
    {"Text2", "Maximum", "Oberes Ende der Skala"},
    {"Check1", "Grenzwerte anzeigen", "Beide Grenzwerte als Linien zeigen"},
    {"Text3", "Grenzwert 1", "Erste Hilfslinie (grün)"},
    {"Text4", "Grenzwert 2", "Zweite Hilfslinie (rot)"},
    {"Check2", "Mittelwert anzeigen", "Mittelwert als Linie zeigen"},
    {"Command1", "Zoom kleiner", NAME_IS_TIP},
    {"lZoom", "Zoom", "Zoomstufe"},
    {"Command2", "Zoom größer", NAME_IS_TIP},
    {"Slider1", "Zoom-Schieber", "Zeichnet das Diagramm neu"},
};

} // namespace

void nameControls(QWidget& area) {
    QWidget* before = nullptr;
    for (const Name& entry : NAMES) {
        auto* control = area.findChild<QWidget*>(QString::fromUtf8(entry.control));
        Q_ASSERT(control != nullptr);
        control->setAccessibleName(QString::fromUtf8(entry.name));
        if (entry.tip != NO_TIP) {
            const bool named = *entry.tip == '\0';
            control->setToolTip(QString::fromUtf8(named ? entry.name : entry.tip));
        }
        if (before != nullptr) {
            QWidget::setTabOrder(before, control);
        }
        before = control;
    }
}

} // namespace kelvrum
