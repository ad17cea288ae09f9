// The kinds of diagram and the context menu that offers them.
#include "app/f.h"
#include "diagram/PolarSys.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QRadioButton>
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

constexpr double DIRECTIONS_HIGH = 540; // degrees: the joining rule of directions runs up to here

} // namespace

void f::buildKindMenu() {
    menKS = new QMenu(KS);
    menKS->setObjectName(QStringLiteral("menKS"));
    auto* group = new QActionGroup(menKS);
    for (const Kind& entry : KINDS) {
        QAction* action = menKS->addAction(QString::fromUtf8(entry.caption));
        action->setObjectName(QString::fromUtf8(entry.name));
        action->setData(entry.kind);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, kind = entry.kind] { chooseKind(kind); });
    }
    KS->setFocusPolicy(Qt::StrongFocus); // so that the menu key reaches it
    KS->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(KS, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        showKinds();
        menKS->popup(KS->mapToGlobal(place));
    });
}

/// The menu tells what is shown; the polar diagram is there for wind directions only.
void f::showKinds() {
    const bool wind = station_.Kind == ConfigKind::ini &&
                      station_.ChannelTable.at(selectedChannel()).Mode == MODE_WIND_DIRECTION;
    for (QAction* action : menKS->actions()) {
        const int kind = action->data().toInt();
        action->setChecked(kind == KS->DiagTyp());
        action->setVisible(kind != KIND_POLAR || wind);
    }
}

void f::chooseKind(std::int32_t kind) {
    const bool otherData = (kind == KIND_POLAR) != (KS->DiagTyp() == KIND_POLAR);
    setKind(kind);
    if (otherData) {
        LoadData();
    } else {
        KS->Draw();
    }
}

void f::setKind(std::int32_t kind) {
    KS->setDiagTyp(kind);
    if (Option1->isChecked()) {
        setAutomaticRange();
    }
}

/// With the automatic scale the directions have their own range.
void f::setAutomaticRange() {
    const bool directions = KS->DiagTyp() == KIND_DIRECTION;
    KS->setY1Low(directions ? 0 : AUTOMATIC_RANGE);
    KS->setY1High(directions ? DIRECTIONS_HIGH : AUTOMATIC_RANGE);
}

} // namespace kelvrum
