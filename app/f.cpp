#include "app/f.h"

#include "diagram/PolarSys.h"
#include "util/CaptionFit.h"
#include "util/Numbers.h"
#include "util/Pickers.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFocusEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTableView>
#include <initializer_list>
#include <utility>

namespace kelvrum {

namespace {
constexpr int ROW_DAYS = 2; // of selScroll

/// Pickers and choices change their value when the wheel turns over them.
bool turnsOnWheel(const QObject& control) {
    return control.inherits("QAbstractSpinBox") || control.inherits("QComboBox");
}

/// A home that is missing or full keeps nobody from looking at a station.
QString noProgramFolder(const QString& folder) {
    return QStringLiteral("Der Programmordner „%1“ ist nicht zugänglich.\n"
                          "Projekte lassen sich über „Datei“ – „Öffnen“ ansehen; die Einstellungen des "
                          "Sammeldrucks liegen nun im aktuellen Ordner „%2“.")
        .arg(folder, QDir::currentPath());
}
} // namespace

f::f(Environment environment)
    : environment_(std::move(environment))
    , reader_(environment_.open)
    , loader_([this](const ReadingStep& step) { loadView(step); },
              [] { QCoreApplication::processEvents(); }) {
    buildMenus();
    buildViews();
    buildColumn();
    fitCaptions(*client_);
    nameForReaders();
    buildKeys();
    connectControls();
    setCaption();
    isReadOut_ = QAccessible::isActive();
    QAccessible::installActivationObserver(this);
}

f::~f() {
    QAccessible::removeActivationObserver(this);
    // A picker with an unfinished edit reports it when it loses the focus; the window is half gone by then.
    for (QWidget* control : findChildren<QWidget*>()) {
        control->disconnect(this);
    }
}

void f::Form_Load() {
    KS->Clear();

    KS->setD1(0xFF0000);
    KS->setY1axe(0x400000);
    keptColour1_ = 0x800000;
    keptColour2_ = WHITE;
    KS->setHeadLine(station_.Title);
    KS->setAchseText("");
    KS->setY1Low(-5); // until the user touches the scale, whatever the boxes show
    KS->setY1High(5);
    KS->setY1MinLow(0.2);

    zoom_ = 1;
    lZoom->setText(QString::number(zoom_));

    // Setting a control from code raises no change handling; the one LoadData of the start comes last.
    const QDate today = environment_.today();
    setTime(Side::start, dateSerial(today.year(), today.month(), today.day()));
    setTime(Side::end, timeOf(Side::start) + 1);
    previousStartTime_ = 0;
    previousEndTime_ = 0;
    selInterval->setCurrentIndex(0);
    selScroll->setCurrentIndex(ROW_DAYS);
    optView[0]->setChecked(true);
    lView->hide();

    manualMinimum_ = 0;
    manualMaximum_ = 100;
    Text1->setText(QString::fromStdString(plainNumber(manualMinimum_)));
    Text2->setText(QString::fromStdString(plainNumber(manualMaximum_)));

    if (!QDir::setCurrent(environment_.programFolder)) {
        environment_.dialogs->message(this, noProgramFolder(environment_.programFolder),
                                      QStringLiteral("Kelvrum"));
    }
    readConf(environment_.programFolder.toStdString() + "\\QEL.ini");
    LoadData();

    KS->setHilfslinie2(0);
    KS->setHilfslinie1(0);
}

bool f::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && (watched == Text1 || watched == Text2)) {
        // A context menu or another program borrows the focus only.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            scaleLeft(watched == Text2);
        }
    }
    if (event->type() == QEvent::MouseButtonPress && watched == selChan->viewport()) {
        pressLoaded_ = false; // channelChosen tells when the press chooses
    }
    if (event->type() == QEvent::Wheel && turnsOnWheel(*watched) &&
        !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore(); // turned on its way over a picker or a choice
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == KS && diagramKey(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    if (event->type() == QEvent::Resize && watched == client_) {
        Form_Resize();
    }
    return QMainWindow::eventFilter(watched, event);
}

void f::closeEvent(QCloseEvent* event) {
    loader_.giveUp();
    for (QWidget* picker : std::initializer_list<QWidget*>{DTPicker, DTPicker1, DTPicker2, DTPicker3}) {
        picker->disconnect(this); // an unfinished edit loads nothing any more
    }
    QMainWindow::closeEvent(event);
}

void f::channelChosen() {
    pressLoaded_ = true;
    LoadData();
}

/// A click on the channel that is already shown loads it again. No click takes the selection away.
void f::channelClicked(QListWidgetItem* item) {
    selChan->setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    if (!pressLoaded_) {
        LoadData();
    }
}

void f::viewChosen() {
    lView->setVisible(!diagramSelected());
    LoadData();
}

} // namespace kelvrum
