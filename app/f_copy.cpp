// SPDX-License-Identifier: GPL-3.0-or-later
// Copies for the clipboard: the picture, and the values of either view.
#include "app/ChannelChoice.h"
#include "app/KindMenu.h"
#include "app/ListView.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "diagram/CopiedText.h"
#include "diagram/PictureCopy.h"
#include "diagram/PolarSys.h"
#include "util/BusyPointer.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

namespace kelvrum {

void f::addCopies() {
    QAction* picture = menKS->addAction(QStringLiteral("&Bild kopieren"));
    picture->setObjectName(QStringLiteral("menBild"));
    connect(picture, &QAction::triggered, this, &f::copyPicture);
    QAction* values = menKS->addAction(QStringLiteral("&Werte kopieren"));
    values->setObjectName(QStringLiteral("menWerte"));
    connect(values, &QAction::triggered, this, &f::copyValues);
    view_->list().addAction(values);
}

/// What is copied is a finished view.
void f::copyPicture() {
    loader_.whenIdle("menBild", [this] {
        QGuiApplication::clipboard()->setMimeData(copiedPicture(view_->diagram()).release());
    });
}

void f::copyValues() {
    loader_.whenIdle("menWerte", [this] {
        const BusyPointer busy;
        QGuiApplication::clipboard()->setText(
            optView->isDiagramChosen() ? QString::fromStdString(diagramText()) : view_->list().allText());
    });
}

std::string f::diagramText() const {
    const PolarSys& KS = view_->diagram();
    const std::int32_t channel = selChan->channel();
    if (KS.DiagTyp() == KIND_POLAR) {
        const auto count = static_cast<std::size_t>(KS.sampleCount());
        const std::int32_t speed = station_.ChannelTable.at(channel).PairedChannel;
        return copiedSamples(std::span(KS.directionList()).first(count),
                             std::span(KS.speedList()).first(count), seriesOf(channel), seriesOf(speed),
                             environment_.texts);
    }
    const SeriesReader reader(seriesInUse(KS.DataCount()), KS.XLow(), KS.columnInterval());
    return copiedSeries(reader, seriesOf(channel), secondSeries(), environment_.texts);
}

} // namespace kelvrum
