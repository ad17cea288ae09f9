// Placing the parts of the window whenever its size changes. The left column keeps its design positions; a
// window too low for it scrolls it.
#include "app/ColumnScroll.h"
#include "app/f.h"
#include "diagram/PolarSys.h"

#include <QFrame>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <cmath>

namespace kelvrum {

namespace {

constexpr double PIXELS_PER_TWIP = 96.0 / 1440;
constexpr int LEAST_TWIPS = 4000;
constexpr int VIEW_LEFT = 118;
constexpr int FOOT = 30; // of the left column: Frame2 and Label1

/// A step whose sizes come out negative is skipped, the others run.
void place(QWidget& widget, int left, int top, int width, int height) {
    if (width >= 0 && height >= 0) {
        widget.setGeometry(left, top, width, height);
    }
}

} // namespace

void f::Form_Resize() {
    const int least = static_cast<int>(std::ceil(LEAST_TWIPS * PIXELS_PER_TWIP));
    if (minimumWidth() != least) {
        setMinimumWidth(least);
    }
    const int W = client_->width();
    const int H = client_->height();
    place(*HScroll, VIEW_LEFT, H - 17, W - 120, 16);
    place(*KS, VIEW_LEFT, 2, W - 120, H - 5);
    if (isVisible()) {
        KS->Draw();
    }
    place(*lView, VIEW_LEFT, 2, W - 120, H - 2);
    Label1->move(Label1->x(), H - 17);
    Frame2->move(Frame2->x(), H - FOOT);
    column_->setHeight(H - FOOT);
}

} // namespace kelvrum
