// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SecondChannel.h"

#include "diagram/LineScale.h"
#include "diagram/PolarSys.h"
#include "util/Controls.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <algorithm>

namespace kelvrum {

namespace {

/// "Name [unit]"; a semicolon would begin the other caption.
std::string axisCaption(const ReadoutSeries& series) {
    std::string text = series.name + (series.unit.empty() ? "" : " [" + series.unit + "]");
    std::replace(text.begin(), text.end(), ';', ',');
    return text;
}

} // namespace

SecondChannel::SecondChannel(PolarSys& diagram, QMenu& menu)
    : QObject(&diagram)
    , diagram_(diagram)
    , menZweiter_(menu.addMenu(QStringLiteral("&Zweiter Kanal")))
    , entries_(new QActionGroup(this)) {
    menZweiter_->setObjectName(QStringLiteral("menZweiter"));
    menZweiter_->menuAction()->setObjectName(menZweiter_->objectName());
    fill({});
}

void SecondChannel::fill(const std::vector<ListedChannel>& channels) {
    channel_ = 0;
    for (QAction* entry : entries_->actions()) {
        entries_->removeAction(entry);
        menZweiter_->removeAction(entry);
        entry->setObjectName(QString());
        entry->deleteLater(); // it may be the one that has been triggered
    }
    for (const ListedChannel& listed : channels) {
        add(captionOf(QString::fromStdString(listed.name)),
            QStringLiteral("menKanal(%1)").arg(listed.channel), listed.channel);
    }
    add(QStringLiteral("&Keiner"), QStringLiteral("menKeiner"), 0);
}

void SecondChannel::add(const QString& text, const QString& name, std::int32_t channel) {
    QAction* entry = menZweiter_->addAction(text);
    entry->setObjectName(name);
    entry->setCheckable(true);
    entry->setChecked(channel == channel_);
    entries_->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, channel] { choose(channel); });
}

void SecondChannel::choose(std::int32_t channel) {
    if (channel != channel_) {
        channel_ = channel;
        Q_EMIT chosen();
    }
}

void SecondChannel::show(const ReadoutSeries& first, const ReadoutSeries& second) {
    hide();
    before_ = Look{diagram_.D2(),     diagram_.Y2axe(),     diagram_.Y2Low(),
                   diagram_.Y2High(), diagram_.AchseText(), diagram_.Einheit()};
    const ValueRange range = marginedRange(diagram_.series().y2);
    put({COLOUR, COLOUR, range.low, range.high, axisCaption(first) + ";" + axisCaption(second), {}});
}

void SecondChannel::hide() {
    if (before_) {
        put(*before_);
        before_.reset();
    }
}

void SecondChannel::hideForOthers() const {
    if (before_) {
        put(*before_);
    }
}

void SecondChannel::put(const Look& look) const {
    diagram_.setD2(look.D2);
    diagram_.setY2axe(look.Y2axe);
    diagram_.setY2Low(look.Y2Low);
    diagram_.setY2High(look.Y2High);
    diagram_.setAchseText(look.AchseText);
    diagram_.setEinheit(look.Einheit);
}

} // namespace kelvrum
