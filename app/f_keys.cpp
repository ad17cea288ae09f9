// Keys that work wherever the focus is, those of the diagram, and the wheel.
#include "app/f.h"
#include "diagram/PolarSys.h"
#include "util/Pickers.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <initializer_list>

namespace kelvrum {

void f::buildKeys() {
    menOpen->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    menPrint->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    auto* reload = new QAction(this); // without an entry in a menu
    reload->setObjectName(QStringLiteral("reload"));
    reload->setShortcut(QKeySequence(Qt::Key_F5));
    addAction(reload);
    connect(reload, &QAction::triggered, this, [this] {
        const unsigned before = loader_.requests();
        finishEdits();
        if (loader_.requests() == before) {
            LoadData();
        }
    });
    KS->installEventFilter(this);
    for (QWidget* control :
         std::initializer_list<QWidget*>{DTPicker, DTPicker1, DTPicker2, DTPicker3, selInterval, selScroll}) {
        control->setFocusPolicy(Qt::StrongFocus); // the wheel does not bring the focus
        control->installEventFilter(this);
    }
}

/// Takes over what is being typed into a picker, before a key that needs the range.
void f::finishEdits() {
    DTPicker->finish();
    DTPicker1->finish();
    DTPicker2->finish();
    DTPicker3->finish();
}

/// The page keys scroll the range by the scroll unit, as the buttons do. True when the key was one.
bool f::diagramKey(const QKeyEvent& key) {
    if (key.modifiers() != Qt::NoModifier || (key.key() != Qt::Key_PageUp && key.key() != Qt::Key_PageDown)) {
        return false;
    }
    scrollRange(key.key() == Qt::Key_PageUp ? -1 : +1);
    return true;
}

} // namespace kelvrum
