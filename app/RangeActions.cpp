// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RangeActions.h"

#include "data/RangeChoice.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QWidget>
#include <array>
#include <utility>

namespace kelvrum {

namespace {

struct Preset {
    const char* name;
    const char* caption;
    RangePreset preset;
    Qt::Key key; // with Ctrl
};
constexpr std::array<Preset, 4> PRESETS = {{
    {"menTag", "&Tag", RangePreset::day, Qt::Key_1},
    {"menWoche", "&Woche", RangePreset::week, Qt::Key_2},
    {"menMonat", "&Monat", RangePreset::month, Qt::Key_3},
    {"menJahr", "&Jahr", RangePreset::year, Qt::Key_4},
}};

QAction* makeAction(QWidget& window, const char* name, const char* caption) {
    auto* action = new QAction(QString::fromUtf8(caption), &window);
    action->setObjectName(QString::fromUtf8(name));
    window.addAction(action); // its key works in the whole window
    return action;
}

} // namespace

RangeActions::RangeActions(QWidget& window, std::function<TimeRange()> range,
                           std::function<void()> finishEdits)
    : QObject(&window)
    , window_(window)
    , range_(std::move(range))
    , finishEdits_(std::move(finishEdits))
    , menZurueck(makeAction(window, "menZurueck", "Zurü&ck"))
    , menVor(makeAction(window, "menVor", "&Vor")) {
    // Named one by one: the toolkit's own list takes Backspace for back on some systems.
    menZurueck->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)});
    menVor->setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Right), QKeySequence(Qt::Key_Forward)});
    connect(menZurueck, &QAction::triggered, this, [this] { go(false); });
    connect(menVor, &QAction::triggered, this, [this] { go(true); });
    for (const Preset& entry : PRESETS) {
        QAction* action = makeAction(window, entry.name, entry.caption);
        action->setShortcut(QKeySequence(Qt::CTRL | entry.key));
        connect(action, &QAction::triggered, this, [this, preset = entry.preset] {
            finishEdits_();
            Q_EMIT rangeChosen(presetRange(preset, range_().from));
        });
        presets_.push_back(action);
    }
    enable();
    qApp->installEventFilter(this);
}

void RangeActions::appendTo(QMenu& menu) {
    QMenu* presets = menu.addMenu(QStringLiteral("Zeitrau&m"));
    presets->setObjectName(QStringLiteral("menZeitraum"));
    presets->menuAction()->setObjectName(presets->objectName());
    for (QAction* action : presets_) {
        presets->addAction(action);
    }
    menu.addAction(menZurueck);
    menu.addAction(menVor);
}

void RangeActions::shown(const TimeRange& range) {
    history_.shown(range);
    enable();
}

void RangeActions::clear() {
    history_.clear();
    enable();
}

/// The buttons of the mouse reach whatever control the pointer is over.
bool RangeActions::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick) {
        return false;
    }
    const auto* control = qobject_cast<QWidget*>(watched);
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    if (control == nullptr || control->window() != &window_ ||
        (button != Qt::BackButton && button != Qt::ForwardButton)) {
        return false;
    }
    go(button == Qt::ForwardButton);
    return true;
}

void RangeActions::go(bool forward) {
    finishEdits_();
    const auto range = forward ? history_.forward() : history_.back();
    enable();
    if (range) {
        Q_EMIT rangeChosen(*range);
    }
}

void RangeActions::enable() {
    menZurueck->setEnabled(history_.hasBack());
    menVor->setEnabled(history_.hasForward());
}

} // namespace kelvrum
