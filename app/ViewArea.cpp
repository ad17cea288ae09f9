// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ViewArea.h"

#include "app/DataListModel.h"
#include "app/ListView.h"
#include "diagram/PolarSys.h"

#include <QScrollBar>

namespace kelvrum {

namespace {

constexpr int VIEW_LEFT = 118;

void placeAt(QWidget& widget, int top, int width, int height) {
    if (width >= 0 && height >= 0) {
        widget.setGeometry(VIEW_LEFT, top, width, height);
    }
}

} // namespace

ViewArea::ViewArea(const LocaleTexts& texts, QWidget* area)
    : QObject(area)
    , KS(new PolarSys(texts, area))
    , HScroll(new QScrollBar(Qt::Horizontal, area))
    , lView(new ListView(area))
    , rows_(new DataListModel(texts, lView)) {
    KS->setObjectName(QStringLiteral("KS"));
    KS->setFocusPolicy(Qt::StrongFocus); // so that the menu key reaches it
    HScroll->setObjectName(QStringLiteral("HScroll"));
    lView->setObjectName(QStringLiteral("lView"));
    rows_->setColumns(listColumns({}));
    lView->setModel(rows_);
    lView->hide();
    connect(HScroll, &QScrollBar::valueChanged, this, &ViewArea::scrolled);
}

void ViewArea::showList(bool shown) { lView->setVisible(shown); }

void ViewArea::placeDiagram(int width, int height) {
    placeAt(*HScroll, height - 17, width - 120, 16);
    placeAt(*KS, 2, width - 120, height - 5);
}

void ViewArea::placeList(int width, int height) { placeAt(*lView, 2, width - 120, height - 2); }

} // namespace kelvrum
