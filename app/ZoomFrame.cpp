// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ZoomFrame.h"

#include "app/ColumnDesign.h"
#include "util/Controls.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace kelvrum {

namespace {

constexpr int MIN_ZOOM = 1;
constexpr int MAX_ZOOM = 25;
constexpr int GREYED_ZOOM = 20; // ">>" greys out here although its handler goes on to MAX_ZOOM: kept so

QRect place(int x, int width) { return {column::INNER_LEFT + x, 19, width, column::CONTROL_HEIGHT}; }

} // namespace

ZoomFrame::ZoomFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Zoom"), parent)
    , Command1(makeControl<QPushButton>(this, "Command1", place(0, 30), QStringLiteral("<<")))
    , lZoom(makeControl<QLabel>(this, "lZoom", place(31, 42), QStringLiteral("1")))
    , Command2(makeControl<QPushButton>(this, "Command2", place(74, 30), QStringLiteral(">>"))) {
    setObjectName(QStringLiteral("Frame1"));
    setGeometry(column::LEFT, 572, column::WIDTH, 66);
    lZoom->setAlignment(Qt::AlignCenter);
    Command1->setEnabled(false); // the zoom starts at its lower end
    connect(Command1, &QPushButton::clicked, this, [this] { zoomBy(-1); });
    connect(Command2, &QPushButton::clicked, this, [this] { zoomBy(+1); });
    auto* slider = makeControl<QSlider>(this, "Slider1", column::row(42), Qt::Horizontal);
    connect(slider, &QSlider::valueChanged, this, &ZoomFrame::slid);
}

void ZoomFrame::start() {
    zoom_ = MIN_ZOOM;
    lZoom->setText(QString::number(zoom_));
}

void ZoomFrame::zoomBy(int steps) {
    const int wanted = zoom_ + steps;
    if (wanted >= MIN_ZOOM && wanted <= MAX_ZOOM) {
        zoom_ = wanted;
        lZoom->setText(QString::number(zoom_));
        Q_EMIT zoomed();
    }
    Command1->setEnabled(zoom_ > MIN_ZOOM);
    Command2->setEnabled(zoom_ < GREYED_ZOOM);
}

} // namespace kelvrum
