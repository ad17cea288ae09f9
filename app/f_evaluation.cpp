// SPDX-License-Identifier: GPL-3.0-or-later
// "Auswertung": evaluating what the window shows.
#include "app/ChannelChoice.h"
#include "app/EvaluationPrintout.h"
#include "app/EvaluationWindow.h"
#include "app/IntervalFrame.h"
#include "app/KindMenu.h"
#include "app/LimitFrame.h"
#include "app/ListView.h"
#include "app/ViewArea.h"
#include "app/f.h"
#include "drawing/JobName.h"
#include "drawing/PrintWait.h"
#include "evaluation/EvaluationReading.h"
#include "util/BusyPointer.h"
#include "util/Validity.h"

#include <QAction>

namespace kelvrum {

namespace {

/// A box without a number leaves its limit out. So does a 0 while the limits are not shown, since the box of
/// a channel without a limit holds one.
std::optional<double> limitFrom(double box, bool shown) {
    const double v = validate(box);
    return v == INVALID_VALUE || (v == ZERO_VALUE && !shown) ? std::nullopt : std::optional(v);
}

} // namespace

void f::buildEvaluation() {
    auto* action = new QAction(QStringLiteral("&Auswertung"), this);
    action->setObjectName(QStringLiteral("menAuswertung"));
    action->setShortcut(QKeySequence(Qt::Key_F6));
    addAction(action); // its key works in the whole window
    connect(action, &QAction::triggered, this, [this] {
        finishEdits();
        loader_.whenIdle("menAuswertung", [this] { openEvaluation(); });
    });
    menKS->addSeparator();
    menKS->addAction(action);
    view_->list().addAction(action);
}

void f::openEvaluation() {
    const std::int32_t channel = selChan->channel();
    if (channel == 0) {
        return;
    }
    const ReadRequest shown{channel, {}, range(), interval()};
    const AuxiliaryLines boxes = limits_->limits();
    EvaluationRequest request;
    request.range = shown.range;
    request.interval = shown.interval;
    request.kind = evaluatedKind(station_, channel);
    request.limits = {limitFrom(boxes.first, limits_->areLimitsShown()),
                      limitFrom(boxes.second, limits_->areLimitsShown())};
    request.now = environment_.now();
    const auto read = [this, &shown](const auto& consume, const ReadingStep& step) {
        return readIntervals(station_, shown, openAndAnswer(), consume, step);
    };
    const auto print = [this](const EvaluationText& text, QWidget& window) { printEvaluation(text, window); };
    EvaluationWindow window({request,
                             evaluationSubject(station_, channel, interval_->caption().toStdString()),
                             environment_.texts, read, print},
                            this);
    window.exec();
}

void f::printEvaluation(const EvaluationText& text, QWidget& window) {
    printAs(jobName(station_.Title, "Auswertung", range(), environment_.texts), window, [&] {
        const BusyPointer busy;
        const PrintWait wait(printJob_, window);
        const std::string foot = station_.Title + ", " + text.title + ", gedruckt am " + printingDate();
        printEvaluationText(text, station_.Title, foot,
                            [this]() -> Surface& { return printJob_.newPage(QPageLayout::Landscape); });
        printJob_.end();
    });
}

} // namespace kelvrum
