// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/KindMenu.h"

#include "diagram/DiagramProperties.h"

#include <QAction>
#include <QActionGroup>
#include <array>

namespace kelvrum {

namespace {

struct Kind {
    const char* name;
    const char* caption;
    std::int32_t kind;
};
constexpr std::array<Kind, 4> KINDS = {{
    {"menLinie", "&Liniendiagramm", KIND_LINE},
    {"menNiederschlag", "&Niederschlagsdiagramm", KIND_PRECIPITATION},
    {"menRichtung", "&Richtungsdiagramm", KIND_DIRECTION},
    {"menPolar", "&Polardiagramm", KIND_POLAR},
}};

} // namespace

KindMenu::KindMenu(QWidget* diagram)
    : QMenu(diagram)
    , kinds_(new QActionGroup(this)) {
    setObjectName(QStringLiteral("menKS"));
    setAccessibleName(QStringLiteral("Diagramm"));
    for (const Kind& entry : KINDS) {
        QAction* action = addAction(QString::fromUtf8(entry.caption));
        action->setObjectName(QString::fromUtf8(entry.name));
        action->setData(entry.kind);
        action->setCheckable(true);
        kinds_->addAction(action);
        connect(action, &QAction::triggered, this, [this, kind = entry.kind] { Q_EMIT kindChosen(kind); });
    }
}

void KindMenu::showKinds(std::int32_t shown, bool polar) {
    for (QAction* action : kinds_->actions()) {
        const int kind = action->data().toInt();
        action->setChecked(kind == shown);
        action->setVisible(kind != KIND_POLAR || polar);
    }
}

} // namespace kelvrum
