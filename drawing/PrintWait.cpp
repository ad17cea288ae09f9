// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PrintWait.h"

#include <QCoreApplication>
#include <QEvent>
#include <QProgressDialog>
#include <QWidget>

namespace kelvrum {

namespace {

constexpr qint64 DIALOG_AFTER = 500; // milliseconds
constexpr qint64 EVENTS_EVERY = 20;

/// Whether an event is the user's.
bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::InputMethod:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

QString labelOf(const PrintProgress& progress) {
    switch (progress.stage) {
    case PrintProgress::Stage::making:
        return QStringLiteral("Seite %1 von %2 wird erstellt").arg(progress.done).arg(progress.total);
    case PrintProgress::Stage::sending:
        return progress.total == 1 ? QStringLiteral("Eine Seite wird gesendet")
                                   : QStringLiteral("%1 Seiten werden gesendet").arg(progress.total);
    default:
        return QStringLiteral("Warten auf das Drucksystem");
    }
}

} // namespace

PrintWait::PrintWait(PrintJob& job, QWidget& window)
    : job_(job)
    , window_(window) {
    sinceStart_.start();
    sinceEvents_.start();
    QCoreApplication::instance()->installEventFilter(this);
    job_.setStep([this](const PrintProgress& progress) { return step(progress); });
}

PrintWait::~PrintWait() { job_.setStep({}); }

bool PrintWait::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type())) {
        return false;
    }
    if (!watched->isWidgetType() && event->type() != QEvent::Shortcut) {
        return false; // a native window passes it on to its widgets, where it is filtered
    }
    for (const QObject* object = watched; object != nullptr && dialog_; object = object->parent()) {
        if (object == dialog_.get()) {
            return false;
        }
    }
    event->ignore();
    return true;
}

bool PrintWait::step(const PrintProgress& progress) {
    if (progress.stage == PrintProgress::Stage::making && sinceEvents_.elapsed() < EVENTS_EVERY) {
        return !cancelled_;
    }
    if (!dialog_ && sinceStart_.elapsed() >= DIALOG_AFTER) {
        showDialog();
    }
    if (dialog_ && !cancelled_) {
        show(progress);
    }
    QCoreApplication::processEvents();
    sinceEvents_.restart();
    return !cancelled_;
}

void PrintWait::showDialog() {
    dialog_ = std::make_unique<QProgressDialog>(&window_);
    dialog_->setObjectName(QStringLiteral("PrintProgress"));
    dialog_->setWindowTitle(QStringLiteral("Drucken"));
    dialog_->setCancelButtonText(QStringLiteral("Abbrechen"));
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setMinimumDuration(0);
    constexpr int WIDTH = 320; // pixels
    dialog_->setMinimumWidth(WIDTH);
    connect(dialog_.get(), &QProgressDialog::canceled, this, [this] { cancelled_ = true; });
    dialog_->show();
}

void PrintWait::show(const PrintProgress& progress) {
    dialog_->setLabelText(labelOf(progress));
    // Without a number of pages the bar runs to and fro.
    dialog_->setMaximum(static_cast<int>(progress.total));
    dialog_->setValue(static_cast<int>(progress.done));
}

} // namespace kelvrum
