// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ViewSwitch.h"

#include "util/Controls.h"

#include <QButtonGroup>
#include <QRadioButton>

namespace kelvrum {

ViewSwitch::ViewSwitch(QWidget* area)
    : QObject(area)
    , list_(makeControl<QRadioButton>(area, "optView(1)", QRect(4, 112, 112, 17),
                                      QStringLiteral("Daten&liste")))
    , diagram_(makeControl<QRadioButton>(area, "optView(0)", QRect(4, 129, 112, 17),
                                         QStringLiteral("Liniendia&gramm"))) {
    auto* views = new QButtonGroup(this);
    views->addButton(diagram_, 0);
    views->addButton(list_, 1);
    start();
    // The tab key reaches the chosen button alone; from here on the group sees to it.
    list_->setFocusPolicy(Qt::ClickFocus);
    for (QRadioButton* view : {diagram_, list_}) {
        connect(view, &QRadioButton::clicked, this, &ViewSwitch::chosen);
    }
}

bool ViewSwitch::isDiagramChosen() const { return diagram_->isChecked(); }

void ViewSwitch::start() { diagram_->setChecked(true); }

} // namespace kelvrum
